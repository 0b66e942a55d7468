// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QPair>

class CGraphicsItemBase;
class CGraphicsPortItem;
class CGraphicsCabinetItem;
class IEditorScene;
class IPortStates;
class QGraphicsItem;

/// Builds a port's items from its record and makes them known to the scene: cabinets in their places, the
/// chain by rank, groups around their members. Identities that are missing or given twice are replaced by new
/// ones.
class CLayoutBuilder final
{
public:
    /// Items of a port read back in the order of their records, from @p firstOrdinal on.
    CLayoutBuilder(IEditorScene &scene, const IPortStates &states, qint64 firstOrdinal)
        : m_scene(scene)
        , m_states(states)
        , m_ordinal(firstOrdinal)
    {
    }

    /// @p record as it can be shown: a group without cabinets would be an item that nobody sees.
    static CabinetLayout::CabinetPort withoutEmptyGroups(const CabinetLayout::CabinetPort &record);

    /// The port item with all its children; owned by the caller, not in a scene yet.
    CGraphicsPortItem *build(const CabinetLayout::CabinetPort &record);

    qint64 nextOrdinal() const { return m_ordinal; }

private:
    using Group = CabinetLayout::CabinetPort::CabinetGroup;

    void buildGroup(const Group &record, QGraphicsItem &parent);
    void buildMembers(const Group &record, QGraphicsItem &parent);
    QUuid freeIdentity(const QUuid &uuid) const;
    void enter(CGraphicsItemBase &item);
    void wire(CGraphicsPortItem &port);

    IEditorScene &m_scene;
    const IPortStates &m_states;
    qint64 m_ordinal;
    QVector<QPair<int, CGraphicsCabinetItem *>> m_ranked; // of the port that is being built
};
