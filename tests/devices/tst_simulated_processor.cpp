// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CSimulatedPark.h"
#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/simulated/CCancelToken.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "host/projects/CWallBuilder.h"
#include "tests/harness/CWorldTest.h"
#include "tests/projects/CChildProcess.h"
#include "tests/projects/CFaultyFileSystem.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QTemporaryDir>

#include <cerrno>

namespace {

constexpr int FactoryPorts = 8; // and revision
constexpr int KeptPorts = 6;

SProcessorState factory()
{
    SProcessorState state;
    state.settings.portCount = FactoryPorts;
    const auto wall = CWallBuilder::build(CWallBuilder::plan(CWallBuilder::Small));
    state.mapping = {CWorkingLayout::numbered(wall.value()), FactoryPorts};
    return state;
}

SProcessorSettings unusualSettings()
{
    SProcessorSettings settings;
    settings.portCount = KeptPorts;
    settings.canvas = {3840, 2160};
    settings.offset = {-100, 200};
    settings.background.file = QStringLiteral("/pictures/a \"b\"\n\t\x7f.png"); // what a file may be called
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

/// The folder of one processor, which is switched on as often as a test likes.
struct SFolder
{
    using Processor = std::unique_ptr<CSimulatedProcessor>;

    Processor start() const
    {
        CSimulatedProcessor::SIdentity identity;
        identity.uuid = uuid;
        return std::make_unique<CSimulatedProcessor>(identity, factory, place, 0);
    }
    CProcessorStateFiles files() const { return {place, uuid}; }
    QString fileOf(bool mapping) const { return mapping ? files().mappingFile() : files().settingsFile(); }
    QByteArray contentOf(bool mapping) const { return ProjectSamples::contentOf(fileOf(mapping)); }
    /// Leaves files behind that differ from the factory's state.
    bool fill() const
    {
        SProcessorState state = factory();
        state.settings.portCount = KeptPorts;
        return files().save(state.settings) &&
               files().save(SProcessorMapping{state.mapping.layout, KeptPorts});
    }

    SProcessorSettings settingsOf(const Processor &device) const
    {
        QByteArray bytes;
        const DeviceError error = device->identify(token, bytes);
        const auto settings = CProcessorCodec::settings(bytes, {});
        return error == DeviceError::None && settings ? settings.value() : SProcessorSettings();
    }
    SProcessorMapping mappingOf(const Processor &device) const
    {
        QByteArray bytes;
        if (device->readMapping(
                token, [](int) {}, bytes) != DeviceError::None)
            return {};
        const auto mapping = CProcessorCodec::mapping(bytes, QStringLiteral("answer"));
        return mapping ? mapping.value() : SProcessorMapping();
    }
    DeviceError save(const Processor &device, const CabinetLayout &layout = {}) const
    {
        quint64 revision = 0;
        return device->saveMapping(
            token, [](int) {}, CProcessorCodec::encode(SProcessorMapping{layout, 0}), revision);
    }
    /// Whether the processor has these many ports, and this revision of its mapping.
    bool holds(const Processor &device, int ports, int revision) const
    {
        quint64 found = 0;
        return settingsOf(device).portCount == ports && device->revision(token, found) == DeviceError::None &&
               int(found) == revision;
    }

    QTemporaryDir folder;
    const QString place = folder.filePath(QStringLiteral("made/when/needed"));
    const QUuid uuid = QUuid::createUuid();
    mutable CCancelToken token;
};

} // namespace

/// What a simulated processor answers, remembers and, above all, never overwrites.
class CSimulatedProcessorTest final : public CWorldTest<SFolder>
{
    Q_OBJECT

private Q_SLOTS:
    void keepsItsStateBetweenStarts()
    {
        CabinetLayout layout = factory().mapping.layout;
        layout.ports[2].locked = true;
        SProcessorSettings settings = unusualSettings();
        {
            const auto first = m_world->start();
            QCOMPARE(m_world->save(first, layout), DeviceError::None);
            QCOMPARE(first->apply(settings), DeviceError::None);
            SProcessorSettings wrong = settings;
            wrong.background.file = QStringLiteral("/pictures/") + QChar(0);
            expectWarning(QRegularExpression(QStringLiteral("background.file")));
            QCOMPARE(first->apply(wrong), DeviceError::NotStored); // what could not be read again
        }
        const auto second = m_world->start();
        const SProcessorMapping mapping = m_world->mappingOf(second);
        QVERIFY(mapping.layout == layout);
        QCOMPARE(mapping.revision, quint64(FactoryPorts + 1));
        settings.frozen = false; // which power alone keeps
        QVERIFY(m_world->settingsOf(second) == settings);
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
            const auto device = m_world->start();
            const SProcessorMapping before = m_world->mappingOf(device);
            other.ports[0].locked = !before.layout.ports.at(0).locked;
            device->setFault(row.fault, true);
            QByteArray bytes;
            QCOMPARE(device->readMapping(
                         m_world->token, [](int) {}, bytes),
                     row.reading);
            QCOMPARE(!CProcessorCodec::mapping(bytes, {}), row.fault != Fault::Slow);
            SProcessorSettings asked = unusualSettings();
            asked.offset = {int(row.fault), 100};
            QCOMPARE(device->apply(asked), row.command);
            QCOMPARE(m_world->save(device, other), row.saving);
            device->setFault(row.fault, false);
            const bool refused = row.command == E::Offline || row.command == E::Refused;
            QCOMPARE(device->settings().offset == asked.offset, !refused);
            const bool saved = row.saving == E::None;
            for (const auto &again : {m_world->mappingOf(device), m_world->mappingOf(m_world->start())}) {
                QCOMPARE(again.layout.ports.at(0).locked, (saved ? other : before.layout).ports.at(0).locked);
                QCOMPARE(again.revision, before.revision + saved);
                QCOMPARE(again.layout.cabinetCount(), other.cabinetCount());
            }
        }
    }

    void cabinetsReportTheirChainsWithoutGroups()
    {
        const auto device = m_world->start();
        CabinetLayout layout = factory().mapping.layout;
        auto &groups = layout.ports[0].groups;
        groups[0].cabinets[0].rank = -1;
        CabinetLayout::CabinetPort::CabinetGroup group;
        group.uuid = groups[0].cabinets.last().group = QUuid::createUuid();
        group.cabinets << groups[0].cabinets.takeLast();
        groups << group;
        QCOMPARE(m_world->save(device, layout), DeviceError::None);
        QByteArray bytes;
        QCOMPARE(device->readCabinets(
                     m_world->token, [](int) {}, bytes),
                 DeviceError::None);
        const CabinetLayout read = CProcessorCodec::mapping(bytes, {}).value().layout;
        QCOMPARE(read.cabinetCount(), layout.cabinetCount() - 1);
        for (const auto &port : read.ports) {
            QCOMPARE(port.cabinetCount(), port.looseCabinets().size());
            for (const auto &cabinet : port.getAllCabinets())
                QCOMPARE(cabinet.receivers, QVector<int>{0});
        }
    }

    void storesForOneProgramAtATime()
    {
        for (const bool there : {true, false}) { // without a folder nobody can have it yet
            const SFolder place;
            QVERIFY(!there || place.fill());
            const CabinetLayout none;
            SFolder::Processor theirs; // in the child
            CChildProcess other({[&] {
                                     theirs = place.start();
                                     return place.save(theirs) == DeviceError::None;
                                 },
                                 [&] { return place.save(theirs) == DeviceError::None; }});
            SFolder::Processor ours = place.start();
            const int first = (there ? KeptPorts : FactoryPorts) + 1; // revision
            const int ports = there ? KeptPorts : FactoryPorts;
            QVERIFY(there || place.holds(ours, ports, FactoryPorts)); // begins as from the factory
            QVERIFY(other.next());
            if (there)
                QVERIFY(place.holds(ours, ports, first));
            QCOMPARE(place.save(ours), DeviceError::InUse);
            QCOMPARE(ours->apply(unusualSettings()), DeviceError::InUse);
            QCOMPARE(ours->setState(SimulationFault::Polling, true), DeviceError::InUse);
            QVERIFY(other.next());
            QVERIFY(!there || place.holds(ours, ports, first + 1)); // sees what they store
            other.kill();
            QCOMPARE(place.save(ours), DeviceError::None); // on top of it
            QCOMPARE(ours->apply(unusualSettings()), DeviceError::None);
            QVERIFY(place.holds(ours, KeptPorts, first + 2));
            QVERIFY(place.holds(place.start(), KeptPorts, first + 2));
        }
    }

    void neverOverwritesWhatItCouldNotRead()
    {
        struct SCase
        {
            QByteArray call;
            int reason;
            int version;
        };
        for (const auto &[call, reason, version] : {SCase{"open", EMFILE, 2}, {"read", EIO, 2}, {"", 0, 3}}) {
            const SFolder place;
            QVERIFY(place.fill());
            QByteArray contents[2];
            for (const bool mapping : {false, true}) {
                contents[mapping] = place.contentOf(mapping).replace(
                    "\"version\":2", "\"version\":" + QByteArray::number(version));
                ProjectSamples::setContent(place.fileOf(mapping), contents[mapping]);
            }
            const auto device = place.start();
            expectWarning(
                QRegularExpression(QStringLiteral("nothing in the place of this file|newer version")));
            expectWarning(QRegularExpression(QStringLiteral("what it holds could not be read")));
            {
                const CFaultyFileSystem faulty(CFaultyFileSystem::SFault{call, 1, reason, true});
                QVERIFY(place.holds(device, FactoryPorts, FactoryPorts));
            }
            QCOMPARE(device->apply(factory().settings), DeviceError::Unread);
            QCOMPARE(place.save(device), DeviceError::Unread);
            QCOMPARE(device->setState(SimulationFault::Polling, true), DeviceError::Unread);
            QCOMPARE(device->setFault(SimulationFault::Changed, true), DeviceError::Unread);
            QVERIFY(!device->settings().polling);
            for (const bool mapping : {false, true})
                QCOMPARE(place.contentOf(mapping), contents[mapping]);
            QCOMPARE(QDir(place.place).entryList(QDir::Files | QDir::Hidden).size(), 3); // and the lock
            const bool readable = version == 2; // at the next start all is well again
            QCOMPARE(place.holds(place.start(), KeptPorts, KeptPorts), readable);
            const DeviceError error = place.start()->apply(factory().settings); // before the first look
            QCOMPARE(error, readable ? DeviceError::None : DeviceError::Unread);
        }
    }

    void keepsEveryDamagedFile()
    {
        expectWarning(QRegularExpression(QStringLiteral("the file is kept as \".*damaged[23]?\"")));
        for (const bool mapping : {false, true}) {
            const SFolder place;
            QVERIFY(place.fill());
            const QString file = place.fileOf(mapping);
            const QByteArray damages[] = {ProjectSamples::contentOf(file).chopped(7), "second", ""};
            const char *const endings[] = {".damaged", ".damaged2", ".damaged3"};
            for (const QByteArray &damage : damages) {
                ProjectSamples::setContent(file, damage);
                const auto device = place.start();
                QVERIFY(place.holds(device, mapping ? KeptPorts : FactoryPorts,
                                    mapping ? FactoryPorts : KeptPorts));
                QCOMPARE(mapping ? place.save(device) : device->apply(unusualSettings()), DeviceError::None);
            }
            for (int i = 0; i < 3; ++i)
                QCOMPARE(ProjectSamples::contentOf(file + QLatin1String(endings[i])), damages[i]);
            QCOMPARE(place.settingsOf(place.start()).portCount, KeptPorts);
        }
    }

    void aDamagedFileThatCannotBePutAsideStays()
    {
        QVERIFY(m_world->fill());
        ProjectSamples::setContent(m_world->fileOf(false), "damaged");
        const auto device = m_world->start();
        expectWarning(QRegularExpression(QStringLiteral("cannot be renamed|what it holds")));
        {
            const CFaultyFileSystem faulty(CFaultyFileSystem::SFault{"rename", 1, EACCES, true});
            QCOMPARE(m_world->settingsOf(device).portCount, FactoryPorts);
        }
        QCOMPARE(device->apply(unusualSettings()), DeviceError::Unread);
        QCOMPARE(m_world->contentOf(false), QByteArray("damaged"));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CSimulatedProcessorTest)
#include "tst_simulated_processor.moc"
