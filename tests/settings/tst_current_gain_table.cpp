// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CEleCurrentAdjustTable.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>

namespace {

QString statusOf(const CEleCurrentAdjustTable &table, int row)
{
    return qobject_cast<QLabel *>(table.cellWidget(row, 2))->text();
}

QCheckBox *switchOf(const CEleCurrentAdjustTable &table, int row)
{
    return table.cellWidget(row, 3)->findChild<QCheckBox *>();
}

/// A row as "60Hz|Low|Imported|on".
QString rowOf(const CEleCurrentAdjustTable &table, int row)
{
    const QStringList texts{table.item(row, 0)->text(), table.item(row, 1)->text(), statusOf(table, row),
                            switchOf(table, row)->isChecked() ? QStringLiteral("on") : QStringLiteral("off")};
    return texts.join(QLatin1Char('|'));
}

} // namespace

class CCurrentGainTableTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void theTableIsLaidOutAsItsColumnsNeed()
    {
        const CEleCurrentAdjustTable table;
        QCOMPARE(table.objectName(), QStringLiteral("VideoInputMonitorTable"));
        QCOMPARE(table.size(), QSize(556, 282));
        QStringList columns;
        for (int column = 0; column < table.columnCount(); ++column)
            columns << QStringLiteral("%1=%2")
                           .arg(table.horizontalHeaderItem(column)->text())
                           .arg(table.columnWidth(column));
        QCOMPARE(columns.join(QLatin1Char(' ')),
                 QStringLiteral("Frame rate=110 Gain level=110 Parameter status=110 Switch=220"));
    }

    void showsASetARow_data()
    {
        QTest::addColumn<int>("frameRate");
        QTest::addColumn<int>("gainLevel");
        QTest::addColumn<bool>("imported");
        QTest::addColumn<QString>("row");
        QTest::newRow("60 Hz") << 0 << 0 << true << "60Hz|Low|Imported|off";
        QTest::newRow("50 Hz") << 1 << 1 << false << "50Hz|Medium|Not imported|off";
        QTest::newRow("30 Hz") << 2 << 2 << true << "30Hz|High|Imported|off";
        QTest::newRow("unknown frame rate") << 3 << 2 << true << "|High|Imported|off";
        QTest::newRow("unknown level") << 0 << 3 << true << "60Hz||Imported|off";
        QTest::newRow("negative") << -1 << -1 << false << "||Not imported|off";
    }
    void showsASetARow()
    {
        QFETCH(int, frameRate);
        QFETCH(int, gainLevel);
        QFETCH(bool, imported);
        QFETCH(QString, row);
        CEleCurrentAdjustTable table;
        table.setGains({{frameRate, gainLevel, imported, false}});
        QCOMPARE(rowOf(table, 0), row);
        QCOMPARE(table.cellWidget(0, 2)->styleSheet(),
                 imported ? QStringLiteral("color: #B5B5C1") : QStringLiteral("color: #737380"));
        QCOMPARE(switchOf(table, 0)->isEnabled(), imported);
    }

    void ordersByFrameRateThenLevel()
    {
        CEleCurrentAdjustTable table;
        table.setGains({{1, 0, true, true}, {0, 2, false, false}, {2, 1, true, false}, {0, 1, true, false}});
        const QList<SCurrentGain> ordered{
            {0, 1, true, false}, {0, 2, false, false}, {1, 0, true, true}, {2, 1, true, false}};
        QCOMPARE(table.gains(), ordered);
        QVERIFY(!table.isSwitched());
        QCOMPARE(rowOf(table, 2), QStringLiteral("50Hz|Low|Imported|on"));
    }

    void aSetThatIsOnCanBeSwitchedOffWithoutParameters()
    {
        CEleCurrentAdjustTable table;
        table.setGains({{0, 0, false, true}});
        QVERIFY(switchOf(table, 0)->isEnabled());
        switchOf(table, 0)->click();
        QVERIFY(table.isSwitched() && !table.gains()[0].on);
        switchOf(table, 0)->click();
        QVERIFY(!table.isSwitched());
    }
};

ORVO_TEST_MAIN(QApplication, CCurrentGainTableTest)
#include "tst_current_gain_table.moc"
