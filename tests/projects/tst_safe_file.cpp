// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CCommandLine.h"
#include "host/app/commands/CLayoutExport.h"
#include "host/devices/simulated/CProcessorStateFiles.h"
#include "host/projects/CFileHandle.h"
#include "host/projects/CProjectVersions.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CStrayFiles.h"
#include "layout/api/records/LayoutData.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/CFaultyFileSystem.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QTemporaryDir>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace {

SProcessorProject project(int generation)
{
    SProcessorProject project = ProjectSamples::withEverything();
    project.name = QString::number(generation);
    return project;
}

SProcessorSettings settings(int generation)
{
    SProcessorSettings settings;
    settings.portCount = generation + 1;
    settings.canvas = {1920, 1080};
    return settings;
}

constexpr int ManyBytes = 1 << 20;

bool refusesToWrite(const QString &file, const QByteArray &content)
{
    const CStatus written = CSafeFile::write(file, content, CSafeFile::KeepPrevious);
    return !written && written.error().contains(file) && written.error().endsWith(QLatin1Char('.'));
}

/// Changes or removes a file when the disk is asked to confirm what is to replace it.
class CChangeWhileWriting final : public CFileSystem
{
public:
    CChangeWhileWriting(QString file, bool gone)
        : m_file(std::move(file))
        , m_gone(gone)
    {
        setCurrent(this);
    }
    ~CChangeWhileWriting() override { setCurrent(nullptr); }

    int sync(int file) override
    {
        if (std::exchange(m_done, true))
            return CFileSystem::sync(file);
        if (m_gone)
            QFile::remove(m_file);
        else
            ProjectSamples::setContent(m_file, "theirs");
        return CFileSystem::sync(file);
    }

private:
    const QString m_file;
    const bool m_gone;
    bool m_done = false; // the folder is confirmed, too
};

bool refusesToRead(const QString &file)
{
    const auto read = CSafeFile::read(file, ManyBytes);
    return !read && read.error().contains(file) && read.error().endsWith(QLatin1Char('.'));
}

} // namespace

/// What becomes of files: in order, after a crash, and while every single call to the disk fails, once or
/// from then on.
class CSafeFileTest final : public CTestBase
{
    Q_OBJECT

private:
    enum Subject { Project, Export, State };

    QTemporaryDir m_folder;
    QTemporaryDir m_source;
    const CProcessorStateFiles m_state{m_folder.path(), QUuid::createUuid()};

    QString fileOf(int subject) const
    {
        return subject == State ? m_state.settingsFile()
                                : m_folder.filePath(subject == Project ? QStringLiteral("wall.sprj")
                                                                       : QStringLiteral("wall.csv"));
    }

    QString sourceOf(int generation) const
    {
        return m_source.filePath(QStringLiteral("%1.sprj").arg(generation));
    }

    bool save(int subject, int generation) const
    {
        if (subject == Project)
            return bool(CProcessorProject::write(fileOf(subject), project(generation)));
        if (subject == State)
            return bool(m_state.save(settings(generation)));
        QString out;
        QString errors;
        QTextStream outStream(&out);
        QTextStream errorStream(&errors);
        return CCommandLine::run({QStringLiteral("export"), sourceOf(generation), fileOf(subject)}, outStream,
                                 errorStream) == CCommandLine::Success;
    }

    QString path(const char *name) const { return m_source.filePath(QLatin1String(name)); }

    QByteArray m_contents[3][3]; ///< by subject and generation

private Q_SLOTS:
    void initTestCase()
    {
        initLayoutResources();
        for (int generation = 0; generation < 3; ++generation) {
            SProcessorProject source = project(generation);
            source.layout.ports[0].index = generation;
            QVERIFY(CProcessorProject::write(sourceOf(generation), source));
            for (int subject = Project; subject <= State; ++subject) {
                QVERIFY(save(subject, generation));
                m_contents[subject][generation] = ProjectSamples::contentOf(fileOf(subject));
            }
        }
        for (const auto &contents : m_contents)
            QVERIFY(contents[0] != contents[1] && contents[1] != contents[2] && contents[2] != contents[0]);
    }

    void losesNothingAndNeverSaysSavedWhenItIsNot_data()
    {
        QTest::addColumn<int>("subject");
        QTest::addColumn<QByteArray>("call");
        QTest::addColumn<int>("reason");
        QTest::addColumn<bool>("onward");
        const char *const subjects[] = {"project", "export", "state"};
        for (int subject = Project; subject <= State; ++subject) {
            for (const char *call :
                 {"open", "read", "write", "sync", "lock", "rename", "link", "unlink", "close"}) {
                for (const int reason : {ENOSPC, EIO, EACCES}) {
                    for (const bool onward : {false, true})
                        QTest::addRow("%s, %s, %s, %s", subjects[subject], call,
                                      qPrintable(qt_error_string(reason)), onward ? "from then on" : "once")
                            << subject << QByteArray(call) << reason << onward;
                }
            }
        }
    }
    void losesNothingAndNeverSaysSavedWhenItIsNot()
    {
        QFETCH(int, subject);
        QFETCH(QByteArray, call);
        QFETCH(int, reason);
        QFETCH(bool, onward);
        const QString file = fileOf(subject);
        const QString previous = file + QLatin1Char('~');
        const QByteArray *contents = m_contents[subject];
        for (int number = 1;; ++number) {
            for (const QString &name : QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden))
                QFile::remove(m_folder.filePath(name));
            ProjectSamples::setContent(file, contents[1]);
            ProjectSamples::setContent(previous, contents[0]);
            bool saved = false;
            {
                const CFaultyFileSystem faulty(CFaultyFileSystem::SFault{call, number, reason, onward});
                saved = save(subject, 2);
                if (!faulty.hasFailed()) {
                    QVERIFY(saved);
                    break;
                }
            }
            const bool unconfirmed = call == "sync" || (call == "close" && number == 1 && subject != Export);
            QVERIFY2(!saved || !unconfirmed, QByteArray::number(number));
            const QByteArray found = ProjectSamples::contentOf(file);
            QVERIFY2(found == contents[2] || (found == contents[1] && !saved), QByteArray::number(number));
            CSafeFile::cleanAround(file); // as the next start does
            const bool replaced = found == contents[2] && subject == Project;
            QCOMPARE(ProjectSamples::contentOf(previous), contents[replaced ? 1 : 0]);
            QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden),
                     QStringList({QFileInfo(file).fileName(), QFileInfo(previous).fileName()}));
        }
    }

    void anExportWithoutMemoryIsAMessage()
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        return; // sanitizers end a program that gets no memory; the other presets try it
#endif
        LayoutData data;
        data.layout = project(0).layout;
        data.canvas = project(0).canvas;
        QVERIFY(CLayoutExport::write(data, path("wall.png"))); // loads what systems do without only badly
        for (const int megabytes : {0, 6, 8, 10}) { // it runs out for the picture or while it is made
            QVERIFY(ProjectSamples::trueInChild([&] {
                const QString file = path("out.png");
                ProjectSamples::leaveMemory(megabytes);
                const CStatus status = CLayoutExport::write(data, file);
                return status ? megabytes > 0 : status.error().contains(QLatin1String("memory"));
            }));
        }
    }

    void keepsThePreviousGeneration()
    {
        const QString file = path("generations");
        QVERIFY(CSafeFile::write(file, "one", CSafeFile::KeepPrevious));
        QVERIFY(!QFile::exists(file + QLatin1Char('~')));
        QVERIFY(CSafeFile::write(file, "two", CSafeFile::KeepPrevious));
        QVERIFY(CSafeFile::write(file, "three", CSafeFile::KeepPrevious));
        QCOMPARE(CSafeFile::read(file, ManyBytes).value(), QByteArray("three"));
        QCOMPARE(CSafeFile::read(file + QLatin1Char('~'), ManyBytes).value(), QByteArray("two"));
        QVERIFY(CSafeFile::write(file, "four", CSafeFile::DropPrevious));
        QCOMPARE(CSafeFile::read(file + QLatin1Char('~'), ManyBytes).value(), QByteArray("two"));
    }

    void keepsAsManyVersionsAsAreWanted()
    {
        const QString file = path("versions");
        const auto kept = [&file] {
            QByteArrayList contents;
            for (const CProjectVersions::SVersion &version : CProjectVersions::of(file))
                contents << QByteArray::number(version.age) + ':' + ProjectSamples::contentOf(version.file);
            return contents.join(' ');
        };
        const auto write = [&file](int from, int to) {
            for (int i = from; i <= to; ++i)
                QVERIFY(CSafeFile::write(file, QByteArray::number(i), CSafeFile::KeepPrevious));
        };
        CSafeFile::setVersions(3);
        write(0, 5);
        QCOMPARE(kept(), QByteArray("1:4 2:3 3:2"));
        QVERIFY(QFile::remove(file + QStringLiteral("~2"))); // a gap: nothing has to go for what comes
        write(6, 6);
        QCOMPARE(kept(), QByteArray("1:5 2:4 3:2"));
        CSafeFile::setVersions(0);
        write(7, 7);
        QCOMPARE(kept(), QByteArray("1:5 2:4 3:2"));
        CSafeFile::setVersions(1); // what is beyond the number stays
        write(8, 8);
        QCOMPARE(kept(), QByteArray("1:7 2:4 3:2"));
        ProjectSamples::setContent(file + QStringLiteral("~new"), "7"); // killed before it was renamed
        CSafeFile::setVersions(9);
        CSafeFile::cleanAround(file);
        QCOMPARE(kept(), QByteArray("1:7 2:7 3:4 4:2"));
        CSafeFile::setVersions(1);
    }

    void aVersionThatCannotBeKeptIsNotReplaced()
    {
        const QString file = path("kept");
        ProjectSamples::setContent(file, "old");
        QVERIFY(QDir().mkdir(file + QStringLiteral("~new")));
        const CStatus refused = CSafeFile::write(file, "new", CSafeFile::KeepPrevious);
        QVERIFY(refused.error().contains(QLatin1String("~new")));
        QCOMPARE(ProjectSamples::contentOf(file), QByteArray("old"));
        QVERIFY(CSafeFile::write(file, "new", CSafeFile::DropPrevious));
        QVERIFY(QDir().rmdir(file + QStringLiteral("~new")));
    }

    void whatWasChangedMeanwhileIsNotReplaced()
    {
        const QString file = path("changed");
        ProjectSamples::setContent(file, "old");
        SFileWrite how;
        how.expected = SFileStamp::of(file);
        QVERIFY(CSafeFile::write(file, "new", CSafeFile::KeepPrevious, &how));
        QVERIFY(how.replaced && !how.changed && how.stamp == SFileStamp::of(file));
        for (const bool gone : {false, true}) {
            how.expected = how.stamp;
            const CChangeWhileWriting meanwhile(file, gone); // after a look at the file before writing
            QCOMPARE(bool(CSafeFile::write(file, "newer", CSafeFile::KeepPrevious, &how)), gone);
            QCOMPARE(how.changed, !gone);
            QCOMPARE(ProjectSamples::contentOf(file), QByteArray(gone ? "newer" : "theirs"));
            QVERIFY(!QFile::exists(file + QStringLiteral("~new")));
            how.stamp = SFileStamp::of(file);
        }
    }

    void writesThroughALink()
    {
        QVERIFY(CSafeFile::write(path("target"), "old", CSafeFile::DropPrevious));
        QVERIFY(QFile::link(path("target"), path("link")));
        QVERIFY(CSafeFile::write(path("link"), "new", CSafeFile::KeepPrevious));
        QVERIFY(QFileInfo(path("link")).isSymLink());
        QCOMPARE(ProjectSamples::contentOf(path("target")), QByteArray("new"));
    }

    void refusesWhatIsNoFile()
    {
        QVERIFY(QDir(m_source.path()).mkdir(QStringLiteral("folder")));
        QVERIFY(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600) == 0);
        QVERIFY(refusesToRead(path("missing")));
        for (const QString &file : {path("folder"), path("pipe"), QStringLiteral("/dev/null")}) {
            QVERIFY2(refusesToRead(file), qPrintable(file));
            QVERIFY2(refusesToWrite(file, "text"), qPrintable(file));
        }
        QVERIFY(refusesToWrite(path("nowhere/file"), "text"));
        QVERIFY(CSafeFile::write(path("large"), QByteArray(11, 'x'), CSafeFile::DropPrevious));
        QVERIFY(!CSafeFile::read(path("large"), 10));
    }

    void tidiesUpAfterTheDeadOnly()
    {
        // Killed before the file was replaced, and after it.
        for (const auto &[pending, previous] : {std::pair("two", "zero"), std::pair("one", "one")}) {
            QTemporaryDir folder;
            const QString file = folder.filePath(QStringLiteral("wall"));
            ProjectSamples::setContent(file, "two");
            ProjectSamples::setContent(file + QStringLiteral("~"), "zero");
            ProjectSamples::setContent(file + QStringLiteral("~new"), pending);
            ProjectSamples::setContent(QFile::decodeName(CStrayFiles::newFile(QFile::encodeName(file))),
                                       "part");
            const auto names = [&folder] {
                return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
            };
            {
                CFileHandle writer(QFile::encodeName(folder.path()), O_RDONLY | O_DIRECTORY);
                QVERIFY(writer.lock(LOCK_EX));
                CSafeFile::cleanAround(file);
                QCOMPARE(names().size(), 4);
            }
            CSafeFile::cleanAround(file);
            QCOMPARE(names(), QStringList({QStringLiteral("wall"), QStringLiteral("wall~")}));
            QCOMPARE(ProjectSamples::contentOf(file), QByteArray("two"));
            QCOMPARE(ProjectSamples::contentOf(file + QStringLiteral("~")), QByteArray(previous));
        }
    }

    void keepsPermissions()
    {
        const QString file = path("permissions");
        QVERIFY(CSafeFile::write(file, "old", CSafeFile::DropPrevious));
        QVERIFY(chmod(QFile::encodeName(file).constData(), 0640) == 0);
        QVERIFY(CSafeFile::write(file, "new", CSafeFile::DropPrevious));
        struct stat status = {};
        QVERIFY(stat(QFile::encodeName(file).constData(), &status) == 0);
        QCOMPARE(int(status.st_mode & 07777), 0640);
    }

    void foldersThatCannotConfirmNeedNot()
    {
        for (const auto &[reason, fine] :
             {std::pair(EINVAL, true), std::pair(ENOTSUP, true), std::pair(EIO, false)}) {
            const QString folder = path("made/%1").arg(reason);
            const CFaultyFileSystem system(CFaultyFileSystem::SFault{"sync", 1, reason, true});
            QCOMPARE(bool(CSafeFile::makeFolder(folder)), fine);
        }
    }

    void theDiskConfirmsBeforeAnythingIsReplaced()
    {
        const QString file = fileOf(Project);
        QVERIFY(save(Project, 0));
        const CFaultyFileSystem system;
        QVERIFY(CSafeFile::write(file, "new", CSafeFile::KeepPrevious));
        QCOMPARE(system.calls().join(' '),
                 QByteArray("open lock open write sync read read close link rename rename sync close"));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CSafeFileTest)
#include "tst_safe_file.moc"
