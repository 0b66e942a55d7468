// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/CabinetLayout.h"

#include <QList>
#include <QSet>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;

/// Keeps what is selected in the scene, so that nobody has to walk or copy Qt's own list. GUI thread.
class CSceneSelection final
{
public:
    void note(CGraphicsItemBase &item, bool selected);
    void clear() { m_items.clear(); }

    int count() const { return m_items.size(); }
    bool isEmpty() const { return m_items.isEmpty(); }
    const QSet<CGraphicsItemBase *> &items() const { return m_items; }
    /// In the order of their records, so that results never depend on the order of selecting.
    QVector<CGraphicsItemBase *> sorted() const;
    QVector<CGraphicsGroupItem *> groups() const; ///< the selected groups, sorted

    /// The selected cabinets, those of selected groups included, each once, sorted; in one list
    /// or in one a port.
    QVector<CGraphicsCabinetItem *> cabinets() const;
    QVector<QVector<CGraphicsCabinetItem *>> cabinetsByPort() const;

    QList<int> ports() const; ///< that hold selected items, ascending
    QList<QUuid> uuids() const;
    QList<CabinetLayout::CabinetPort::Cabinet> records() const;

    /// Two or more items that lie directly in one port, which is not locked.
    bool canGroup() const;
    /// A selected group, and no port with a selected item is locked.
    bool canBreakGroup() const;
    /// Whether any port that holds a selected item is locked.
    bool touchesLockedPort() const;

private:
    QSet<CGraphicsPortItem *> portItems() const;

    QSet<CGraphicsItemBase *> m_items;
};
