// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournal.h"

#include "host/journal/SJournal.h"
#include "host/projects/CSafeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

constexpr mode_t OnlyForOwner = 0600;
constexpr qint64 SmallestLimit = 1024 * 1024; // bytes of entries before a new file is begun

constexpr QLatin1Char BeforeTurn('+');

/// Another one each time: what an earlier run or another process has written of the processor stays.
QByteArray newName(const QString &folder, const QUuid &processor, const QString &followed)
{
    const QString start = QStringLiteral("%1/%2-").arg(folder, processor.toString(QUuid::WithoutBraces));
    if (followed.isEmpty())
        return QFile::encodeName(start + QUuid::createUuid().toString(QUuid::Id128) + CJournal::suffix());
    CJournal::SStory story = CJournal::storyOf(followed);
    QString name;
    do { // one that could not be read may be there
        name = start + story.name + BeforeTurn + QString::number(++story.turn) + CJournal::suffix();
    } while (QFile::exists(name));
    return QFile::encodeName(name);
}

} // namespace

CJournal::CJournal(const QString &folder, const SJournalOwner &owner, const CJournalState &state,
                   const QString &followed)
    : m_path(newName(folder, owner.processor, followed))
    , m_owner(owner)
    , m_state(state)
{
}

void CJournal::fail(const QString &why)
{
    m_broken = true;
    m_error = why;
    m_new.reset();
}

CJournal::Handle CJournal::create(const QByteArray &path)
{
    CFileSystem::current().unlink(path);
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_APPEND;
    auto file = std::make_shared<CFileHandle>(path, flags, OnlyForOwner);
    if (!file->isOpen() || !file->lock(LOCK_EX | LOCK_NB)) {
        fail(CSafeFile::systemReason());
        return nullptr;
    }
    return file;
}

bool CJournal::put(const Handle &file, const QByteArray &bytes)
{
    if (file->write(bytes))
        return true;
    fail(CSafeFile::systemReason());
    return false;
}

void CJournal::append(int entry, const QByteArray &content)
{
    if (!m_broken && !m_file) {
        begin();
        return;
    }
    if (m_broken && !m_new)
        return; // a new file will tell everything
    m_unsynced = true;
    if (m_new && !put(m_new, SJournal::append(entry, content, m_lastNew)))
        return;
    if (m_broken)
        return;
    const QByteArray bytes = SJournal::append(entry, content, m_last);
    m_size += bytes.size();
    put(m_file, bytes);
}

bool CJournal::isOutgrown() const
{
    return !m_new && !m_broken && m_file &&
           (m_size > std::max(SmallestLimit, std::min(4 * m_base, (LargestFile - m_base) / 2)) ||
            m_state.effort() > CJournalState::LargestEffort);
}

bool CJournal::beginNew()
{
    const QByteArray content = SJournal::write(m_owner, m_state, m_lastNew);
    m_new = create(newPath());
    if (!m_new || !put(m_new, content)) {
        CFileSystem::current().unlink(newPath());
        return false;
    }
    m_base = content.size();
    m_size = 0;
    m_state.forgetEffort();
    m_unsynced = true;
    return true;
}

bool CJournal::begin()
{
    if (!beginNew())
        return false;
    finishNew();
    return !m_broken;
}

void CJournal::finishNew()
{
    if (!m_new)
        return;
    if (CFileSystem::current().rename(newPath(), m_path) < 0) {
        fail(CSafeFile::systemReason());
        return;
    }
    m_file = std::move(m_new);
    m_new.reset();
    m_last = m_lastNew;
    m_unsynced = true; // its name
    m_broken = false;
    m_error.clear();
}

void CJournal::confirm(const Handle &file)
{
    if (m_new == file)
        finishNew();
    else if (m_file == file && !m_broken)
        removeLeft();
}

QVector<CJournal::Handle> CJournal::takeUnsynced()
{
    QVector<Handle> handles;
    if (m_unsynced && m_file && !m_broken)
        handles << m_file;
    if (m_unsynced && m_new)
        handles << m_new;
    m_unsynced = false;
    return handles;
}

void CJournal::removeFile()
{
    removeLeft(); // first: without this file they would be offered again
    if (m_file && !remove(m_path, m_file))
        supersede(m_path, m_file);
    if (m_new || m_broken)
        CFileSystem::current().unlink(newPath());
    m_file.reset();
    m_new.reset();
    m_unsynced = false;
    m_broken = false;
    m_state.forgetEffort();
}

void CJournal::supersede(const QByteArray &path, const Handle &lock)
{
    m_superseded.emplace_back(path, lock);
}

void CJournal::supersede(const CJournal &other)
{
    m_superseded.insert(m_superseded.end(), other.m_superseded.begin(), other.m_superseded.end());
    if (other.m_file)
        supersede(other.m_path, other.m_file);
}

CJournal::SStory CJournal::storyOf(const QString &file)
{
    const QString name = QFileInfo(file).completeBaseName();
    const int turn = name.lastIndexOf(BeforeTurn);
    return {name.left(turn).section(QLatin1Char('-'), -1), turn < 0 ? 0 : name.midRef(turn + 1).toInt()};
}

void CJournal::removeLeft()
{
    const auto isRemoved = [](const std::pair<QByteArray, Handle> &left) {
        return remove(left.first, left.second);
    };
    m_superseded.erase(std::remove_if(m_superseded.begin(), m_superseded.end(), isRemoved),
                       m_superseded.end());
}

bool CJournal::remove(const QByteArray &path, const Handle &lock)
{
    struct stat locked = {};
    struct stat named = {};
    if (!lock)
        return true;
    if (fstat(lock->descriptor(), &locked) != 0)
        return false;
    if (stat(path.constData(), &named) != 0)
        return errno == ENOENT;
    const bool another = locked.st_dev != named.st_dev || locked.st_ino != named.st_ino;
    return another || CFileSystem::current().unlink(path) == 0;
}
