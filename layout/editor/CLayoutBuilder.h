// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/CabinetLayout.h"

#include <QHash>
#include <QSet>

class CCabinetGraphicsScene;
class CGraphicsItemBase;
class CGraphicsPortItem;
class CGraphicsCabinetItem;
class IPortStates;
class QGraphicsItem;

/// Builds a port's items from its record: cabinets in their places, the chain by rank, groups around their
/// members. Identities that are missing or taken are replaced by new ones.
class CLayoutBuilder final
{
public:
    /// Items are entered in @p index; those in @p selected are to be selected by the caller, see toSelect().
    CLayoutBuilder(QHash<QUuid, CGraphicsItemBase *> &index, const QSet<QUuid> &selected)
        : m_index(index)
        , m_selected(selected)
    {
    }

    /// The port item with all its children; owned by the caller, not in a scene yet.
    CGraphicsPortItem *build(const CabinetLayout::CabinetPort &record, const IPortStates &states);

    const QVector<CGraphicsItemBase *> &toSelect() const { return m_toSelect; }

private:
    using Group = CabinetLayout::CabinetPort::CabinetGroup;

    void buildGroup(const Group &record, QGraphicsItem &parent);
    void buildMembers(const Group &record, QGraphicsItem &parent);
    void enter(CGraphicsItemBase &item);
    void wire(CGraphicsPortItem &port);

    QHash<QUuid, CGraphicsItemBase *> &m_index;
    const QSet<QUuid> &m_selected;
    QVector<CGraphicsItemBase *> m_toSelect;
    QVector<QPair<int, CGraphicsCabinetItem *>> m_ranked; // of the port that is being built
    qint64 m_ordinal = 0;
};
