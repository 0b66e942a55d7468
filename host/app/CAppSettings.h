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

    QByteArray windowGeometry() const;
    void setWindowGeometry(const QByteArray &geometry);
    QByteArray splitterState() const;
    void setSplitterState(const QByteArray &state);
    bool isRightBarCollapsed() const;
    void setRightBarCollapsed(bool collapsed);

    /// Absolute paths, the last one used first.
    QStringList recentProjects() const;
    /// Puts @p file first; the same file under another name counts as the same.
    void addRecentProject(const QString &file);
    void removeRecentProject(const QString &file);
    void clearRecentProjects();
    /// The folder of the project used last; the user's documents when there is none, or
    /// home.
    QString projectFolder() const;

private:
    QSettings m_settings{QStringLiteral("Velmarinth"), QStringLiteral("Orvo")};
};
