// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QStringList>

class QTextStream;
struct SCommandOutcome;

/// "orvo check": lists the faults in a project.
class CCheckCommand final
{
    Q_DECLARE_TR_FUNCTIONS(CCheckCommand)

public:
    static SCommandOutcome run(const QStringList &arguments, QTextStream &out);
};
