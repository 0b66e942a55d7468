// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CLogWriter.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <chrono>
#include <fcntl.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds Patience(250);
constexpr std::chrono::milliseconds PatienceAtEnd(1000); // for one line
constexpr std::chrono::milliseconds LongestEnd(5000);
constexpr size_t MostLines = 10000; // that wait
constexpr mode_t FileMode = 0666;   // less what the user's mask takes away

} // namespace

CLogWriter::CLogWriter(const QString &folder, qint64 maximumBytes, int olderFiles)
    : m_folder(folder)
    , m_maximumBytes(maximumBytes)
    , m_olderFiles(olderFiles)
    , m_thread([this] { run(); })
{
}

CLogWriter::~CLogWriter()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_ended = true;
        m_wake.notify_all();
    }
    m_thread.join();
}

QString CLogWriter::fileName(const QString &folder, int age)
{
    const QString suffix = age == 0 ? QString() : QLatin1Char('.') + QString::number(age);
    return folder + QStringLiteral("/orvo%1.log").arg(suffix);
}

QByteArray CLogWriter::stamped(const QByteArray &message)
{
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs).toLatin1() + ' ' + message + '\n';
}

void CLogWriter::write(const QByteArray &line)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (m_lost > 0 || m_lines.size() >= MostLines) {
        ++m_lost;
        return;
    }
    m_lines.push_back(line);
    m_wake.notify_all();
    waitUntilWritten(lock); // the last lines before a crash are the important ones
}

void CLogWriter::end(std::unique_ptr<CLogWriter> writer)
{
    std::unique_lock<std::mutex> lock(writer->m_mutex);
    if (writer->waitWhileWriting(lock))
        return;
    writer->m_thread.detach();
    lock.unlock();
    (void)writer.release(); // the thread uses it
}

/// Only the first one waits for what hangs.
void CLogWriter::waitUntilWritten(std::unique_lock<std::mutex> &lock)
{
    if (!m_hangs)
        m_hangs = !m_written.wait_for(lock, Patience, [this] { return m_lines.empty(); });
}

/// A disk that was too slow for somebody may still be working off what waits.
bool CLogWriter::waitWhileWriting(std::unique_lock<std::mutex> &lock)
{
    const Clock::time_point latest = Clock::now() + LongestEnd;
    bool writes = true;
    while (writes && !m_lines.empty() && Clock::now() < latest)
        writes =
            m_written.wait_for(lock, PatienceAtEnd, [this, before = m_count] { return m_count > before; });
    return m_lines.empty();
}

/// Not before there is room for many more: otherwise a disk that stays too slow would get little else to
/// write.
void CLogWriter::tellLost()
{
    if (m_lost == 0 || m_lines.size() > MostLines / 2)
        return;
    m_lines.push_back(
        stamped("warning default: the disk was too slow, lines lost here: " + QByteArray::number(m_lost)));
    m_lost = 0;
}

void CLogWriter::run()
{
    open();
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_ended || !m_lines.empty()) {
        if (m_lines.empty()) {
            m_wake.wait(lock);
            continue;
        }
        const QByteArray line = m_lines.front();
        lock.unlock();
        append(line);
        lock.lock();
        m_lines.pop_front();
        ++m_count;
        tellLost();
        if (m_lines.empty())
            m_hangs = false;
        m_written.notify_all();
    }
}

void CLogWriter::open()
{
    const QString name = fileName(m_folder, 0);
    QDir().mkpath(m_folder);
    m_file = std::make_unique<CFileHandle>(QFile::encodeName(name), O_WRONLY | O_CREAT | O_APPEND, FileMode);
    m_size = QFileInfo(name).size();
}

void CLogWriter::append(const QByteArray &line)
{
    if (!m_file->isOpen())
        return;
    if (m_size > 0 && m_size + line.size() > m_maximumBytes)
        putAside();
    (void)m_file->write(line); // a failure cannot be reported anywhere
    m_size += line.size();
}

void CLogWriter::putAside()
{
    m_file.reset();
    QFile::remove(fileName(m_folder, m_olderFiles));
    for (int age = m_olderFiles; age > 0; --age)
        QFile::rename(fileName(m_folder, age - 1), fileName(m_folder, age));
    open();
}
