// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CCrashHandler.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <atomic>
#include <csignal>
#include <cstring>
#include <ctime>
#include <exception>
#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

const QString waitingPattern = QStringLiteral("crash-*.txt");
const QString shownPattern = QStringLiteral("crash-*.shown");
constexpr qint64 LongestReport = 64 * 1024; // bytes, shown
constexpr int MostFrames = 100;
constexpr unsigned PatienceSeconds = 10; // for a report, which may hang in whatever has crashed
constexpr size_t StackBytes = 128 * 1024;
constexpr mode_t OnlyForTheUser = 0600;

struct SSignal
{
    int number;
    const char *name;
};
constexpr SSignal crashSignals[] = {
    {SIGSEGV, "SIGSEGV"}, {SIGABRT, "SIGABRT"}, {SIGBUS, "SIGBUS"}, {SIGFPE, "SIGFPE"}, {SIGILL, "SIGILL"}};

// Prepared beforehand: once the program has crashed nothing may be allocated any more.
char reportPath[4096];
char exceptionText[512];
alignas(16) char signalStack[StackBytes];
std::atomic<pid_t> crashing{0}; // the thread that writes the report
std::terminate_handler terminateBefore = nullptr;

void writeText(int file, const char *text)
{
    const ssize_t written = write(file, text, std::strlen(text));
    Q_UNUSED(written) // there is nobody left to tell
}

void writeNumber(int file, long number)
{
    char digits[24];
    char *place = digits + sizeof digits;
    *--place = '\0';
    do
        *--place = char('0' + number % 10);
    while ((number /= 10) > 0);
    writeText(file, place);
}

void writeReport(int file, int number)
{
    const char *name = "";
    for (const SSignal &known : crashSignals) {
        if (known.number == number)
            name = known.name;
    }
    writeText(file, "Orvo " ORVO_VERSION " crashed.\nsignal: ");
    writeNumber(file, number);
    writeText(file, " ");
    writeText(file, name);
    if (exceptionText[0] != '\0') {
        writeText(file, "\nexception: ");
        writeText(file, exceptionText);
    }
    writeText(file, "\ntime: ");
    writeNumber(file, long(time(nullptr)));
    writeText(file, gettid() == getpid() ? "\nthread: main\n" : "\nthread: another\n");
    void *frames[MostFrames];
    backtrace_symbols_fd(frames, backtrace(frames, MostFrames), file);
}

/// Only makes calls that are allowed in a signal handler; backtrace() is one once it has been called before.
void onCrash(int number)
{
    pid_t writer = 0;
    if (!crashing.compare_exchange_strong(writer, gettid())) {
        while (writer != gettid())
            pause();                  // another thread writes the report, and ends the program
        std::signal(number, SIG_DFL); // the report itself has crashed
        raise(number);
        return;
    }
    alarm(PatienceSeconds);
    const int file = open(reportPath, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, OnlyForTheUser);
    if (file >= 0) {
        writeReport(file, number);
        fsync(file);
        close(file);
    }
    std::signal(number, SIG_DFL);
    raise(number); // delivered when this function returns
}

/// Notes what the program was ended by; what follows is SIGABRT.
void onTerminate()
{
    if (const std::exception_ptr thrown = std::current_exception()) {
        try {
            std::rethrow_exception(thrown);
        } catch (const std::exception &exception) {
            qstrncpy(exceptionText, exception.what(), sizeof exceptionText);
        } catch (...) {
            qstrncpy(exceptionText, "of an unknown kind", sizeof exceptionText);
        }
    }
    if (terminateBefore)
        terminateBefore();
    std::abort();
}

} // namespace

QString CCrashHandler::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/crash");
}

void CCrashHandler::install(const QString &folder)
{
    QDir().mkpath(folder);
    const QString name = QStringLiteral("crash-%1-%2.txt")
                             .arg(QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddHHmmss")))
                             .arg(getpid());
    qstrncpy(reportPath, QFile::encodeName(QDir(folder).absoluteFilePath(name)).constData(),
             sizeof reportPath);
    void *frame = nullptr;
    backtrace(&frame, 1); // loads what it needs
    stack_t stack = {};
    stack.ss_sp = signalStack;
    stack.ss_size = sizeof signalStack;
    stack_t stackBefore = {};
    if (sigaltstack(nullptr, &stackBefore) == 0 && (stackBefore.ss_flags & SS_DISABLE))
        sigaltstack(&stack, nullptr);
    for (const SSignal &signal : crashSignals) {
        struct sigaction before = {};
        sigaction(signal.number, nullptr, &before);
        if ((before.sa_flags & SA_SIGINFO) || before.sa_handler != SIG_DFL)
            continue;
        struct sigaction action = {};
        action.sa_handler = onCrash;
        action.sa_flags = SA_ONSTACK;
        sigaction(signal.number, &action, nullptr);
    }
    std::signal(SIGALRM, SIG_DFL); // whoever started the program may have had it ignored
    terminateBefore = std::set_terminate(onTerminate);
}

std::optional<CCrashHandler::SReport> CCrashHandler::latest(const QString &folder)
{
    const QFileInfoList files = QDir(folder).entryInfoList({waitingPattern}, QDir::Files, QDir::Time);
    if (files.isEmpty())
        return {};
    QFile file(files.first().filePath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return SReport{file.fileName(), files.first().lastModified(),
                   QString::fromUtf8(file.read(LongestReport))};
}

void CCrashHandler::setShown(const SReport &report)
{
    const QDir folder = QFileInfo(report.file).dir();
    for (const QFileInfo &info : folder.entryInfoList({waitingPattern}, QDir::Files)) {
        if (info.lastModified() <= report.time)
            QFile::rename(info.filePath(),
                          folder.filePath(info.completeBaseName() + QStringLiteral(".shown")));
    }
    const QStringList shown = folder.entryList({shownPattern}, QDir::Files, QDir::Name | QDir::Reversed);
    for (const QString &name : shown.mid(MostShown)) // the names begin with the time
        QFile::remove(folder.filePath(name));
}
