// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/geometry/SSelectionFigures.h"

#include <QList>
#include <QMap>
#include <QSet>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;

/// Keeps which items are selected, so that nobody has to walk or copy Qt's own list. GUI thread.
class CSceneSelection final
{
public:
    void note(CGraphicsItemBase &item, bool selected);

    int count() const { return m_count; }
    int count(int port) const; ///< of a port
    bool isEmpty() const { return m_count == 0; }
    QSet<CGraphicsItemBase *> items() const;
    /// Selected items in the order of their records, so that results never depend on the order of selecting.
    QVector<CGraphicsItemBase *> sorted() const;
    QVector<CGraphicsGroupItem *> groups() const; ///< the selected groups, sorted

    /// The selected cabinets and those in selected groups, each once, sorted; as one list, or as one list per
    /// port.
    QVector<CGraphicsCabinetItem *> cabinets() const;
    QVector<QVector<CGraphicsCabinetItem *>> cabinetsByPort() const;

    QList<int> ports() const { return m_items.keys(); } ///< that hold selected items, ascending
    QVector<QUuid> uuids() const;                       ///< shared until the selection changes
    QList<CabinetLayout::CabinetPort::Cabinet> records() const;
    SSelectionFigures figures() const;
    QRect extent() const; ///< of all selected items, canvas pixels; empty if nothing is selected

    /// Raises the ports among @p ports that hold selected items above the others.
    void raise(const QVector<CGraphicsPortItem *> &ports) const;

    /// Whether two or more items are selected, all direct children of one port that accepts edits.
    bool canGroup() const;
    /// Whether a group is selected, and no port with a selected item refuses edits.
    bool canBreakGroup() const;
    /// Whether any port that holds a selected item refuses edits.
    bool touchesClosedPort() const { return closedPort() != nullptr; }
    const CGraphicsPortItem *closedPort() const; ///< the first of these ports, or null

private:
    const CGraphicsPortItem *wholePort(const QVector<CGraphicsItemBase *> &items) const;
    void count(const CGraphicsItemBase &item, int change);

    QMap<int, QVector<CGraphicsItemBase *>> m_items; // by port; none is empty
    int m_count = 0;
    int m_groupCount = 0;
    mutable QVector<QUuid> m_uuids; // empty if not made yet
};
