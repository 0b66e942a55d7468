// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CSimulatedPark.h"
#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/simulated/CCancelToken.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "host/projects/CWallBuilder.h"
#include "tests/harness/CTestBase.h"

#include <QTemporaryDir>

#include <thread>

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
        const SProcessorSettings settings = unusualSettings();
        {
            const auto first = processor();
            QCOMPARE(save(*first, layout), DeviceError::None);
            QCOMPARE(first->apply(settings), DeviceError::None);
        }
        const auto second = processor();
        const SProcessorMapping mapping = mappingOf(*second);
        QVERIFY(mapping.layout == layout);
        QCOMPARE(mapping.revision, quint64(2));
        QByteArray bytes;
        QCOMPARE(second->identify(*m_token, bytes), DeviceError::None);
        SProcessorSettings kept = settings;
        kept.frozen = false; // which power alone keeps
        QVERIFY(CProcessorCodec::settings(bytes, {}).value() == kept);
    }

    void everyFaultLeavesTheWholeNewOrTheWholeOldMapping()
    {
        using E = DeviceError;
        using Fault = SimulationFault;
        const struct
        {
            Fault fault;
            E reading, saving, command;
        } rows[] = {{Fault::Offline, E::Offline, E::Offline, E::Offline},
                    {Fault::Slow, E::None, E::None, E::None},
                    {Fault::Silent, E::NoAnswer, E::NoAnswer, E::NoAnswer},
                    {Fault::Refuse, E::Refused, E::Refused, E::Refused},
                    {Fault::Drop, E::ConnectionLost, E::ConnectionLost, E::None},
                    {Fault::Damaged, E::None, E::Damaged, E::Damaged}}; // a reader finds the damage
        CabinetLayout other = factory().mapping.layout;
        for (const auto &row : rows) {
            const auto device = processor();
            const SProcessorMapping before = mappingOf(*device);
            other.ports[0].locked = !before.layout.ports.at(0).locked;
            device->setFault(row.fault, true);
            QByteArray bytes;
            QCOMPARE(device->readMapping(
                         *m_token, [](int) {}, bytes),
                     row.reading);
            QCOMPARE(!CProcessorCodec::mapping(bytes, {}), row.fault != Fault::Slow);
            QCOMPARE(device->apply(unusualSettings()), row.command);
            QCOMPARE(save(*device, other), row.saving);
            device->setFault(row.fault, false);
            const bool saved = row.saving == E::None;
            for (const auto &again : {mappingOf(*device), mappingOf(*processor())}) {
                QCOMPARE(again.layout.ports.at(0).locked, (saved ? other : before.layout).ports.at(0).locked);
                QCOMPARE(again.revision, before.revision + saved);
                QCOMPARE(again.layout.cabinetCount(), other.cabinetCount());
            }
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
        auto &groups = layout.ports[0].groups;
        groups[0].cabinets[0].rank = -1;
        CabinetLayout::CabinetPort::CabinetGroup group;
        group.uuid = groups[0].cabinets.last().group = QUuid::createUuid();
        group.cabinets << groups[0].cabinets.takeLast();
        groups << group;
        QCOMPARE(save(*device, layout), DeviceError::None);
        QByteArray bytes;
        QCOMPARE(device->readCabinets(
                     *m_token, [](int) {}, bytes),
                 DeviceError::None);
        const CabinetLayout read = CProcessorCodec::mapping(bytes, {}).value().layout;
        QCOMPARE(read.cabinetCount(), layout.cabinetCount() - 1);
        for (const auto &port : read.ports) {
            QCOMPARE(port.cabinetCount(), port.looseCabinets().size());
            for (const auto &cabinet : port.getAllCabinets())
                QCOMPARE(cabinet.receivers, QVector<int>{0});
        }
    }

    void endsSoonWhenItIsCancelled()
    {
        const auto device = processor(100); // the transfer would take a minute
        std::thread canceller([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            m_token->cancel();
        });
        QByteArray bytes;
        QCOMPARE(device->readMapping(
                     *m_token, [](int) {}, bytes),
                 DeviceError::Cancelled);
        canceller.join();
    }

private:
    const QUuid m_uuid = QUuid::createUuid();
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CCancelToken> m_token;
};

ORVO_TEST_MAIN(QCoreApplication, CSimulatedProcessorTest)
#include "tst_simulated_processor.moc"
