// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ReadSaveMappingRole.h"
#include "layout/api/records/SHostRecords.h"

#include <QString>

#include <functional>

/// Reads and saves the mapping, and shows the user the outcome. GUI thread.
class IMappingCommands
{
public:
    /// Called once with whether it succeeded, before the user is told.
    using Ended = std::function<void(bool done)>;

    virtual ~IMappingCommands() = default;
    /// Why nothing can be read from, or saved to, all processors; empty if it can.
    virtual QString refusalForAll() const = 0;
    virtual void readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Ended ended) = 0;
    virtual void saveMapping(ReadSaveMappingRole role, Ended ended) = 0;
};
