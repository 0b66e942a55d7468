// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QStringList>

class QTextStream;
struct SCommandOutcome;
struct SLayoutLimits;
struct SProcessorProject;

/// "orvo check": lists the faults in a project.
class CCheckCommand final
{
    Q_DECLARE_TR_FUNCTIONS(CCheckCommand)

public:
    /// The limits of the project's processor kind; for an unknown kind, those of the smallest kind that fits.
    static SLayoutLimits limitsOf(const SProcessorProject &project);
    static SCommandOutcome run(const QStringList &arguments, QTextStream &out);
};
