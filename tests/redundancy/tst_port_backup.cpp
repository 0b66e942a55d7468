// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CPortBackupDialog.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/redundancy/CPairTester.h"

#include <QSignalSpy>

/// Two processors of four ports: the first two of each hold two cabinets.
class CPortBackupTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        initLayoutResources();
        m_host = std::make_unique<CFakeHost>();
        for (const char *name : {"A", "B"}) {
            const QUuid key = m_host->addProcessor(QLatin1String(name), 4, 2);
            m_processors << key;
            auto lock = m_host->answers();
            lock->nodes.last().address = 0; // shown by name alone
            QVector<CabinetLayout::CabinetPort> &ports = lock->layouts[key].layout.ports;
            ports[2].groups.clear();
            ports[3].groups.clear();
            ports[1].groups[0].cabinets[0].rect.translate(5, 0);
        }
        m_host->choose(m_processors.at(1));
    }
    void cleanup()
    {
        m_user.reset();
        m_dialog.reset();
        m_host.reset();
        m_processors.clear();
        CTestBase::cleanup();
    }

    void listsThePortsInViewFirst()
    {
        m_host->answers()->portPairs << pair(0, 0, 0, 2);
        m_host->answers()->portRefusals.insert(port(1, 3), QStringLiteral("B: Output port 4 is locked."));
        open();
        const CBackupList &list = m_user->list();
        QCOMPARE(list.count(), 8);
        QCOMPARE(list.item(0)->text(), QStringLiteral("Port 1, B"));
        QVERIFY(!(list.item(3)->flags() & Qt::ItemIsEnabled));
        QVERIFY(list.item(3)->toolTip().endsWith(QLatin1String("Output port 4 is locked.")));
        QVERIFY(list.item(6)->icon().pixmap(16).toImage() != list.item(5)->icon().pixmap(16).toImage());
        QCOMPARE(m_user->rows(), QStringLiteral("Port 1, A>Port 3, A"));
    }

    void autoMatchTakesEmptyOrEqualPortsOfTheProcessor()
    {
        for (const bool equal : {false, true}) {
            if (equal) {
                auto lock = m_host->answers();
                QVector<CabinetLayout::CabinetPort> &ports = lock->layouts[m_processors.at(1)].layout.ports;
                ports[1].groups = ports.at(0).groups;
            }
            open();
            QTest::mouseClick(m_user->tool("Auto match"), Qt::LeftButton);
            const QString rest = QStringLiteral("|Port 1, A>Port 3, A|Port 2, A>Port 4, A");
            QCOMPARE(m_user->rows(), (equal ? QStringLiteral("Port 1, B>Port 2, B")
                                            : QStringLiteral("Port 1, B>Port 3, B|Port 2, B>Port 4, B")) +
                                         rest);
        }
    }

    void asksBeforeCabinetsLoseTheirWiring()
    {
        for (const auto &[backup, answer, calls] :
             {std::tuple(1, "No", 0), std::tuple(1, "Yes", 2), std::tuple(2, "", 2)}) { // 2 is empty
            open();
            QTest::mouseClick(m_user->tool("Clear"), Qt::LeftButton);
            for (const int entry : {4, backup}) { // port 1 of the other processor
                m_user->list().setCurrentRow(entry);
                QTest::keyClick(&m_user->list(), Qt::Key_Return);
            }
            m_host->answers()->forgetCalls();
            const bool asked = *answer;
            const CMessageBoxAnswerer user(asked ? QStringList(QLatin1String(answer)) : QStringList());
            QTest::mouseClick(m_user->apply(), Qt::LeftButton);
            QCOMPARE(user.boxes().size(), asked ? 1 : 0);
            if (asked)
                QVERIFY(user.boxes().first().details.contains(QLatin1String("Port 2, B")));
            const QList<SPortPair> wanted{pair(0, 0, 1, backup)};
            QCOMPARE(m_host->answers()->portPairs, calls ? wanted : QList<SPortPair>());
            if (calls) // what is a pair already is not asked for again
                QTest::mouseClick(m_user->apply(), Qt::LeftButton);
            QCOMPARE(m_host->answers()->count(QStringLiteral("applyPortRedundancy")), calls);
        }
    }

private:
    SPortKey port(int processor, int index) const { return {m_processors.at(processor), index}; }
    SPortPair pair(int first, int primary, int second, int backup) const
    {
        return {port(first, primary), port(second, backup)};
    }
    void open()
    {
        m_dialog = std::make_unique<CPortBackupDialog>();
        m_user = std::make_unique<CPairTester>(*m_dialog);
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
    }

    std::unique_ptr<CFakeHost> m_host;
    std::unique_ptr<CPortBackupDialog> m_dialog;
    std::unique_ptr<CPairTester> m_user;
    QList<QUuid> m_processors;
};

ORVO_TEST_MAIN(QApplication, CPortBackupTest)
#include "tst_port_backup.moc"
