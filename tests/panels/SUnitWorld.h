// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/CLayoutData.h"
#include "layout/panels/IMappingCommands.h"
#include "layout/panels/ISidePanelUnit.h"

#include <vector>

/// Records what a unit reads and saves; ends it when the test calls end().
class CNotedMappingCommands final : public IMappingCommands
{
public:
    QString refusalForAll() const override { return refusal; }
    void readMapping(ReadSaveMappingRole role, const SMappingOptions &wanted, Ended ended) override
    {
        reads << role;
        options = wanted;
        running.push_back(std::move(ended));
    }
    void saveMapping(ReadSaveMappingRole role, Ended ended) override
    {
        saves << role;
        running.push_back(std::move(ended));
    }
    void end(bool done)
    {
        const Ended ended = running.back();
        running.pop_back();
        ended(done);
    }

    QString refusal;
    QVector<ReadSaveMappingRole> reads;
    QVector<ReadSaveMappingRole> saves;
    SMappingOptions options;
    std::vector<Ended> running;
};

/// What a unit of the side panel needs.
struct SUnitWorld
{
    CLayoutData store;
    CNotedMappingCommands mapping;
    SUnitServices services{store, mapping};
};
