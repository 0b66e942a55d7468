// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QStringList>

class QTextStream;
struct SCommandOutcome;

/// "orvo new": writes a project file with a wall of equal, wired cabinets.
class CNewCommand final
{
    Q_DECLARE_TR_FUNCTIONS(CNewCommand)

public:
    static SCommandOutcome run(const QStringList &arguments, QTextStream &out);
};
