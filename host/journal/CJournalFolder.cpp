// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournalFolder.h"

#include "host/projects/CSafeFile.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

constexpr mode_t FileMode = 0600;
constexpr mode_t FolderMode = 0700;
constexpr qint64 LargestProject = 128 * 1024 * 1024;
constexpr int MostHistories = 200; // the oldest go first

const QString historySuffix = QStringLiteral(".history");
const QString newSuffix = QStringLiteral("~new");

/// Null: it is in use or gone, unless @p problem, which may be null, says what else there is.
CJournal::Handle locked(const QString &path, QString *problem = nullptr)
{
    constexpr int Flags = O_NOFOLLOW | O_NONBLOCK;
    // For writing, because network file systems lock nothing else alone.
    auto file = std::make_shared<CFileHandle>(QFile::encodeName(path), O_RDWR | Flags);
    if (!file->isOpen() && (errno == EROFS || errno == EACCES))
        file = std::make_shared<CFileHandle>(QFile::encodeName(path), O_RDONLY | Flags);
    if (!file->isOpen() || !file->lock(LOCK_EX | LOCK_NB)) {
        if (problem && errno != ENOENT && errno != EWOULDBLOCK)
            *problem = CSafeFile::systemReason();
        return nullptr;
    }
    struct stat opened = {};
    struct stat named = {};
    const bool ours = fstat(file->descriptor(), &opened) == 0 &&
                      stat(QFile::encodeName(path).constData(), &named) == 0 &&
                      opened.st_ino == named.st_ino; // else it was replaced meanwhile
    return ours ? file : nullptr;
}

SJournal readFrom(const CFileHandle &file)
try {
    struct stat status = {};
    if (fstat(file.descriptor(), &status) != 0)
        return SJournal::unreadable(CSafeFile::systemReason());
    if (status.st_size > CJournal::LargestFile) // which is never written
        return SJournal::read({});
    QByteArray content(int(status.st_size), Qt::Uninitialized);
    const qint64 found = file.read(content, 0);
    if (found < 0)
        return SJournal::unreadable(CSafeFile::systemReason());
    content.truncate(int(found));
    return SJournal::read(content);
} catch (const std::bad_alloc &) {
    return SJournal::unreadable(SStrayJournal::tr("there is not enough memory"));
}

/// Empty, with the reason as @p problem, if the file cannot be read.
QByteArray digestOf(const QString &file, QString *problem = nullptr)
{
    const CResult<QByteArray> content = CSafeFile::read(file, LargestProject);
    if (!content && problem)
        *problem = content.error();
    return content ? QCryptographicHash::hash(content.value(), QCryptographicHash::Sha256) : QByteArray();
}

CStatus removed(const QString &path)
{
    if (CFileSystem::current().unlink(QFile::encodeName(path)) == 0 || !QFile::exists(path))
        return CStatus::done();
    return CStatus::failure(CJournalFolder::tr("%1 cannot be removed: %2.")
                                .arg(CSafeFile::quoted(path), CSafeFile::systemReason()));
}

/// The files of a story one after another, the last turn first.
void sortByStory(QStringList &paths)
{
    const auto key = [](const QString &path) {
        const CJournal::SStory story = CJournal::storyOf(path);
        return std::make_pair(story.name, -story.turn);
    };
    std::sort(paths.begin(), paths.end(),
              [&key](const QString &a, const QString &b) { return key(a) < key(b); });
}

} // namespace

QString SStrayJournal::line() const
{
    if (!journal.isUsable())
        return tr("%1, %2").arg(QDir::toNativeSeparators(path), journal.problemText());
    const QDateTime changed = QDateTime::fromMSecsSinceEpoch(journal.state.changed());
    const QString state = journal.problem == SJournal::None ? tr("complete") : journal.problemText();
    return tr("%1, last edit %2, %3, %4")
        .arg(journal.owner.file.isEmpty() ? journal.owner.name : journal.owner.file,
             changed.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")), journal.state.trail().unsavedText(),
             state);
}

QString CJournalFolder::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/journal");
}

CStatus CJournalFolder::make() const
{
    const CStatus made = CSafeFile::makeFolder(m_folder);
    if (made)
        chmod(QFile::encodeName(m_folder).constData(), FolderMode);
    return made;
}

QStringList CJournalFolder::files(const QString &suffix) const
{
    QStringList paths;
    const QDir folder(m_folder);
    for (const QString &name : folder.entryList({QLatin1Char('*') + suffix}, QDir::Files, QDir::Name))
        paths << folder.filePath(name);
    return paths;
}

QList<SStrayJournal> CJournalFolder::strays() const
{
    for (const QString &path : files(newSuffix)) {
        if (locked(path)) // else it is being written
            CFileSystem::current().unlink(QFile::encodeName(path));
    }
    QList<SStrayJournal> strays;
    QStringList paths = files(CJournal::suffix());
    sortByStory(paths);
    QString told; // a story of which there is a file that holds all that earlier ones do
    for (const QString &path : std::as_const(paths)) {
        SStrayJournal stray;
        stray.path = path;
        QString problem;
        stray.lock = locked(path, &problem);
        const bool isOpenElsewhere = !stray.lock && problem.isEmpty();
        if (isOpenElsewhere && !QFile::exists(path))
            continue; // somebody has just ended it
        const QString story = CJournal::storyOf(path).name;
        if (story == told) {
            if (stray.lock && !strays.isEmpty() && CJournal::storyOf(strays.last().path).name == story)
                strays.last().followed.emplace_back(QFile::encodeName(path), stray.lock);
            continue;
        }
        if (!isOpenElsewhere) {
            stray.journal = stray.lock ? readFrom(*stray.lock) : SJournal::unreadable(problem);
            strays << stray;
        }
        if (isOpenElsewhere || stray.journal.isUsable())
            told = story;
    }
    std::stable_sort(strays.begin(), strays.end(), [](const SStrayJournal &a, const SStrayJournal &b) {
        return a.journal.state.changed() > b.journal.state.changed();
    });
    return strays;
}

CStatus CJournalFolder::remove(const SStrayJournal &stray)
{
    const auto failure = [](const QString &path) {
        return CStatus::failure(
            tr("%1 cannot be removed: %2.").arg(CSafeFile::quoted(path), CSafeFile::systemReason()));
    };
    for (const auto &[path, lock] : stray.followed) { // first: without the other they would be offered again
        if (!CJournal::remove(path, lock))
            return failure(QFile::decodeName(path));
    }
    return CJournal::remove(QFile::encodeName(stray.path), stray.lock) ? CStatus::done()
                                                                       : failure(stray.path);
}

QString CJournalFolder::historyFile(const QString &projectFile) const
{
    const QFileInfo info(projectFile);
    const QString canonical = info.canonicalFilePath();
    const QByteArray key = (canonical.isEmpty() ? info.absoluteFilePath() : canonical).toUtf8();
    const QByteArray name = QCryptographicHash::hash(key, QCryptographicHash::Sha256).toHex().left(32);
    return m_folder + QLatin1Char('/') + QString::fromLatin1(name) + historySuffix;
}

QString CJournalFolder::keepHistory(SJournalOwner owner, const CJournalState &state) const
{
    const CStatus made = make();
    if (!made)
        return made.error();
    QString unread;
    owner.fileDigest = digestOf(owner.file, &unread);
    if (owner.fileDigest.isEmpty())
        return unread;
    if (SFileStamp::of(owner.file) != owner.stamp)
        return {}; // somebody has replaced it since
    quint64 last = 0;
    const QByteArray content = SJournal::write(owner, state, last);
    const QByteArray path = QFile::encodeName(historyFile(owner.file));
    const QByteArray unfinished = path + "~new";
    CFileSystem::current().unlink(unfinished);
    CFileHandle file(unfinished, O_WRONLY | O_CREAT | O_EXCL, FileMode);
    const bool written = file.isOpen() && file.lock(LOCK_EX | LOCK_NB) && file.write(content) &&
                         file.sync() && CFileSystem::current().rename(unfinished, path) == 0;
    const QString problem =
        written ? QString()
                : tr("%1 cannot be written: %2.")
                      .arg(CSafeFile::quoted(historyFile(owner.file)), CSafeFile::systemReason());
    if (!written)
        CFileSystem::current().unlink(unfinished);
    QStringList all = files(historySuffix);
    std::sort(all.begin(), all.end(), [](const QString &a, const QString &b) {
        return QFileInfo(a).lastModified() < QFileInfo(b).lastModified();
    });
    for (int i = 0; i < all.size() - MostHistories; ++i)
        QFile::remove(all.at(i));
    return problem;
}

CStatus CJournalFolder::dropHistory(const QString &projectFile) const
{
    return removed(historyFile(projectFile));
}

CStatus CJournalFolder::dropHistories() const
{
    CStatus all = CStatus::done();
    for (const QString &path : files(historySuffix)) {
        const CStatus one = removed(path);
        if (!one)
            all = one;
    }
    return all;
}

CJournalFolder::Kept CJournalFolder::findHistory(const QString &projectFile, SJournal &history) const
{
    CSafeFile::Found found = CSafeFile::Nothing;
    const CResult<QByteArray> content =
        CSafeFile::read(historyFile(projectFile), CJournal::LargestFile, &found);
    const auto unread = [&history](const QString &reason) {
        history = SJournal::unreadable(reason);
        return Kept::Unread;
    };
    if (!content)
        return found == CSafeFile::Nothing ? Kept::None : unread(content.error());
    history = SJournal::read(content.value());
    if (history.problem == SJournal::Newer)
        return unread(tr("they were written by a newer version of the program."));
    if (history.problem != SJournal::None)
        return Kept::Damaged;
    QString problem;
    const QByteArray digest = digestOf(projectFile, &problem);
    if (digest.isEmpty()) // it cannot be read now, which says nothing of what it holds
        return unread(problem);
    return history.owner.fileDigest == digest ? Kept::Same : Kept::Changed;
}
