// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CCancelToken.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CStrictFile.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/CFaultyFileSystem.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QTemporaryDir>

#include <cerrno>

namespace {

constexpr int FactoryPorts = 8;
constexpr int KeptPorts = 6;

SProcessorState factory()
{
    SProcessorState state;
    state.settings.portCount = FactoryPorts;
    state.settings.canvas = {1920, 1080};
    state.mapping.revision = FactoryPorts;
    return state;
}

SProcessorState kept()
{
    SProcessorState state = factory();
    state.settings.portCount = KeptPorts;
    state.mapping.revision = KeptPorts;
    return state;
}

} // namespace

/// What a simulated processor remembers and, above all, never overwrites.
class CStateFilesTest final : public CTestBase
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    const QUuid m_uuid = QUuid::createUuid();
    CCancelToken m_token;

    CProcessorStateFiles files() const { return {m_folder->path(), m_uuid}; }
    QString fileOf(bool mapping) const { return mapping ? files().mappingFile() : files().settingsFile(); }
    std::unique_ptr<CSimulatedProcessor> processor() const
    {
        CSimulatedProcessor::SIdentity identity;
        identity.uuid = m_uuid;
        return std::make_unique<CSimulatedProcessor>(identity, factory, m_folder->path(), 0);
    }
    int portsOf(CSimulatedProcessor &device)
    {
        QByteArray bytes;
        const DeviceError error = device.identify(m_token, bytes);
        const auto settings = CProcessorCodec::settings(bytes, {});
        return error == DeviceError::None && settings ? settings.value().portCount : -1;
    }
    int revisionOf(CSimulatedProcessor &device)
    {
        quint64 revision = 0;
        return device.revision(m_token, revision) == DeviceError::None ? int(revision) : -1;
    }
    DeviceError saveMapping(CSimulatedProcessor &device)
    {
        quint64 revision = 0;
        return device.saveMapping(
            m_token, [](int) {}, CProcessorCodec::encode(SProcessorMapping()), revision);
    }

private Q_SLOTS:
    void init()
    {
        CTestBase::init();
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(files().save(kept().settings));
        QVERIFY(files().save(kept().mapping));
    }

    void neverOverwritesWhatItCouldNotRead_data()
    {
        QTest::addColumn<QByteArray>("call");
        QTest::addColumn<int>("reason");
        QTest::addColumn<int>("version");
        QTest::newRow("too many files are open") << QByteArray("open") << EMFILE << 2;
        QTest::newRow("the disk fails") << QByteArray("read") << EIO << 2;
        QTest::newRow("newer") << QByteArray() << 0 << 3;
    }
    void neverOverwritesWhatItCouldNotRead()
    {
        QFETCH(QByteArray, call);
        QFETCH(int, reason);
        QFETCH(int, version);
        QByteArray contents[2];
        for (const bool mapping : {false, true}) {
            contents[mapping] = ProjectSamples::contentOf(fileOf(mapping))
                                    .replace("\"version\":2", "\"version\":" + QByteArray::number(version));
            ProjectSamples::setContent(fileOf(mapping), contents[mapping]);
        }
        const auto device = processor();
        {
            expectWarning(QRegularExpression(QStringLiteral("stores nothing in the place of this file")));
            const CFaultyFileSystem faulty(CFaultyFileSystem::SFault{call, 1, reason, true});
            QCOMPARE(portsOf(*device), FactoryPorts);
        }
        expectWarning(QRegularExpression(QStringLiteral("what it holds could not be read")));
        QCOMPARE(device->apply(factory().settings), DeviceError::Unread);
        QCOMPARE(saveMapping(*device), DeviceError::Unread);
        QCOMPARE(revisionOf(*device), FactoryPorts);
        for (const bool mapping : {false, true})
            QCOMPARE(ProjectSamples::contentOf(fileOf(mapping)), contents[mapping]);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
        if (version == 2) { // all is well again at the next start
            const auto next = processor();
            QCOMPARE(portsOf(*next), KeptPorts);
            QCOMPARE(revisionOf(*next), KeptPorts);
        }
    }

    void aCommandBeforeTheFirstLookOverwritesNothing()
    {
        const QByteArray content = ProjectSamples::contentOf(fileOf(false)).replace("ion\":2", "ion\":3");
        ProjectSamples::setContent(fileOf(false), content);
        expectWarning(QRegularExpression(QStringLiteral("newer version|what it holds")));
        QCOMPARE(processor()->apply(factory().settings), DeviceError::Unread);
        QCOMPARE(ProjectSamples::contentOf(fileOf(false)), content);
    }

    void keepsEveryDamagedFile_data()
    {
        QTest::addColumn<bool>("mapping");
        QTest::newRow("settings") << false;
        QTest::newRow("mapping") << true;
    }
    void keepsEveryDamagedFile()
    {
        QFETCH(bool, mapping);
        const QByteArray whole = ProjectSamples::contentOf(fileOf(mapping));
        const QByteArray damages[] = {whole.chopped(7), "second", ""};
        const char *const endings[] = {".damaged", ".damaged2", ".damaged3"};
        expectWarning(QRegularExpression(QStringLiteral("the file is kept as \".*damaged[23]?\"")));
        for (const QByteArray &damage : damages) {
            ProjectSamples::setContent(fileOf(mapping), damage);
            const auto device = processor();
            QCOMPARE(portsOf(*device), mapping ? KeptPorts : FactoryPorts);
            QCOMPARE(revisionOf(*device), mapping ? FactoryPorts : KeptPorts);
            QCOMPARE(mapping ? saveMapping(*device) : device->apply(kept().settings), DeviceError::None);
        }
        for (int i = 0; i < 3; ++i)
            QCOMPARE(ProjectSamples::contentOf(fileOf(mapping) + QLatin1String(endings[i])), damages[i]);
        QCOMPARE(portsOf(*processor()), KeptPorts);
    }

    void aDamagedFileThatCannotBePutAsideStays()
    {
        ProjectSamples::setContent(fileOf(false), "damaged");
        const auto device = processor();
        expectWarning(QRegularExpression(QStringLiteral("cannot be renamed|what it holds")));
        {
            const CFaultyFileSystem faulty(CFaultyFileSystem::SFault{"rename", 1, EACCES, true});
            QCOMPARE(portsOf(*device), FactoryPorts);
        }
        QCOMPARE(device->apply(kept().settings), DeviceError::Unread);
        QCOMPARE(ProjectSamples::contentOf(fileOf(false)), QByteArray("damaged"));
    }

    void neverStoresWhatItCouldNotReadAgain()
    {
        SProcessorSettings settings = kept().settings;
        settings.background.file = QStringLiteral("/pictures/a\nb\tc\x7f.png"); // what a file may be called
        const auto device = processor();
        QCOMPARE(device->apply(settings), DeviceError::None);
        QVERIFY(files().load(factory).settings == settings);
        SProcessorSettings wrong = settings;
        wrong.background.file = QStringLiteral("/pictures/") + QChar(0);
        expectWarning(QRegularExpression(QStringLiteral("background.file")));
        QCOMPARE(device->apply(wrong), DeviceError::NotStored);
        QVERIFY(files().load(factory).settings == settings);
    }

    void makesItsFolder()
    {
        CProcessorStateFiles files(m_folder->filePath(QStringLiteral("a/b")), m_uuid);
        {
            const CFaultyFileSystem faulty(CFaultyFileSystem::SFault{"sync", 1, EIO, false});
            QVERIFY(!files.save(kept().settings));
        }
        QVERIFY(files.save(kept().settings));
        QVERIFY(files.load(factory).settings == kept().settings);
    }
};

ORVO_TEST_MAIN(QCoreApplication, CStateFilesTest)
#include "tst_state_files.moc"
