// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CCrashHandler.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

/// The signal that ends a copy of this process in which @p work is done after the handler was installed.
int signalOf(const QString &folder, const std::function<void()> &work)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit none{0, 0};
        setrlimit(RLIMIT_CORE, &none);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO); // the library says what it was ended by
        for (const int number : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL})
            std::signal(number, SIG_DFL); // not those of the tests
        CCrashHandler::install(folder);
        [&]() noexcept { work(); }();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

int overflow(volatile int depth)
{
    volatile char frame[4096] = {};
    frame[depth % 4096] = 1;
    return depth < 0 ? 0 : overflow(depth + 1) + frame[0];
}

} // namespace

/// What is left of a program that crashes.
class CCrashTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aReportTellsHowItEnded()
    {
        struct SEnd
        {
            std::function<void()> work;
            int signal;
            QByteArrayList told;
        };
        const SEnd ends[]{
            {[] { std::raise(SIGILL); }, SIGILL, {"signal: 4 SIGILL\n", "thread: main\n"}},
            {[] { throw std::runtime_error("no wall"); }, SIGABRT, {"SIGABRT\nexception: no wall\n"}},
#ifndef __SANITIZE_THREAD__ // which allows no threads after a fork
            {[] { std::thread([] { std::abort(); }).join(); }, SIGABRT, {"SIGABRT\n", "thread: another\n"}},
#endif
            {[] { overflow(1); }, SIGSEGV, {"SIGSEGV\n"}}};
        for (const SEnd &end : ends) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
            if (end.signal == SIGSEGV)
                continue; // which sanitizers report by themselves
#endif
            const QTemporaryDir home;
            const QString folder = home.filePath(QStringLiteral("new/crash"));
            QCOMPARE(signalOf(folder, end.work), end.signal); // has crashed all the same
            const auto report = CCrashHandler::latest(folder);
            QVERIFY(report);
            const QByteArray text = report->text.toUtf8();
            QVERIFY2(text.startsWith("Orvo " ORVO_VERSION " crashed.\n"), text);
            for (const QByteArray &told : end.told)
                QVERIFY2(text.contains(told), text);
            QVERIFY2(text.count("[0x") > 1, text); // where it was
            QCOMPARE(QFile::permissions(report->file) & (QFile::ReadGroup | QFile::ReadOther),
                     QFile::Permissions());
        }
    }

    void whoHandlesSignalsIsLeftAlone()
    {
        const QTemporaryDir home;
        QCOMPARE(signalOf(home.path(), [] { _exit(0); }), 0);
        QVERIFY(!CCrashHandler::latest(home.path())); // nothing has crashed
        const bool kept = ProjectSamples::trueInChild([&home] {
            const auto own = [](int) {};
            std::signal(SIGFPE, own);
            CCrashHandler::install(home.path());
            return std::signal(SIGFPE, SIG_DFL) == static_cast<void (*)(int)>(own);
        });
        QVERIFY(kept);
    }

    void eachReportIsShownOnce()
    {
        const QTemporaryDir folder;
        for (int i = 0; i < 2 * CCrashHandler::MostShown; ++i) {
            QVERIFY(!CCrashHandler::latest(folder.path()));
            ProjectSamples::setContent(
                folder.filePath(QStringLiteral("crash-2026%1-1.txt").arg(i, 2, 10, QLatin1Char('0'))),
                QByteArray::number(i));
            const auto report = CCrashHandler::latest(folder.path());
            QVERIFY(report && report->text == QString::number(i));
            CCrashHandler::setShown(*report);
        }
        const QStringList left = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(left.size(), CCrashHandler::MostShown);
        QCOMPARE(left.last(), QStringLiteral("crash-202609-1.shown"));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CCrashTest)
#include "tst_crash.moc"
