// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

#include <algorithm>

/// On "Side left" and "Side right" the ports 0 to 9 hold cabinets, 10 to 19 none.
class CPortPairsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_folder = std::make_unique<QTemporaryDir>();
        m_host = std::make_unique<CDeviceFixture>(0, m_folder->path());
        m_left = m_host->named("Side left");
        m_right = m_host->named("Side right");
        m_host->select(m_left);
        QVERIFY(!m_host->log.waitFor(28).isEmpty());
        m_host->log.take();
    }
    void cleanup()
    {
        m_host.reset();
        m_folder.reset();
        CTestBase::cleanup();
    }

    void pairsOnOneProcessorAndAcross()
    {
        const QList<SPortPair> pairs{pair(m_left, 0, m_left, 10), pair(m_left, 1, m_right, 11)};
        QVERIFY2(apply(pairs), qPrintable(m_host->handler.lastError()));
        QCOMPARE(m_host->log.waitFor(11), QStringLiteral("11 0 10 on"));
        QCOMPARE(m_host->log.waitFor(11), QStringLiteral("11 1 -1 on"));
        QCOMPARE(m_host->handler.portRedundancies(), pairs);
        QCOMPARE(portOf(m_left, 10).redundancyProcessor, QUuid());
        QCOMPARE(portOf(m_right, 11).redundancyProcessor, m_left);
        QCOMPARE(portOf(m_right, 11).mirrored, PortPairs::mirrorOf(portOf(m_left, 1)));
        QVERIFY(apply({pairs.last()}));
        QCOMPARE(m_host->log.waitFor(11), QStringLiteral("11 0 10 off"));
        QVERIFY(m_host->log.take().filter(QRegularExpression(QStringLiteral("^11"))).isEmpty());
        QCOMPARE(m_host->handler.portRedundancies(), QList<SPortPair>{pairs.last()});
        QVERIFY(m_host->handler.cancelPortRedundancy(1));
        QCOMPARE(m_host->handler.portRedundancies(), QList<SPortPair>());
        QCOMPARE(portOf(m_right, 11).redundancy, Port::NoRedundancy);
        QVERIFY(portOf(m_right, 11).mirrored.isEmpty());
    }

    void refusesAllOfThem_data()
    {
        QTest::addColumn<QString>("with"); // the processor of the second pair's redundancy
        QTest::addColumn<int>("port");
        QTest::addColumn<QString>("error");
        QTest::newRow("twice") << "Side left" << 10 << "Output port 11 has a redundancy already.";
        QTest::newRow("with itself") << "Side left" << 1 << "These are not two output ports.";
        QTest::newRow("no such port") << "Side left" << 20 << "There is no such output port.";
        QTest::newRow("locked") << "Side right" << 12 << "Output port 13 is locked.";
        QTest::newRow("another mode") << "Balcony" << 0 << "";
        QTest::newRow("offline") << "Foyer" << 0 << "";
    }
    void refusesAllOfThem()
    {
        QFETCH(QString, with);
        QFETCH(int, port);
        QFETCH(QString, error);
        lock(m_right, 12);
        const QUuid other = m_host->named(with.toLatin1());
        m_host->log.take();
        QVERIFY(!apply({pair(m_left, 0, m_left, 10), pair(m_left, 1, other, port)}));
        QVERIFY2(m_host->handler.lastError().endsWith(error), qPrintable(m_host->handler.lastError()));
        QVERIFY(!m_host->handler.lastError().isEmpty());
        QCOMPARE(m_host->handler.portRedundancies(), QList<SPortPair>());
        QVERIFY(m_host->log.take().isEmpty());
    }

    void anythingCanBeCancelled()
    {
        QVERIFY(m_host->handler.setPortRedundancy(0, 10));
        QVERIFY(apply({pair(m_left, 0, m_left, 10), pair(m_left, 1, m_right, 11)}));
        lock(m_left, 0);
        QVERIFY(m_host->handler.cancelPortRedundancy(10)); // changes no cabinet, so a lock does not matter
        m_host->manager.services().table().changeLayout(m_right, [](SDevice &device) {
            CabinetLayout layout = device.working.layout();
            PortPairs::setPair(layout.ports[11], layout.processor, Port::NoRedundancy, {});
            device.takeLayout(layout);
        });
        QCOMPARE(m_host->handler.portRedundancies(), QList<SPortPair>());
        QVERIFY(apply({}));
        QCOMPARE(portOf(m_left, 1).redundancy, Port::NoRedundancy);
    }

    void onlyThePortOfAnotherProcessorIsDissolvedHere()
    {
        QVERIFY(apply({pair(m_left, 0, m_right, 1), pair(m_left, 2, m_left, 3)}));
        QVERIFY(PortPairs::mirrorOf(portOf(m_right, 1)).isEmpty());
        QVERIFY(portOf(m_right, 1).cabinetCount() > 0);
        QVERIFY(!PortPairs::mirrorOf(portOf(m_left, 3)).isEmpty()); // the editor does it
    }

    void anEditThatHasNotHeardOfThePairKeepsIt()
    {
        const LayoutData before = m_host->handler.layoutData(m_left);
        QVERIFY(m_host->handler.setPortRedundancy(0, 10));
        m_host->handler.commitLayoutData(before);
        QCOMPARE(m_host->handler.portRedundancies().size(), 1);
        QVERIFY(matches(m_left, 10));
    }

    void savingGivesTheRedundancyItsCabinets_data()
    {
        QTest::addColumn<bool>("across");
        QTest::newRow("same processor") << false;
        QTest::newRow("another processor") << true;
    }
    void savingGivesTheRedundancyItsCabinets()
    {
        QFETCH(bool, across);
        const QUuid saved = across ? m_right : m_left;
        QVERIFY(apply({pair(m_left, 0, saved, 10)}));
        QVERIFY(!m_host->log.waitFor(11).isEmpty());
        m_host->select(saved);
        QVERIFY(matches(saved, 10));
        m_host->edit(m_left);
        QVERIFY(!matches(saved, 10));
        m_host->log.take();
        QCOMPARE(m_host->save(saved).result, SDeviceOutcome::Done);
        QCOMPARE(m_host->log.waitFor(11), QStringLiteral("11 %1 10 on").arg(across ? -1 : 0));
        QVERIFY(matches(saved, 10));
        if (across)
            QCOMPARE(m_host->save(m_left).result, SDeviceOutcome::Done);
        m_host->edit(m_left);
        QCOMPARE(m_host->read(m_left).result, SDeviceOutcome::Done); // the edit is given up
        QVERIFY(matches(saved, 10));
        QVERIFY(!m_host->manager.table().isModified(saved));
        m_host.reset();
        m_host = std::make_unique<CDeviceFixture>(0, m_folder->path()); // as after a restart
        QCOMPARE(m_host->handler.portRedundancies().size(), 1);
        QVERIFY(matches(saved, 10));
    }

    void aFailedSaveGivesNothing()
    {
        QVERIFY(m_host->handler.setPortRedundancy(0, 10));
        m_host->edit(m_left);
        m_host->manager.simulate(m_left, SimulationFault::Refuse, true);
        QCOMPARE(m_host->save(m_left).result, SDeviceOutcome::Failed);
        QVERIFY(!matches(m_left, 10));
    }

    void pairsTravelByFiles()
    {
        const QList<SPortPair> pairs{pair(m_left, 0, m_left, 10), pair(m_left, 1, m_right, 11)};
        QVERIFY(apply(pairs));
        QTemporaryDir files;
        const QString file = files.filePath(QStringLiteral("left.sprj"));
        QVERIFY(m_host->handler.exportProcessorMapping(m_left, file));
        QVERIFY2(m_host->handler.importProcessorMapping(m_left, file, false),
                 qPrintable(m_host->handler.lastError()));
        QCOMPARE(m_host->handler.portRedundancies(), pairs);
        QVERIFY(matches(m_left, 10));
        QVERIFY(apply({}));
        QVERIFY(m_host->handler.importProcessorMapping(m_left, file, false));
        QCOMPARE(m_host->handler.portRedundancies(),
                 QList<SPortPair>{pairs.first()}); // the other end is gone
        QCOMPARE(portOf(m_left, 1).redundancy, Port::NoRedundancy);
    }

    void aRedundancyShowsTheLoadOfWhatItCarries()
    {
        const LayoutData before = m_host->handler.layoutData(m_left);
        const int load = m_host->handler.portLoad(before.layout.ports.at(0), 0);
        QVERIFY(load > 0);
        QVERIFY(apply({pair(m_left, 0, m_right, 1)}));
        m_host->select(m_right);
        QCOMPARE(m_host->handler.portLoad(portOf(m_right, 1), 1), load);
    }

private:
    using Port = CabinetLayout::CabinetPort;

    static SPortPair pair(const QUuid &first, int primary, const QUuid &second, int backup)
    {
        return {{first, primary}, {second, backup}};
    }
    bool apply(const QList<SPortPair> &pairs)
    {
        QList<QUuid> all;
        for (const SDevice &device : m_host->manager.table().devices())
            all << device.node.uuid;
        return m_host->handler.applyPortRedundancy(all, pairs);
    }
    Port portOf(const QUuid &processor, int port) const { return *m_host->layoutOf(processor).port(port); }
    bool matches(const QUuid &processor, int port) const
    {
        const CabinetLayout layout = m_host->layoutOf(processor);
        const auto primary =
            PortPairs::partner(layout, *layout.port(port), m_host->manager.services().layoutOf());
        return primary && PortPairs::cabinetsMatch(*layout.port(port), *primary);
    }
    void lock(const QUuid &processor, int port)
    {
        LayoutData data = m_host->handler.layoutData(processor);
        data.layout.ports[port].locked = true;
        m_host->handler.commitLayoutData(data);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CDeviceFixture> m_host;
    QUuid m_left;
    QUuid m_right;
};

ORVO_TEST_MAIN(QGuiApplication, CPortPairsTest)
#include "tst_port_pairs.moc"
