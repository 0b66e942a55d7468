// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QPair>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;
class IItemIndex;
class ILayoutEntry;
class QGraphicsItem;

/// Makes the items of a port from its record: cabinets in their places, groups around their members, the
/// chain by rank. Identities that are missing or given twice are replaced by new ones.
class CLayoutBuilder final
{
public:
    using Port = CabinetLayout::CabinetPort;

    /// Items of a port are read back in the order of their records, from @p firstOrdinal on.
    CLayoutBuilder(IItemIndex &items, ILayoutEntry &entry, qint64 firstOrdinal)
        : m_items(items)
        , m_entry(entry)
        , m_ordinal(firstOrdinal)
    {
    }

    /// @p record as it can be shown: a group without cabinets would be an item that nobody sees.
    static Port withoutEmptyGroups(const Port &record);

    /// Adds what @p record holds to @p port, whose chain its ranked cabinets continue. Returns the new items
    /// that lie in the port directly.
    QVector<CGraphicsItemBase *> fill(CGraphicsPortItem &port, const Port &record);

    qint64 nextOrdinal() const { return m_ordinal; }

private:
    using Group = Port::CabinetGroup;
    using Items = QVector<CGraphicsItemBase *>;

    CGraphicsGroupItem *addGroup(CGraphicsPortItem &port, const Group &record, QGraphicsItem &parent);
    void addMembers(CGraphicsPortItem &port, const Group &record, QGraphicsItem &parent, Items &members);
    void enter(CGraphicsItemBase &item);
    QUuid freeIdentity(const QUuid &uuid) const;
    void wire(CGraphicsPortItem &port);

    IItemIndex &m_items;
    ILayoutEntry &m_entry;
    qint64 m_ordinal;
    QVector<QPair<int, CGraphicsCabinetItem *>> m_ranked; // of the port that is being filled
};
