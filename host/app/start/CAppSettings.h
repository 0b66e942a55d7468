// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QSettings>
#include <QStringList>

/// What the application window remembers between starts. GUI thread.
class CAppSettings final
{
public:
    static constexpr int MaximumRecentProjects = 10;
    static constexpr int MaximumWrittenFolders = 32;
    static constexpr int LeastHistoryMegabytes = 16;
    static constexpr int MostHistoryMegabytes = 4096;

    CAppSettings();

    QByteArray windowGeometry() const;
    void setWindowGeometry(const QByteArray &geometry);
    QByteArray splitterState() const;
    void setSplitterState(const QByteArray &state);
    bool isRightBarCollapsed() const;
    void setRightBarCollapsed(bool collapsed);

    /// Absolute paths, the most recent first.
    QStringList recentProjects() const;
    /// Puts @p file first; different paths of the same file count as one.
    void addRecentProject(const QString &file);
    void removeRecentProject(const QString &file);
    void clearRecentProjects();
    /// Files beside which a killed process may have left strays, one for each folder, the most recent first.
    QStringList writtenFiles() const;
    /// Notes on the disk that @p file will be written. If only the folder matters, because no previous
    /// generation of the file is kept, a file known there is enough. Any thread, on an object of its own,
    /// like removeWritten().
    void addWritten(const QString &file, bool onlyFolder);
    void removeWritten(const QString &file);
    /// How many earlier versions of a file are kept beside it, see CSafeFile::setVersions().
    int keptVersions() const;
    void setKeptVersions(int count);
    /// Whether undo goes on working when a project was saved, closed and opened again.
    bool keepsHistory() const;
    void setKeepsHistory(bool keeps);
    /// What the history of all processors together may take.
    int historyMegabytes() const;
    void setHistoryMegabytes(int megabytes);
    /// The folder of the most recent project; if there is none, the user's documents folder or home.
    QString projectFolder() const;

    /// Removes what a killed process has left beside the settings' @p file: half written files and an empty
    /// lock, for which others would wait half a minute. The first object of a process calls it.
    static void removeLeftovers(const QString &file);

private:
    QSettings m_settings{QStringLiteral("Velmarinth"), QStringLiteral("Orvo")};
};
