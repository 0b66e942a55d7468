// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CLayoutRebuild.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/recording/CGroupEditing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/recording/CWiringRecorder.h"
#include "layout/editor/recording/ItemFactories.h"
#include "layout/editor/undo/CAppendCommand.h"
#include "layout/editor/undo/CCreateGroupCommand.h"

#include <algorithm>

void CLayoutRebuild::empty(CGraphicsPortItem &port)
{
    CGroupEditing editing(m_recorder);
    for (CGraphicsGroupItem *group : port.groups(true))
        editing.ungroupAll(*group);
    editing.remove(port, port.cabinets(nullptr));
}

QVector<CGraphicsItemBase *> CLayoutRebuild::fill(CGraphicsPortItem &port,
                                                  const CabinetLayout::CabinetPort &record)
{
    m_ranked.clear();
    QVector<CGraphicsItemBase *> items;
    for (const Group &group : record.groups) {
        if (group.isLoose())
            fillMembers(port, group, items);
        else
            items << fillGroup(port, group);
    }
    std::stable_sort(m_ranked.begin(), m_ranked.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    QVector<CGraphicsCabinetItem *> chain = port.chain().order();
    for (const auto &ranked : qAsConst(m_ranked))
        chain << ranked.second;
    CWiringRecorder::rechain(m_recorder, port, chain);
    return items;
}

void CLayoutRebuild::fillMembers(CGraphicsPortItem &port, const Group &record,
                                 QVector<CGraphicsItemBase *> &members)
{
    for (const auto &cabinetRecord : record.cabinets) {
        auto cabinet = cabinetRecord;
        cabinet.uuid = freeIdentity(cabinet.uuid);
        cabinet.group = QUuid();
        auto *item = new CGraphicsCabinetItem(cabinet, &port);
        item->setOrdinal(m_ordinal++);
        m_scene.enterEdited(*item);
        auto command = std::make_unique<CAppendCommand>(item);
        command->setFactory(ItemFactories::existingFirst(*item));
        m_recorder.push(std::move(command));
        members << item;
        if (cabinet.rank >= 0)
            m_ranked << qMakePair(cabinet.rank, item);
    }
    for (const Group &child : record.groups)
        members << fillGroup(port, child);
}

/// The members first, directly in the port, then the group around them: undone in turn, and redone, every
/// step finds what it needs.
CGraphicsGroupItem *CLayoutRebuild::fillGroup(CGraphicsPortItem &port, const Group &record)
{
    const qint64 ordinal = m_ordinal++;
    QVector<CGraphicsItemBase *> members;
    fillMembers(port, record, members);
    auto *group = new CGraphicsGroupItem(freeIdentity(record.uuid), QRectF(), &port);
    group->setName(record.name);
    group->setOrdinal(ordinal);
    group->gather(members);
    m_scene.enterEdited(*group);
    auto command = std::make_unique<CCreateGroupCommand>(group);
    command->setFactory(ItemFactories::existingFirst(*group));
    m_recorder.push(std::move(command));
    return group;
}

QUuid CLayoutRebuild::freeIdentity(const QUuid &uuid) const
{
    return uuid.isNull() || m_scene.editedItem(uuid) ? QUuid::createUuid() : uuid;
}
