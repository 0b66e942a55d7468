// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CAppSettings.h"

#include "host/projects/CSafeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <mutex>
#include <thread>

namespace {

const QString geometryKey = QStringLiteral("window/geometry");
const QString splitterKey = QStringLiteral("window/splitter");
const QString collapsedKey = QStringLiteral("window/rightBarCollapsed");
const QString recentKey = QStringLiteral("projects/recent");
const QString writtenKey = QStringLiteral("projects/written");
const QString versionsKey = QStringLiteral("projects/versions");
const QString historyKey = QStringLiteral("history/keep");
const QString megabytesKey = QStringLiteral("history/limitMegabytes");
constexpr int UsualVersions = 1;
constexpr int UsualMegabytes = 256;
constexpr int EmptyLockTurns = 10; // until nobody can be about to write into it
constexpr std::chrono::milliseconds EmptyLockTurn(10);

/// Those that can be names of files; the file of settings may have been edited by hand.
QStringList fileNames(const QVariant &value)
{
    QStringList names = value.toStringList();
    names.erase(std::remove_if(names.begin(), names.end(),
                               [](const QString &name) { return name.isEmpty() || name.contains(QChar(0)); }),
                names.end());
    return names;
}

QString identityOf(const QString &file)
{
    const QFileInfo info(file);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical; // a missing file has no canonical path
}

/// Whether a lock stays without its holder's name.
bool staysEmpty(const QString &lock)
{
    for (int turn = 0; turn < EmptyLockTurns; ++turn) {
        const QFileInfo info(lock);
        if (!info.exists() || info.size() > 0)
            return false;
        std::this_thread::sleep_for(EmptyLockTurn);
    }
    return true;
}

/// Whether Qt has invented the name's end: six letters. Those without a capital may be the user's words.
bool isTemporary(const QString &name)
{
    const QStringRef end = name.rightRef(6);
    const auto isLetter = [](QChar c) { return c.unicode() < 128 && c.isLetter(); };
    return std::all_of(end.begin(), end.end(), isLetter) &&
           std::any_of(end.begin(), end.end(), [](QChar c) { return c.isUpper(); });
}

} // namespace

CAppSettings::CAppSettings()
{
    static std::once_flag once;
    std::call_once(once, [this] { removeLeftovers(m_settings.fileName()); });
}

void CAppSettings::removeLeftovers(const QString &file)
{
    const QString name = QFileInfo(file).fileName();
    QDir folder = QFileInfo(file).dir();
    const QString locks = name + QStringLiteral(".lock*"); // QLockFile locks the removal of locks, too
    for (const QString &lock : folder.entryList({locks}, QDir::Files | QDir::Hidden)) {
        if (staysEmpty(folder.filePath(lock)))
            folder.remove(lock);
    }
    QLockFile lock(file + QStringLiteral(".lock"));
    if (!lock.tryLock(0))
        return; // somebody is writing
    const QString temporary = name + QStringLiteral(".??????");
    for (const QString &leftover : folder.entryList({temporary}, QDir::Files | QDir::Hidden)) {
        if (isTemporary(leftover))
            folder.remove(leftover);
    }
}

QByteArray CAppSettings::windowGeometry() const
{
    return m_settings.value(geometryKey).toByteArray();
}

void CAppSettings::setWindowGeometry(const QByteArray &geometry)
{
    m_settings.setValue(geometryKey, geometry);
}

QByteArray CAppSettings::splitterState() const
{
    return m_settings.value(splitterKey).toByteArray();
}

void CAppSettings::setSplitterState(const QByteArray &state)
{
    m_settings.setValue(splitterKey, state);
}

bool CAppSettings::isRightBarCollapsed() const
{
    return m_settings.value(collapsedKey, false).toBool();
}

void CAppSettings::setRightBarCollapsed(bool collapsed)
{
    m_settings.setValue(collapsedKey, collapsed);
}

QStringList CAppSettings::recentProjects() const
{
    const QStringList files = fileNames(m_settings.value(recentKey));
    return files.mid(0, MaximumRecentProjects);
}

void CAppSettings::addRecentProject(const QString &file)
{
    removeRecentProject(file);
    QStringList files = recentProjects();
    files.prepend(QFileInfo(file).absoluteFilePath());
    m_settings.setValue(recentKey, QStringList(files.mid(0, MaximumRecentProjects)));
}

void CAppSettings::removeRecentProject(const QString &file)
{
    const QString identity = identityOf(file);
    QStringList kept;
    for (const QString &recent : recentProjects()) {
        if (identityOf(recent) != identity)
            kept << recent;
    }
    m_settings.setValue(recentKey, kept);
}

void CAppSettings::clearRecentProjects()
{
    m_settings.remove(recentKey);
}

QStringList CAppSettings::writtenFiles() const
{
    const QStringList files = fileNames(m_settings.value(writtenKey));
    return files.mid(0, MaximumWrittenFolders);
}

void CAppSettings::addWritten(const QString &file, bool onlyFolder)
{
    const QFileInfo written(file);
    m_settings.sync(); // another window may have cleaned up
    QStringList files = writtenFiles();
    const auto known = std::find_if(files.begin(), files.end(), [&written](const QString &other) {
        return QFileInfo(other).absolutePath() == written.absolutePath();
    });
    if (known != files.end()) {
        if (onlyFolder || *known == written.absoluteFilePath())
            return;
        files.erase(known);
    }
    files.prepend(written.absoluteFilePath());
    m_settings.setValue(writtenKey, QStringList(files.mid(0, MaximumWrittenFolders)));
    m_settings.sync(); // before the process can be killed
}

void CAppSettings::removeWritten(const QString &file)
{
    m_settings.sync();
    QStringList files = writtenFiles();
    files.removeAll(file);
    m_settings.setValue(writtenKey, files);
}

int CAppSettings::keptVersions() const
{
    return qBound(0, m_settings.value(versionsKey, UsualVersions).toInt(), CSafeFile::MostVersions);
}

void CAppSettings::setKeptVersions(int count)
{
    m_settings.setValue(versionsKey, count);
}

bool CAppSettings::keepsHistory() const
{
    return m_settings.value(historyKey, true).toBool();
}

void CAppSettings::setKeepsHistory(bool keeps)
{
    m_settings.setValue(historyKey, keeps);
}

int CAppSettings::historyMegabytes() const
{
    return qBound(LeastHistoryMegabytes, m_settings.value(megabytesKey, UsualMegabytes).toInt(),
                  MostHistoryMegabytes);
}

void CAppSettings::setHistoryMegabytes(int megabytes)
{
    m_settings.setValue(megabytesKey, megabytes);
}

QString CAppSettings::projectFolder() const
{
    const QStringList files = recentProjects();
    if (!files.isEmpty() && QFileInfo(files.first()).dir().exists())
        return QFileInfo(files.first()).absolutePath();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath(); // a file dialog takes it for a file
}
