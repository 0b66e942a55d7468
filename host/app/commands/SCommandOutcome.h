// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/commands/CCommandLine.h"
#include "host/projects/SLockHolder.h"

#include <QString>

/// The outcome of a command.
struct SCommandOutcome
{
    CCommandLine::ExitStatus status = CCommandLine::Success;
    QString error; ///< for the user; empty when there is nothing to say

    static SCommandOutcome badInput(const QString &error) { return {CCommandLine::BadInput, error}; }
    /// A file is not written, because somebody has it open.
    static SCommandOutcome held(const QString &file, const SLockHolder &holder)
    {
        return badInput(CCommandLine::tr("%1 is open: %2").arg(file, holder.text()));
    }
    static SCommandOutcome usage(const QString &error) { return {CCommandLine::Usage, error}; }
};
