// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

class CLayoutData;
class IMappingCommands;

/// What a unit of the side panel may use; all of it outlives the unit.
struct SUnitServices
{
    CLayoutData &store; ///< whose signals a unit follows by itself
    IMappingCommands &mapping;
};

/// What the panel tells its units, which are widgets of it. GUI thread.
class ISidePanelUnit
{
public:
    virtual ~ISidePanelUnit() = default;

    /// Another processor is in view, or none: then its record is a default one.
    virtual void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &) {}
    /// The processor in view has another state.
    virtual void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &) {}
    /// What would replace the layout is to be refused, or is no longer.
    virtual void setEditingBlocked(bool) {}
};
