// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CWorldTest.h"

#include <algorithm>

namespace {

/// The fixture with "Side left" in view.
struct SSides final : CDeviceFixture
{
    explicit SSides(const QString &state = {})
        : CDeviceFixture(0, state)
    {
        select(left);
        log.waitFor(28);
        log.take();
    }
};

} // namespace

/// On "Side left" and "Side right" the ports 0 to 9 hold cabinets, 10 to 19 none.
class CPortPairsTest final : public CWorldTest<SSides>
{
    Q_OBJECT

private Q_SLOTS:
    void pairsOnOneProcessorAndAcross()
    {
        const QList<SPortPair> pairs{pair(m_world->left, 0, m_world->left, 10),
                                     pair(m_world->left, 1, m_world->right, 11)};
        QVERIFY2(apply(pairs), qPrintable(m_world->handler.lastError()));
        QCOMPARE(m_world->log.waitFor(11), QStringLiteral("11 0 10 on"));
        QCOMPARE(m_world->log.waitFor(11), QStringLiteral("11 1 -1 on"));
        QCOMPARE(m_world->handler.portRedundancies(), pairs);
        QCOMPARE(portOf(m_world->left, 10).redundancyProcessor, QUuid());
        QCOMPARE(portOf(m_world->right, 11).redundancyProcessor, m_world->left);
        QCOMPARE(portOf(m_world->right, 11).mirrored, PortPairs::mirrorOf(portOf(m_world->left, 1)));
        QVERIFY(apply({pairs.last()}));
        QCOMPARE(m_world->log.waitFor(11), QStringLiteral("11 0 10 off"));
        QVERIFY(m_world->log.take().filter(QRegularExpression(QStringLiteral("^11"))).isEmpty());
        QCOMPARE(m_world->handler.portRedundancies(), QList<SPortPair>{pairs.last()});
        QVERIFY(m_world->handler.cancelPortRedundancy(1));
        QCOMPARE(m_world->handler.portRedundancies(), QList<SPortPair>());
        QCOMPARE(portOf(m_world->right, 11).redundancy, Port::NoRedundancy);
        QVERIFY(portOf(m_world->right, 11).mirrored.isEmpty());
    }

    void refusesAllOfThem()
    {
        struct SCase
        {
            const char *processor; // of the second pair's redundancy
            int port;
            const char *error;
        };
        m_world->lockPort(m_world->right, 12);
        m_world->manager.announcer().notify(LayoutNotification::DetectFinished); // behind all of that
        m_world->notifiedUpToDetection();
        for (const auto &[processor, port, error] :
             {SCase{"Side left", 10, "Output port 11 has a redundancy already."},
              SCase{"Side left", 1, "These are not two output ports."},
              SCase{"Side left", 20, "There is no such output port."},
              SCase{"Side right", 12, "Output port 13 is locked."}, SCase{"Balcony", 0, ""}, // another mode
              SCase{"Foyer", 0, ""}}) {                                                      // offline
            const QUuid other = m_world->named(processor);
            QVERIFY(!apply({pair(m_world->left, 0, m_world->left, 10), pair(m_world->left, 1, other, port)}));
            const QString told = m_world->handler.lastError();
            QVERIFY2(told.endsWith(QLatin1String(error)) && !told.isEmpty(), qPrintable(told));
            QCOMPARE(m_world->handler.portRedundancies(), QList<SPortPair>());
            QCOMPARE(m_world->log.take(), QStringList());
        }
    }

    void anythingCanBeCancelled()
    {
        QVERIFY(m_world->handler.setPortRedundancy(0, 10));
        QVERIFY(
            apply({pair(m_world->left, 0, m_world->left, 10), pair(m_world->left, 1, m_world->right, 11)}));
        m_world->lockPort(m_world->left, 0);
        QVERIFY(m_world->handler.cancelPortRedundancy(10)); // changes no cabinet, so a lock does not matter
        m_world->manager.services().table().changeLayout(m_world->right, [](SDevice &device) {
            CabinetLayout layout = device.working.layout();
            PortPairs::setPair(layout.ports[11], layout.processor, Port::NoRedundancy, {});
            device.takeLayout(layout);
        });
        QCOMPARE(m_world->handler.portRedundancies(), QList<SPortPair>());
        QVERIFY(apply({}));
        QCOMPARE(portOf(m_world->left, 1).redundancy, Port::NoRedundancy);
    }

    void onlyThePortOfAnotherProcessorIsDissolvedHere()
    {
        QVERIFY(apply({pair(m_world->left, 0, m_world->right, 1), pair(m_world->left, 2, m_world->left, 3)}));
        QVERIFY(PortPairs::mirrorOf(portOf(m_world->right, 1)).isEmpty());
        QVERIFY(portOf(m_world->right, 1).cabinetCount() > 0);
        QVERIFY(!PortPairs::mirrorOf(portOf(m_world->left, 3)).isEmpty()); // the editor does it
    }

    void anEditThatHasNotHeardOfThePairKeepsIt()
    {
        const LayoutData before = m_world->handler.layoutData(m_world->left);
        QVERIFY(m_world->handler.setPortRedundancy(0, 10));
        m_world->handler.commitLayoutData(before);
        QCOMPARE(m_world->handler.portRedundancies().size(), 1);
        QVERIFY(matches(*m_world, m_world->left, 10));
    }

    void savingGivesTheRedundancyItsCabinets()
    {
        for (const bool across : {false, true}) {
            SSides host;
            const QUuid saved = across ? host.right : host.left;
            QVERIFY(
                host.handler.applyPortRedundancy({host.left, host.right}, {pair(host.left, 0, saved, 10)}));
            QVERIFY(!host.log.waitFor(11).isEmpty());
            host.select(saved);
            QVERIFY(matches(host, saved, 10));
            host.edit(host.left);
            QVERIFY(!matches(host, saved, 10));
            host.log.take();
            QCOMPARE(host.save(saved).result, SDeviceOutcome::Done);
            QCOMPARE(host.log.waitFor(11), QStringLiteral("11 %1 10 on").arg(across ? -1 : 0));
            QVERIFY(matches(host, saved, 10));
            if (across)
                QCOMPARE(host.save(host.left).result, SDeviceOutcome::Done);
            host.edit(host.left);
            host.manager.jobs().setConfirm([](const QString &) { return true; });
            QCOMPARE(host.read(host.left).result, SDeviceOutcome::Done); // the edit is given up
            QVERIFY(matches(host, saved, 10));
            QVERIFY(!host.manager.table().isModified(saved));
            SSides again(host.folder.path()); // as after a restart
            QCOMPARE(again.handler.portRedundancies().size(), 1);
            QVERIFY(matches(again, saved, 10));
        }
    }

    void aFailedSaveGivesNothing()
    {
        QVERIFY(m_world->handler.setPortRedundancy(0, 10));
        m_world->edit(m_world->left);
        m_world->manager.simulate(m_world->left, SimulationFault::Refuse, true);
        QCOMPARE(m_world->save(m_world->left).result, SDeviceOutcome::Failed);
        QVERIFY(!matches(*m_world, m_world->left, 10));
    }

    void pairsTravelByFiles()
    {
        const QList<SPortPair> pairs{pair(m_world->left, 0, m_world->left, 10),
                                     pair(m_world->left, 1, m_world->right, 11)};
        QVERIFY(apply(pairs));
        QTemporaryDir files;
        const QString file = files.filePath(QStringLiteral("left.sprj"));
        QVERIFY(m_world->handler.exportProcessorMapping(m_world->left, file));
        QVERIFY2(m_world->handler.importProcessorMapping(m_world->left, file, false),
                 qPrintable(m_world->handler.lastError()));
        QCOMPARE(m_world->handler.portRedundancies(), pairs);
        QVERIFY(matches(*m_world, m_world->left, 10));
        QVERIFY(apply({}));
        QVERIFY(m_world->handler.importProcessorMapping(m_world->left, file, false));
        QCOMPARE(m_world->handler.portRedundancies(),
                 QList<SPortPair>{pairs.first()}); // the other end is gone
        QCOMPARE(portOf(m_world->left, 1).redundancy, Port::NoRedundancy);
    }

    void aRedundancyShowsTheLoadOfWhatItCarries()
    {
        const LayoutData before = m_world->handler.layoutData(m_world->left);
        const int load = m_world->handler.portLoad(before.layout.ports.at(0), 0);
        QVERIFY(load > 0);
        QVERIFY(apply({pair(m_world->left, 0, m_world->right, 1)}));
        m_world->select(m_world->right);
        QCOMPARE(m_world->handler.portLoad(portOf(m_world->right, 1), 1), load);
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
        for (const SDevice &device : m_world->manager.table().devices())
            all << device.node.uuid;
        return m_world->handler.applyPortRedundancy(all, pairs);
    }
    Port portOf(const QUuid &processor, int port) const { return *m_world->layoutOf(processor).port(port); }
    static bool matches(SSides &host, const QUuid &processor, int port)
    {
        const CabinetLayout layout = host.layoutOf(processor);
        const auto primary =
            PortPairs::partner(layout, *layout.port(port), host.manager.services().layoutOf());
        return primary && PortPairs::cabinetsMatch(*layout.port(port), *primary);
    }
};

ORVO_TEST_MAIN(QGuiApplication, CPortPairsTest)
#include "tst_port_pairs.moc"
