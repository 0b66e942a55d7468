// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;

/// Receives the reports of items. They take effect at the end of the open batch, or at once if none is open.
/// GUI thread.
class IItemNotes
{
public:
    virtual ~IItemNotes() = default;

    virtual void noteCabinetMoved(CGraphicsCabinetItem &cabinet) = 0;
    virtual void noteMembersChanged(CGraphicsGroupItem &group) = 0;
    virtual void notePortChanged(CGraphicsPortItem &port) = 0;
    /// The chain of a port changed. Announced like a change of the selection, because what is offered depends
    /// on the wiring.
    virtual void noteWiringChanged(CGraphicsPortItem &port) = 0;
    virtual void noteSelected(CGraphicsItemBase &item, bool selected) = 0;
    /// Everything is to be repainted.
    virtual void noteRepaint() = 0;
    virtual void noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted) = 0;
};
