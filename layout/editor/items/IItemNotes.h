// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;

/// Takes what items report of themselves; acted on at the end of the running batch, without one at once. GUI
/// thread.
class IItemNotes
{
public:
    virtual ~IItemNotes() = default;

    virtual void noteCabinetMoved(CGraphicsCabinetItem &cabinet) = 0;
    virtual void noteMembersChanged(CGraphicsGroupItem &group) = 0;
    virtual void notePortChanged(CGraphicsPortItem &port) = 0;
    /// The chain of a port changed: what depends on wiring is announced as for a change of the selection.
    virtual void noteWiringChanged(CGraphicsPortItem &port) = 0;
    virtual void noteSelected(CGraphicsItemBase &item, bool selected) = 0;
    virtual void noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted) = 0;
};
