// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzFiles.h"
#include "fuzz/HostileFiles.h"
#include "host/app/start/CAppSettings.h"
#include "host/devices/simulated/CProcessorCodec.h"
#include "host/journal/SJournal.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CCabinetConfig.h"
#include "host/projects/CCurrentGainFile.h"
#include "host/projects/CPortProject.h"
#include "host/projects/CProcessorProject.h"
#include "layout/data/CRecentCabinets.h"
#include "layout/printing/dialog/PrintMemory.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <functional>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int MostMegabytes = 255;          // fits an exit status
constexpr rlim_t MostSeconds = 10;          // without optimisation; what is quadratic takes minutes
constexpr unsigned MostSecondsAsleep = 120; // much more, because others may have the processor

using Read = std::function<void(const QByteArray &)>;
using Make = std::function<QVector<QByteArray>()>;

/// The most memory that this process has had at a time, in megabytes.
int peak()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray text = status.readAll();
    const int at = text.indexOf("VmPeak:") + 7;
    return text.mid(at, text.indexOf("kB", at) - at).trimmed().toInt() / 1024;
}

/// Reads in a process of its own. Returns how many megabytes that took, at most MostMegabytes; -1: it crashed
/// or took too long.
int cost(const Read &read, const QByteArray &bytes)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit seconds{MostSeconds, MostSeconds};
        setrlimit(RLIMIT_CPU, &seconds);
        alarm(MostSecondsAsleep);
        signal(SIGSEGV, SIG_DFL); // nothing of the test goes on here
        signal(SIGABRT, SIG_DFL);
        const int free = int(mallinfo2().fordblks / 1024 / 1024); // used first, without a new peak
        const int before = peak() - free;
        read(bytes);
        _exit(std::min(peak() - before, MostMegabytes));
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return -1;
    return WEXITSTATUS(status);
}

template <typename Files>
void readFile(const QByteArray &bytes)
{
    const QString file = FuzzFiles::path("hostile");
    FuzzFiles::write(file, FuzzFiles::withRightHeader(bytes));
    (void)Files::read(file);
}

void readTypes(const QByteArray &bytes)
{
    (void)CTypeLibrary::fromJson(bytes);
}

void readState(const QByteArray &bytes)
{
    const QByteArray right = FuzzFiles::withRightHeader(bytes);
    (void)CProcessorCodec::settings(right, QStringLiteral("Lobby"));
    (void)CProcessorCodec::mapping(right, QStringLiteral("Lobby"));
}

/// As a start does that offers it, and an editor that goes on with it.
void readJournal(const QByteArray &bytes)
{
    SJournal journal = SJournal::read(bytes);
    if (!journal.isUsable())
        return;
    journal.state.trail().renumber(journal.state.project().layout.ports);
    (void)journal.state.history();
    (void)journal.state.trail().unsavedText();
}

void readSettings(const QByteArray &bytes)
{
    const QString folder = FuzzFiles::path("hostile-config");
    QDir().mkpath(folder + QStringLiteral("/Velmarinth"));
    FuzzFiles::write(folder + QStringLiteral("/Velmarinth/Orvo.conf"), bytes);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    const CAppSettings app;
    (void)app.recentProjects();
    (void)app.writtenFiles();
    (void)app.windowGeometry();
    const CRecentCabinets cabinets;
    (void)cabinets.types();
    (void)PrintMemory::load();
}

QByteArray sample(const char *target, const char *name)
{
    return ProjectSamples::contentOf(
        QStringLiteral(ORVO_FUZZ_CORPUS "/%1/%2").arg(QLatin1String(target), QLatin1String(name)));
}

} // namespace

Q_DECLARE_METATYPE(Read)
Q_DECLARE_METATYPE(Make)

/// What files cost that were made to cost much.
class CHostileFilesTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        initLayoutResources();
        FuzzFiles::path(""); // of this process, for its children, too
    }

    void costLittle_data()
    {
        using HostileFiles::likeJson;
        QTest::addColumn<Read>("read");
        QTest::addColumn<Make>("make");
        const auto row = [](const char *name, const Read &read, const Make &make) {
            QTest::newRow(name) << read << make;
        };
        row("project", readFile<CProcessorProject>, [] { return likeJson(sample("project", "everything")); });
        row("port", readFile<CPortProject>, [] { return likeJson(sample("port", "everything")); });
        row("configuration", readFile<CCabinetConfig>,
            [] { return likeJson(sample("configuration", "two")); });
        row("gain", readFile<CCurrentGainFile>, [] { return likeJson(sample("current_gain", "rows")); });
        row("types", readTypes, [] { return likeJson(sample("type_library", "small")); });
        row("state", readState, [] { return likeJson(sample("state", "settings")); });
        row("mapping", readState, [] { return likeJson(sample("state", "mapping")); });
        row("journal", readJournal, [] { return HostileFiles::journals(); });
        row("settings", readSettings, [] { return HostileFiles::likeSettings(sample("settings", "usual")); });
    }

    void costLittle()
    {
        QFETCH(const Read, read);
        QFETCH(const Make, make);
        const QVector<QByteArray> files = make();
        QVERIFY(files.size() > 10);
        for (const QByteArray &bytes : files) {
            const int megabytes = cost(read, bytes);
            const QString begin = QString::fromLatin1(bytes.left(400));
            QVERIFY2(megabytes >= 0 && megabytes < MostMegabytes,
                     qPrintable(QStringLiteral("%1 MB: %2...").arg(megabytes).arg(begin)));
        }
    }
};

ORVO_TEST_MAIN(QApplication, CHostileFilesTest)
#include "tst_hostile_files.moc"
