// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QStringList>

class QTextStream;
struct SCommandOutcome;

/// "orvo export": writes a project's layout as a picture or a table, or projects as sheets for paper.
class CExportCommand final
{
    Q_DECLARE_TR_FUNCTIONS(CExportCommand)

public:
    /// How it is called, with all options.
    static QString help();
    static SCommandOutcome run(const QStringList &arguments, QTextStream &out);
};
