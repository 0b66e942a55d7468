// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QUuid>
#include <QVector>

class CGraphicsItemBase;
class CGraphicsPortItem;

/// Finds the items of a scene: ports by index, cabinets and groups by identity. GUI thread.
class IItemIndex
{
public:
    virtual ~IItemIndex() = default;

    /// In ascending port index.
    virtual const QVector<CGraphicsPortItem *> &portItems() const = 0;
    /// The port item with that index, or null.
    virtual CGraphicsPortItem *portItem(int port) const = 0;
    /// The cabinet or group with that identity, or null. O(1).
    virtual CGraphicsItemBase *editedItem(const QUuid &uuid) const = 0;

    /// Registers a cabinet or group that was added to the scene.
    virtual void enterEdited(CGraphicsItemBase &item) = 0;
    /// Registers a new cabinet or group; if its identity is taken, it gets another one.
    virtual void enterNew(CGraphicsItemBase &item) = 0;
    /// Deselects and unregisters an item that is about to leave the scene, and removes its highlight.
    virtual void leaveEdited(CGraphicsItemBase &item) = 0;
};
