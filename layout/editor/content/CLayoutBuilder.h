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
/// chain by rank. Identities that are missing or given twice are replaced by new ones, and sizes of nothing
/// are mended.
class CLayoutBuilder final
{
public:
    using Port = CabinetLayout::CabinetPort;

    /// New items are numbered from @p firstOrdinal on, in the order of their records, so that they can be
    /// read back in that order.
    CLayoutBuilder(IItemIndex &items, ILayoutEntry &entry, qint64 firstOrdinal)
        : m_items(items)
        , m_entry(entry)
        , m_ordinal(firstOrdinal)
    {
    }

    ~CLayoutBuilder(); ///< logs how many records had to be mended
    Q_DISABLE_COPY(CLayoutBuilder)

    /// Returns @p record without groups that hold no cabinet: such a group would be an invisible item.
    static Port withoutEmptyGroups(const Port &record);

    /// Adds the content of @p record to @p port; its ranked cabinets continue the port's chain. Returns the
    /// new items that are direct children of the port.
    QVector<CGraphicsItemBase *> fill(CGraphicsPortItem &port, const Port &record);

    qint64 nextOrdinal() const { return m_ordinal; }

private:
    using Group = Port::CabinetGroup;
    using Items = QVector<CGraphicsItemBase *>;

    CGraphicsGroupItem *addGroup(CGraphicsPortItem &port, const Group &record, QGraphicsItem &parent);
    void addMembers(CGraphicsPortItem &port, const Group &record, QGraphicsItem &parent, Items &members);
    void enter(CGraphicsItemBase &item);
    void mend(Port::Cabinet &cabinet);
    void wire(CGraphicsPortItem &port);

    IItemIndex &m_items;
    ILayoutEntry &m_entry;
    qint64 m_ordinal;
    int m_mended = 0;                                     // records with sizes that no arithmetic can use
    QVector<QPair<int, CGraphicsCabinetItem *>> m_ranked; // of the port that is being filled
};
