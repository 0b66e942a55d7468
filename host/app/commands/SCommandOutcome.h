// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/commands/CCommandLine.h"

#include <QString>

/// The outcome of a command.
struct SCommandOutcome
{
    CCommandLine::ExitStatus status = CCommandLine::Success;
    QString error; ///< for the user; empty when there is nothing to say

    static SCommandOutcome badInput(const QString &error) { return {CCommandLine::BadInput, error}; }
    static SCommandOutcome usage(const QString &error) { return {CCommandLine::Usage, error}; }
};
