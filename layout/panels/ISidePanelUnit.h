// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

#include <QList>
#include <QRect>

class CLayoutData;
class IMappingCommands;
struct SSelectionFigures;

/// What a unit of the side panel may use; everything outlives the unit.
struct SUnitServices
{
    CLayoutData &store; ///< units connect to its signals themselves
    IMappingCommands &mapping;
};

/// What the panel tells its units, which are its child widgets. GUI thread.
class ISidePanelUnit
{
public:
    virtual ~ISidePanelUnit() = default;

    /// Another processor is in view; a default record if none is.
    virtual void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &) {}
    /// The state of the processor in view has changed.
    virtual void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &) {}
    /// The output ports that hold the selection; none: nothing is selected.
    virtual void onSelectedPorts(const QList<int> &) {}
    virtual void onSelectionFigures(const SSelectionFigures &) {}
    /// The extent of the selection, canvas pixels; empty without one.
    virtual void onSelectedGeometry(const QRect &) {}
    /// Locks or pairs of ports have changed.
    virtual void onPortStatesChanged() {}
    /// Whether the layout of the processor in view can be seen, or another page covers the editor.
    virtual void setLayoutShown(bool shown) { Q_UNUSED(shown) }
    /// The unit must refuse whatever would replace or edit the layout if the user has locked the editor
    /// (@p locked), or the processor in view follows a primary (@p redundancy).
    virtual void setEditingBlocked(bool locked, bool redundancy)
    {
        Q_UNUSED(locked)
        Q_UNUSED(redundancy)
    }
};
