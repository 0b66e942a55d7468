// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/SelectionRules.h"
#include "tests/harness/CTestBase.h"

class CSelectionRulesTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aSelectionIsShownOrWarnedOf_data()
    {
        QTest::addColumn<QString>("processors"); // a letter each: o offline, f in fibre mode, - neither
        QTest::addColumn<bool>("group");
        QTest::addColumn<int>("warning"); // 0: none
        QTest::newRow("none, while another is online") << QString() << false << 3;
        QTest::newRow("one") << QStringLiteral("-") << false << 0;
        QTest::newRow("one, offline") << QStringLiteral("o") << false << 5;
        QTest::newRow("one, fibre") << QStringLiteral("f") << false << 6;
        QTest::newRow("two") << QStringLiteral("--") << false << 0;
        QTest::newRow("two, offline") << QStringLiteral("oo") << false << 0;
        QTest::newRow("one with an area, one without") << QStringLiteral("-f") << false << 4;
        QTest::newRow("two with an area, one without") << QStringLiteral("-f-") << false << 0;
        QTest::newRow("group") << QStringLiteral("-o") << true << 0;
        QTest::newRow("group of one") << QStringLiteral("-") << true << 4;
        QTest::newRow("group with fibre") << QStringLiteral("-f-") << true << 7;
    }
    void aSelectionIsShownOrWarnedOf()
    {
        QFETCH(QString, processors);
        QFETCH(bool, group);
        QList<ProcessorTree::ProcessorNode> nodes;
        for (const QChar letter : processors) {
            ProcessorTree::ProcessorNode node;
            node.online = letter != QLatin1Char('o');
            node.fiberTransceiver = letter == QLatin1Char('f');
            nodes << node;
        }
        const auto warning = SelectionRules::warningFor(
            group ? PrcTreeNodeType::Group : PrcTreeNodeType::Processor, nodes, true);
        QTEST(warning ? static_cast<int>(*warning) : 0, "warning");
    }
};

ORVO_TEST_MAIN(QCoreApplication, CSelectionRulesTest)
#include "tst_selection_rules.moc"
