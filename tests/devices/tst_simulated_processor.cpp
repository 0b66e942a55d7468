// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CSimulatedPark.h"
#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/simulated/CCancelToken.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "host/projects/CWallBuilder.h"
#include "tests/harness/CTestBase.h"

#include <QSet>
#include <QTemporaryDir>

#include <thread>

Q_DECLARE_METATYPE(DeviceError)

namespace {

SProcessorState factory()
{
    SProcessorState state;
    state.settings.portCount = 8;
    const auto wall = CWallBuilder::build(CWallBuilder::plan(CWallBuilder::Small));
    state.mapping = {CWorkingLayout::numbered(wall.value()), 1};
    return state;
}

SProcessorSettings unusualSettings()
{
    SProcessorSettings settings;
    settings.portCount = 6;
    settings.canvas = {3840, 2160};
    settings.offset = {-100, 200};
    settings.background.file = QStringLiteral("/pictures/a \"b\".png");
    settings.background.enabled = true;
    settings.frameRate = 50;
    settings.colorDepth = 12;
    settings.threeD = settings.lowLatency = settings.polling = settings.hdmiOutput = true;
    settings.statusLed = settings.frozen = true;
    settings.workMode = ProcessorWorkMode::Bypass;
    settings.primary = QUuid::createUuid();
    settings.portAreas = {{0, 1, 2, 3, 4}, {5, 65535, 0, 1, 1}};
    settings.gainRows = {{1, 2, {10, 20, 255}}};
    settings.gains = {{1, 2, true, true}};
    settings.gammas.insert(SMD5::ofContent("type"), 2.2);
    return settings;
}

} // namespace

class CSimulatedProcessorTest final : public CTestBase
{
    Q_OBJECT

private:
    std::unique_ptr<CSimulatedProcessor> processor(double delayScale = 0) const
    {
        CSimulatedProcessor::SIdentity identity;
        identity.uuid = m_uuid;
        identity.name = QStringLiteral("Test");
        return std::make_unique<CSimulatedProcessor>(identity, factory, m_folder->path(), delayScale);
    }
    SProcessorMapping mappingOf(CSimulatedProcessor &device)
    {
        QByteArray bytes;
        if (device.readMapping(
                *m_token, [](int) {}, bytes) != DeviceError::None)
            return {};
        const auto mapping = CProcessorCodec::mapping(bytes, QStringLiteral("answer"));
        return mapping ? mapping.value() : SProcessorMapping();
    }
    DeviceError save(CSimulatedProcessor &device, const CabinetLayout &layout)
    {
        quint64 revision = 0;
        return device.saveMapping(
            *m_token, [](int) {}, CProcessorCodec::encode(SProcessorMapping{layout, 0}), revision);
    }

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_folder = std::make_unique<QTemporaryDir>();
        m_token = std::make_unique<CCancelToken>();
    }

    void settingsAndMappingSurviveTheBytes()
    {
        const SProcessorSettings settings = unusualSettings();
        const auto read = CProcessorCodec::settings(CProcessorCodec::encode(settings), QStringLiteral("s"));
        QVERIFY2(bool(read), qPrintable(read.error()));
        QVERIFY(read.value() == settings);
        const SProcessorMapping mapping = factory().mapping;
        const auto mapped = CProcessorCodec::mapping(CProcessorCodec::encode(mapping), QStringLiteral("m"));
        QVERIFY2(bool(mapped), qPrintable(mapped.error()));
        QVERIFY(mapped.value().layout == mapping.layout);
        QCOMPARE(mapped.value().revision, quint64(1));
    }

    void refusesBytesThatWereCutOrAltered()
    {
        const QByteArray bytes = CProcessorCodec::encode(unusualSettings());
        for (int i = 0; i < bytes.size(); ++i) {
            QVERIFY(!CProcessorCodec::settings(bytes.left(i), QStringLiteral("s")));
            QByteArray altered = bytes;
            altered[i] = static_cast<char>(altered.at(i) ^ 0x10);
            QVERIFY2(!CProcessorCodec::settings(altered, QStringLiteral("s")), altered.constData());
        }
    }

    void keepsItsStateBetweenStarts()
    {
        CabinetLayout layout = factory().mapping.layout;
        layout.ports[2].locked = true;
        {
            const auto first = processor();
            QCOMPARE(save(*first, layout), DeviceError::None);
            QCOMPARE(first->apply(unusualSettings()), DeviceError::None);
        }
        const auto second = processor();
        const SProcessorMapping mapping = mappingOf(*second);
        QVERIFY(mapping.layout == layout);
        QCOMPARE(mapping.revision, quint64(2));
        QByteArray bytes;
        QCOMPARE(second->identify(*m_token, bytes), DeviceError::None);
        QVERIFY(CProcessorCodec::settings(bytes, {}).value().canvas == QSize(3840, 2160));
    }

    void everyFaultGivesItsError_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<DeviceError>("reading");
        QTest::addColumn<DeviceError>("saving");
        QTest::addColumn<DeviceError>("command");
        const auto row = [](SimulationFault fault, DeviceError reading, DeviceError saving,
                            DeviceError command) {
            QTest::newRow(SSimulationFault::all().at(static_cast<int>(fault)).name)
                << static_cast<int>(fault) << reading << saving << command;
        };
        using E = DeviceError;
        row(SimulationFault::Offline, E::Offline, E::Offline, E::Offline);
        row(SimulationFault::Slow, E::None, E::None, E::None);
        row(SimulationFault::Silent, E::NoAnswer, E::NoAnswer, E::NoAnswer);
        row(SimulationFault::Refuse, E::Refused, E::Refused, E::Refused);
        row(SimulationFault::Drop, E::ConnectionLost, E::ConnectionLost, E::None);
        row(SimulationFault::Damaged, E::None, E::Damaged, E::Damaged); // a reader finds the damage
    }
    void everyFaultGivesItsError()
    {
        QFETCH(int, fault);
        QFETCH(DeviceError, saving);
        const auto device = processor();
        CabinetLayout other = factory().mapping.layout;
        other.ports[0].locked = true;
        device->setFault(static_cast<SimulationFault>(fault), true);
        QByteArray bytes;
        QTEST(device->readMapping(
                  *m_token, [](int) {}, bytes),
              "reading");
        QTEST(device->apply(unusualSettings()), "command");
        QCOMPARE(save(*device, other), saving);
        if (static_cast<SimulationFault>(fault) == SimulationFault::Damaged)
            QVERIFY(!CProcessorCodec::mapping(bytes, QStringLiteral("answer")));

        device->setFault(static_cast<SimulationFault>(fault), false);
        const bool saved = saving == DeviceError::None;
        for (const auto &again : {mappingOf(*device), mappingOf(*processor())}) {
            QCOMPARE(again.layout.ports.at(0).locked, saved); // the whole new or the whole old mapping
            QCOMPARE(again.revision, quint64(saved ? 2 : 1));
            QCOMPARE(again.layout.cabinetCount(), other.cabinetCount());
        }
    }

    void aChangeFromElsewhereRaisesTheRevision()
    {
        const auto device = processor();
        const SProcessorMapping before = mappingOf(*device);
        device->setFault(SimulationFault::Changed, true);
        QVERIFY(!device->hasFault(SimulationFault::Changed));
        const SProcessorMapping after = mappingOf(*device);
        QCOMPARE(after.revision, before.revision + 1);
        QVERIFY(before.layout != after.layout);
        QVERIFY(mappingOf(*processor()).layout == after.layout);
    }

    void cabinetsReportTheirChainsWithoutGroups()
    {
        const auto device = processor();
        CabinetLayout layout = factory().mapping.layout;
        layout.ports[0].groups[0].cabinets[0].rank = -1;
        CabinetLayout::CabinetPort::CabinetGroup group;
        group.uuid = QUuid::createUuid();
        group.name = QStringLiteral("Row");
        group.cabinets << layout.ports[0].groups[0].cabinets.takeLast();
        group.cabinets[0].group = group.uuid;
        layout.ports[0].groups << group;
        QCOMPARE(save(*device, layout), DeviceError::None);
        QByteArray bytes;
        QCOMPARE(device->readCabinets(
                     *m_token, [](int) {}, bytes),
                 DeviceError::None);
        const auto read = CProcessorCodec::mapping(bytes, QStringLiteral("answer"));
        QVERIFY2(bool(read), qPrintable(read.error()));
        QCOMPARE(read.value().layout.cabinetCount(), layout.cabinetCount() - 1);
        for (const auto &port : read.value().layout.ports) {
            QCOMPARE(port.cabinetCount(), port.looseCabinets().size());
            for (const auto &cabinet : port.getAllCabinets())
                QCOMPARE(cabinet.receivers, QVector<int>{0});
        }
    }

    void endsSoonWhenItIsCancelled()
    {
        const auto device = processor(100); // the transfer would take a minute
        QElapsedTimer timer;
        timer.start();
        std::thread canceller([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            m_token->cancel();
        });
        QByteArray bytes;
        QCOMPARE(device->readMapping(
                     *m_token, [](int) {}, bytes),
                 DeviceError::Cancelled);
        canceller.join();
        QVERIFY(timer.elapsed() < 5000);
    }

    void commandsOfASilentProcessorEndInTime()
    {
        const auto device = processor(1);
        device->setFault(SimulationFault::Silent, true);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(device->probe(), DeviceError::NoAnswer);
        QVERIFY(timer.elapsed() >= 80);
    }

    void theParkHoldsWhatAnInstallationHas()
    {
        const CSimulatedPark park(m_folder->path(), 0);
        QSet<int> ports;
        int grouped = 0;
        int fiber = 0;
        int offline = 0;
        for (const auto &device : park.processors()) {
            offline += device->hasFault(SimulationFault::Offline);
            grouped += device->identity().group == park.groups().first().uuid;
            device->setFault(SimulationFault::Offline, false);
            QByteArray bytes;
            QCOMPARE(device->identify(*m_token, bytes), DeviceError::None);
            const SProcessorSettings settings = CProcessorCodec::settings(bytes, {}).value();
            fiber += settings.workMode == ProcessorWorkMode::FiberTransceiver;
            ports.insert(settings.portCount);
            const QRect canvas(QPoint(0, 0), settings.canvas);
            const QRect bounds = mappingOf(*device).layout.boundingRect();
            QVERIFY2(bounds.isEmpty() || canvas.contains(bounds), qPrintable(device->identity().name));
        }
        QVERIFY((ports & QSet<int>{4, 16, 20, 80}).size() == 4);
        QCOMPARE(grouped, 2);
        QCOMPARE(fiber, 1);
        QCOMPARE(offline, 1);
    }

    void cleanup()
    {
        CTestBase::cleanup();
        m_folder.reset();
    }

private:
    const QUuid m_uuid = QUuid::createUuid();
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CCancelToken> m_token;
};

ORVO_TEST_MAIN(QCoreApplication, CSimulatedProcessorTest)
#include "tst_simulated_processor.moc"
