// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

/// Writes a report when the program crashes: version, signal or exception, and what was being called. Reports
/// stay in a folder of the user until the next start has shown them.
class CCrashHandler final
{
public:
    static constexpr int MostShown = 5; ///< reports that are kept after they were shown

    struct SReport
    {
        QString file;
        QDateTime time;
        QString text;
    };

    /// Where the application keeps its reports.
    static QString defaultFolder();
    /// Reports crashes in @p folder from now on, which is created if it is missing; the program crashes all
    /// the same. Leaves signals alone that somebody else handles, such as a sanitizer. Call once, on the
    /// main thread, whose stack overflows are reported, too.
    static void install(const QString &folder);

    /// The latest report that was not shown yet.
    static std::optional<SReport> latest(const QString &folder);
    /// Notes that the reports up to @p report were shown, and removes old ones.
    static void setShown(const SReport &report);
};
