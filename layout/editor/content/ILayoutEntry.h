// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;
class QGraphicsItem;

/// How items that a CLayoutBuilder makes enter their port: directly, or by commands that can be undone. GUI
/// thread.
class ILayoutEntry
{
public:
    virtual ~ILayoutEntry() = default;

    /// Called for each new cabinet; its parent is the item that membersParent() returned.
    virtual void enterCabinet(CGraphicsCabinetItem &cabinet) = 0;
    /// Returns the item that becomes the parent of the members of @p group.
    virtual QGraphicsItem &membersParent(CGraphicsGroupItem &group, CGraphicsPortItem &port) = 0;
    /// Called when all @p members of @p group have entered.
    virtual void enterGroup(CGraphicsGroupItem &group, const QVector<CGraphicsItemBase *> &members) = 0;
    /// Appends @p cabinets to the chain of @p port.
    virtual void wire(CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets) = 0;
};
