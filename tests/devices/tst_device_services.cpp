// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CUpdateThread.h"
#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/services/SDevice.h"
#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CWallBuilder.h"
#include "layout/api/LayoutNotification.h"
#include "platform/control/CObserver.h"
#include "tests/harness/CTestBase.h"

#include <QSet>

#include <atomic>
#include <future>
#include <memory>

namespace {

using Port = CabinetLayout::CabinetPort;

Port portOf(const QVector<QRect> &rects)
{
    Port port;
    port.groups.resize(1);
    port.groups[0].groups.resize(1);
    for (int i = 0; i < rects.size(); ++i) {
        Port::Cabinet cabinet;
        cabinet.rect = rects.at(i);
        auto &outer = port.groups[0];
        (i % 2 ? outer.groups[0] : outer).cabinets << cabinet; // those of inner groups count as well
    }
    return port;
}

SReceiverGeneration generation(const char *id)
{
    for (const SProcessorKind &kind : CProcessorKinds::builtIn().all()) {
        if (kind.generation.id == QLatin1String(id))
            return kind.generation;
    }
    return {};
}

using Type = CTypeLibrary::STreeNode;

QVector<Type> typesOf(const QVector<Type> &nodes)
{
    QVector<Type> types;
    for (const Type &node : nodes)
        types += node.isFolder() ? typesOf(node.children) : QVector<Type>{node};
    return types;
}

/// What the module hands over after it has edited one port: nothing else is detached.
CabinetLayout withMovedCabinet(CabinetLayout layout, int port)
{
    layout.ports[port].groups[0].cabinets[0].rect.translate(10, 0);
    return layout;
}

/// Notes codes and threads. Each update waits until letGo() was called, and asks for a key.
class CNotingObserver final : public CObserver
{
public:
    void Update(CSubject &subject) override
    {
        entered = true;
        m_gate.wait();
        codes.push_back(subject.code());
        threads.push_back(std::this_thread::get_id());
        subject.GetArgument<QUuid>();
    }
    void letGo() { m_go.set_value(); }

    std::atomic<bool> entered{false};
    std::vector<int> codes; // read after the thread has ended
    std::vector<std::thread::id> threads;

private:
    std::promise<void> m_go;
    std::shared_future<void> m_gate{m_go.get_future()};
};

} // namespace

/// The parts of the services of devices, and the kinds that they know.
class CDeviceServicesTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aPortCarriesWhatTheTableOfItsGenerationSays()
    {
        const auto capacity = [](const char *id, int hertz, int bits, bool threeD = false) {
            return CPortCapacity::capacity(generation(id), {hertz, bits, threeD});
        };
        QCOMPARE(capacity("current", 60, 8), qint64(659722));
        QCOMPARE(capacity("current", 240, 12), qint64(82465));
        QCOMPARE(capacity("current", 60, 8, true), qint64(327680));
        QCOMPARE(capacity("current", 240, 8, true), qint64(164930)); // less than 3D allows
        QCOMPARE(capacity("older", 60, 8), qint64(650000));
        QCOMPARE(capacity("older", 60, 12), qint64(0));
        QCOMPARE(capacity("low-rate", 60, 12), qint64(350000));
        QCOMPARE(capacity("fine-grain", 60, 12), qint64(425000));
        QCOMPARE(capacity("current", 0, 8), qint64(0));
    }

    void aPortIsChargedTheSumOrTheRectangleAroundIt()
    {
        const Port apart = portOf({{0, 0, 100, 100}, {300, 0, 100, 100}, {0, 100, 50, 50}});
        QCOMPARE(CPortCapacity::charged(generation("current"), apart), qint64(22500));
        QCOMPARE(CPortCapacity::charged(generation("older"), apart), qint64(400 * 150));
        QCOMPARE(CPortCapacity::charged(generation("older"), {}), qint64(0));
    }

    void portsInUseShowTheOverloadOfTheWholeProcessor()
    {
        QCOMPARE(CPortCapacity::percent(1, 659722), 1); // loads are rounded up
        QCOMPARE(CPortCapacity::percent(659722, 659722), 100);
        QCOMPARE(CPortCapacity::percent(0, 0), 0);
        QVERIFY(CPortCapacity::percent(1, 0) > 100);
        QCOMPARE(CPortCapacity::percent(qint64(1) << 40, qint64(1) << 40), 100);
        const SProcessorKind kind = *CProcessorKinds::builtIn().find(QStringLiteral("c20"));
        QCOMPARE(CPortCapacity::load(kind, {}, 318750, 9000000).percent, 50);
        QCOMPARE(CPortCapacity::load(kind, {}, 318750, 9000001).percent, 101);
        QCOMPARE(CPortCapacity::load(kind, {}, 0, 9000001).percent, 0);
        QCOMPARE(CPortCapacity::load(kind, {}, 1275000, 9000001).percent, 200);
    }

    void theLoadIsThatOfThePortAskedForAmongTheOthers()
    {
        SDevice device;
        device.kind = *CProcessorKinds::builtIn().find(QStringLiteral("c4"));
        device.settings.portCount = 4;
        CabinetLayout layout;
        for (int i = 0; i < 4; ++i) {
            layout.ports << portOf({{0, 0, 600, 1000}}); // 2.4 of 2.6 million in all
            layout.ports.last().index = i;
        }
        device.takeLayout(layout);
        QCOMPARE(device.portLoad(layout.ports.at(2), 2).percent, 91);
        QCOMPARE(device.portLoad(portOf({{0, 0, 600, 500}}), 2).percent, 46);
        QCOMPARE(device.portLoad(portOf({{0, 0, 1000, 1000}}), 2).percent, 152); // 2.8 million: 108 % in all
        device.settings.colorDepth = 10;
        QCOMPARE(device.portLoad(layout.ports.at(2), 2).percent, 122);
    }

    void theSmallestKindThatIsLargeEnoughIsFound()
    {
        QCOMPARE(CProcessorKinds::builtIn().withPorts(4)->ports, 4);
        QCOMPARE(CProcessorKinds::builtIn().withPorts(5)->ports, 8);
        QVERIFY(!CProcessorKinds::builtIn().withPorts(81));
    }

    void typesAreFoundByKeyAndBySize()
    {
        const CTypeLibrary &library = CTypeLibrary::builtIn();
        QSet<QByteArray> keys;
        const QVector<Type> types = typesOf(library.nodes());
        for (const Type &type : types) {
            QVERIFY2(type.info.isValid() && type.key == type.info.key, qPrintable(type.name));
            QVERIFY(library.find(type.key) && library.find(type.key)->name == type.name);
            keys.insert(type.key.toText());
        }
        QCOMPARE(keys.size(), types.size());
        const auto *tall = library.findBySize({192, 384});
        QVERIFY(tall);
        QCOMPARE(tall->receivers, (QVector<QRect>{{0, 0, 192, 192}, {0, 192, 192, 192}}));
        // Keys are the same in every installation.
        QCOMPARE(library.findBySize({192, 192})->key.toText(),
                 QByteArray("6dba801f5fa9c9863901f6ede1dba8fc"));
        QVERIFY(!library.findBySize({1, 1}));
        QVERIFY(!library.find(SMD5()));
    }

    void typesThatContradictThemselvesAreRefused()
    {
        const auto errorOf = [](const QByteArray &types) {
            return CTypeLibrary::fromJson("{\"folders\": [{\"name\": \"A\", \"types\": [" + types + "]}]}")
                .error();
        };
        const QByteArray type = "{\"name\": \"T\", \"size\": [64, 64], \"millimetres\": [500, 500]";
        const QByteArray two = type + ", \"kind\": 2, \"receivers\": [[0, 0, 64, 32], ";
        QCOMPARE(errorOf(two + "[0, 32, 64, 32]]}"), QString());
        QVERIFY(errorOf(two + "[0, 32, 64, 31]]}").contains(QLatin1String("do not fill")));
        QVERIFY(errorOf(two + "[0, 16, 64, 32]]}").contains(QLatin1String("do not fill")));
        QVERIFY(errorOf(two + "[64, 0, 64, 32]]}").contains(QLatin1String("do not fill")));
        QVERIFY(errorOf(type + ", \"kind\": 2, \"receivers\": [[0, 0, 64, 64]]}")
                    .contains(QLatin1String("kind")));
        QVERIFY(errorOf(type + "}, " + type + "}").contains(QLatin1String("twice")));
        QVERIFY(errorOf(type + ", \"damaged\": true}").contains(QLatin1String("no damage")));
        QVERIFY(!errorOf(type + "}], \"more\": [").isEmpty());
    }

    void aMappingIsNumberedByPortAndRank()
    {
        CabinetLayout wall = m_wall;
        wall.ports[0].groups[0].cabinets[0].rank = -1;
        QMap<QPair<int, int>, int> numbers; // by port and rank
        for (const auto &port : CWorkingLayout::numbered(wall).ports) {
            for (const auto &cabinet : port.getAllCabinets())
                numbers.insert({port.index, cabinet.rank}, cabinet.mappingIndex);
        }
        QCOMPARE(numbers.take({0, -1}), -1);
        int expected = 0;
        for (const int number : qAsConst(numbers))
            QCOMPARE(number, expected++);
        QCOMPARE(expected, m_wall.cabinetCount() - 1);
    }

    void aWorkingLayoutKnowsWhatDiffersFromTheSavedMapping()
    {
        CWorkingLayout working;
        working.setSaved(CWorkingLayout::numbered(m_wall));
        CabinetLayout locked = m_wall;
        locked.ports[1].locked = true;
        CabinetLayout loaded = m_wall;
        loaded.ports[1].load = 77; // a figure, no edit
        const auto modifies = [&](const CabinetLayout &layout) {
            working.take(layout, m_generation);
            return working.isModified();
        };
        QVERIFY(!modifies(m_wall));
        QVERIFY(modifies(withMovedCabinet(m_wall, 3)) && !working.haveSettingsChanged());
        QVERIFY(!modifies(loaded));
        QVERIFY(modifies(locked) && !working.haveCabinetsChanged());
        QVERIFY(modifies(withMovedCabinet(locked, 3)) && working.haveCabinetsChanged());
        QVERIFY(working.haveSettingsChanged());
        for (const bool lock : {false, true}) {
            working.changeLook(-1, [lock](auto &port) { port.locked = lock && port.index == 1; });
            QVERIFY(working.haveSettingsChanged() == lock && working.haveCabinetsChanged());
        }
        QVERIFY(modifies(locked) && !working.haveCabinetsChanged());
        working.setSaved(CWorkingLayout::numbered(locked));
        QVERIFY(!working.isModified());

        CabinetLayout edited = withMovedCabinet(m_wall, 2); // the module does not know the places
        auto added = edited.ports[2].groups[0].cabinets[0];
        added.uuid = QUuid::createUuid();
        edited.ports[2].groups[0].cabinets << added;
        working.take(edited, m_generation);
        QCOMPARE(working.bounds(), working.layout().boundingRect());
        for (const auto &cabinet : working.layout().ports.at(2).getAllCabinets())
            QCOMPARE(cabinet.mappingIndex >= 0, cabinet.uuid != added.uuid);
        QVERIFY(!working.isMapped(added.uuid));
    }

    void aWorkingLayoutSharesThePortsThatDidNotChange()
    {
        CWorkingLayout working;
        working.take(m_wall, m_generation);
        const CabinetLayout before = working.layout();
        const quint64 edition = working.edition();
        working.take(withMovedCabinet(m_wall, 4), m_generation);
        for (int port = 0; port < before.ports.size(); ++port) {
            const bool shared = before.ports.at(port).groups.constData() ==
                                working.layout().ports.at(port).groups.constData();
            QCOMPARE(shared, port != 4);
        }
        QVERIFY(working.edition() != edition);
        QCOMPARE(working.chargedPixels(4), working.chargedPixels(3));
        QCOMPARE(working.chargedPixels(), qint64(m_wall.cabinetCount()) * 320 * 240);
    }

    void aLockCostsNoLookAtCabinets()
    {
        CWorkingLayout working;
        working.setSaved(CWorkingLayout::numbered(m_wall));
        CabinetLayout edited = withMovedCabinet(m_wall, 3); // without places, so that taking it makes a copy
        working.take(edited, m_generation);
        const auto *const cabinets = working.layout().ports.at(3).groups.constData();
        QVERIFY(cabinets != edited.ports.at(3).groups.constData());
        const quint64 edition = working.edition();
        working.changeLook(3, [](auto &port) { port.locked = true; });
        QCOMPARE(working.edition(), edition + 1);
        edited.ports[3].locked = true; // the module hands over what it shares with the layout before
        working.take(edited, m_generation);
        QVERIFY(working.layout().ports.at(3).locked && !working.layout().ports.at(2).locked);
        QCOMPARE(working.layout().ports.at(3).groups.constData(), cabinets);
        QCOMPARE(working.edition(), edition + 1);
    }

    void updatesComeInOrderOnOneOtherThread()
    {
        expectWarning(QRegularExpression(QStringLiteral("Notification 26: .*bad type cast!")));
        CUpdateThread updates;
        CNotingObserver observer;
        updates.subject().attach(observer);
        for (const int code : {28, 17, 2})
            updates.post(static_cast<LayoutNotification>(code), QUuid());
        updates.post(LayoutNotification::CurrentProcessorChanged, 1); // not what the observer asks for
        updates.post(LayoutNotification::PortCountChanged, QUuid());
        observer.letGo();
        updates.stop(CUpdateThread::Deliver);
        QCOMPARE(observer.codes, (std::vector<int>{28, 17, 2, 26, 25}));
        for (const std::thread::id &thread : observer.threads) {
            QVERIFY(thread == observer.threads.front());
            QVERIFY(thread != std::this_thread::get_id());
        }
    }

    void updatesThatWaitAreDroppedWhenToldSo()
    {
        CUpdateThread updates;
        CNotingObserver observer;
        updates.subject().attach(observer);
        updates.post(LayoutNotification::DetectFinished, QUuid());
        QTRY_VERIFY(observer.entered);
        auto argument = std::make_shared<int>();
        const std::weak_ptr<int> waiting = argument;
        updates.post(LayoutNotification::WorkModeChanged, std::move(argument));
        std::thread gate([&observer, &waiting] {
            while (!waiting.expired()) // until stop() has cleared the queue
                std::this_thread::yield();
            observer.letGo();
        });
        updates.stop(CUpdateThread::Drop);
        gate.join();
        updates.post(LayoutNotification::WorkModeChanged);
        updates.stop(CUpdateThread::Deliver);
        QCOMPARE(observer.codes, (std::vector<int>{2}));
    }

private:
    const CabinetLayout m_wall = CWallBuilder::build(CWallBuilder::plan(CWallBuilder::Small)).value();
    const SReceiverGeneration m_generation = CProcessorKinds::builtIn().all().first().generation;
};

ORVO_TEST_MAIN(QCoreApplication, CDeviceServicesTest)
#include "tst_device_services.moc"
