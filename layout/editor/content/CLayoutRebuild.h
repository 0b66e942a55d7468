// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;
class CUndoRecorder;
class IEditorScene;

/// Empties ports and fills them from records, as commands that can be undone.
class CLayoutRebuild final
{
public:
    /// New items stand from @p firstOrdinal on.
    CLayoutRebuild(IEditorScene &scene, CUndoRecorder &recorder, qint64 firstOrdinal)
        : m_scene(scene)
        , m_recorder(recorder)
        , m_ordinal(firstOrdinal)
    {
    }

    /// Empties @p port: wiring, groups, cabinets.
    void empty(CGraphicsPortItem &port);
    /// Adds the cabinets, groups and wiring of @p record to @p port, whose chain they continue. An identity
    /// that is missing or that another item of the scene has is replaced by a new one. Gives the new items
    /// that lie in the port directly.
    QVector<CGraphicsItemBase *> fill(CGraphicsPortItem &port, const CabinetLayout::CabinetPort &record);

    qint64 nextOrdinal() const { return m_ordinal; }

private:
    using Group = CabinetLayout::CabinetPort::CabinetGroup;

    CGraphicsGroupItem *fillGroup(CGraphicsPortItem &port, const Group &record);
    void fillMembers(CGraphicsPortItem &port, const Group &record, QVector<CGraphicsItemBase *> &members);
    QUuid freeIdentity(const QUuid &uuid) const;

    IEditorScene &m_scene;
    CUndoRecorder &m_recorder;
    qint64 m_ordinal;
    QVector<QPair<int, CGraphicsCabinetItem *>> m_ranked; // of the port that is being filled
};
