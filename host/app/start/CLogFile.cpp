// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CLogFile.h"

#include <QDateTime>
#include <QDir>
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
    , m_maximumBytes(maximumBytes)
    , m_file(fileName())
{
    QDir().mkpath(folder);
    m_file.open(QIODevice::WriteOnly | QIODevice::Append);
    const std::lock_guard<std::mutex> lock(activeLogMutex);
    Q_ASSERT(!activeLog);
    activeLog = this;
    m_previous = qInstallMessageHandler(onMessage);
}

CLogFile::~CLogFile()
{
    const std::lock_guard<std::mutex> lock(activeLogMutex);
    qInstallMessageHandler(m_previous);
    activeLog = nullptr;
}

QString CLogFile::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + QStringLiteral("/log");
}

QString CLogFile::fileName(int age) const
{
    const QString suffix = age == 0 ? QString() : QLatin1Char('.') + QString::number(age);
    return m_folder + QStringLiteral("/orvo%1.log").arg(suffix);
}

void CLogFile::onMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QByteArray message = QByteArray(levelName(type)) + ' ' +
                               (context.category ? context.category : "default") + ": " + text.toUtf8() +
                               '\n';
    const QByteArray time = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toLatin1();
    const std::lock_guard<std::mutex> lock(activeLogMutex);
    if (activeLog)
        activeLog->append(time + ' ' + message);
    if (type != QtDebugMsg && type != QtInfoMsg)
        tellErrorOutput("orvo: " + message);
}

void CLogFile::append(const QByteArray &line)
{
    if (!m_file.isOpen())
        return;
    if (m_file.size() > 0 && m_file.size() + line.size() > m_maximumBytes)
        putAside();
    m_file.write(line);
    m_file.flush(); // the last lines before a crash are the important ones
}

void CLogFile::putAside()
{
    m_file.close();
    QFile::remove(fileName(OlderFiles));
    for (int age = OlderFiles; age > 0; --age)
        QFile::rename(fileName(age - 1), fileName(age));
    m_file.open(QIODevice::WriteOnly | QIODevice::Append);
}
