// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CLogFile.h"

#include "host/app/start/CLogWriter.h"

#include <QStandardPaths>

#include <algorithm>
#include <limits.h>
#include <mutex>
#include <poll.h>
#include <unistd.h>

namespace {

std::mutex activeLogMutex; // a message of another thread may arrive while the log is being closed
CLogFile *activeLog = nullptr;

const char *levelName(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "debug";
    case QtInfoMsg:
        return "info";
    case QtWarningMsg:
        return "warning";
    case QtCriticalMsg:
        return "error";
    case QtFatalMsg:
        return "fatal";
    }
    return "message";
}

/// Writes to the standard error output if that is possible at once: a message must neither end nor block the
/// program.
void tellErrorOutput(const QByteArray &line)
{
    pollfd output{STDERR_FILENO, POLLOUT, 0};
    if (poll(&output, 1, 0) != 1 || output.revents != POLLOUT)
        return;
    // The number of bytes that a pipe accepts at once if it accepts any.
    const ssize_t written = write(STDERR_FILENO, line.constData(), size_t(std::min(line.size(), PIPE_BUF)));
    Q_UNUSED(written) // a failure cannot be reported anywhere
}

} // namespace

CLogFile::CLogFile(const QString &folder, qint64 maximumBytes)
    : m_folder(folder)
    , m_writer(std::make_unique<CLogWriter>(folder, maximumBytes, OlderFiles))
{
    const std::lock_guard<std::mutex> lock(activeLogMutex);
    Q_ASSERT(!activeLog);
    activeLog = this;
    m_previous = qInstallMessageHandler(onMessage);
}

CLogFile::~CLogFile()
{
    {
        const std::lock_guard<std::mutex> lock(activeLogMutex);
        qInstallMessageHandler(m_previous);
        activeLog = nullptr;
    }
    CLogWriter::end(std::move(m_writer));
}

QString CLogFile::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/log");
}

QString CLogFile::fileName(int age) const
{
    return CLogWriter::fileName(m_folder, age);
}

void CLogFile::onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QByteArray message = QByteArray(levelName(type)) + ' ' +
                               (context.category ? context.category : "default") + ": " + text.toUtf8();
    const std::lock_guard<std::mutex> lock(activeLogMutex);
    if (activeLog)
        activeLog->m_writer->write(CLogWriter::stamped(message));
    if (type != QtDebugMsg && type != QtInfoMsg)
        tellErrorOutput("orvo: " + message + '\n');
}
