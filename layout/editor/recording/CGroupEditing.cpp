// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/recording/CGroupEditing.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/recording/CWiringRecorder.h"
#include "layout/editor/recording/ItemFactories.h"
#include "layout/editor/undo/CBreakGroupCommand.h"
#include "layout/editor/undo/CCreateGroupCommand.h"
#include "layout/editor/undo/CRemoveCommand.h"

#include <QSet>

namespace {

/// Whether every cabinet below @p group is in @p leaving.
bool losesAllMembers(const CGraphicsGroupItem &group, const QSet<CGraphicsCabinetItem *> &leaving)
{
    const QVector<CGraphicsCabinetItem *> members = group.cabinets();
    return std::all_of(members.begin(), members.end(),
                       [&leaving](CGraphicsCabinetItem *member) { return leaving.contains(member); });
}

} // namespace

void CGroupEditing::group(CGraphicsPortItem &port, const QVector<CGraphicsItemBase *> &members,
                          qint64 ordinal)
{
    auto *group = new CGraphicsGroupItem(QUuid(), QRectF(), &port);
    group->setOrdinal(ordinal);
    group->gather(members);
    port.editor().items().enterEdited(*group);
    m_recorder.recordWith<CCreateGroupCommand>(*group, ItemFactories::existingFirst(*group));
}

void CGroupEditing::ungroup(CGraphicsGroupItem &group)
{
    m_recorder.recordWith<CBreakGroupCommand>(group, ItemFactories::anew(group));
}

void CGroupEditing::ungroupAll(CGraphicsGroupItem &group)
{
    const QVector<CGraphicsItemBase *> members = group.members();
    ungroup(group);
    for (CGraphicsItemBase *member : members) {
        if (member->type() == GroupItemKind)
            ungroupAll(static_cast<CGraphicsGroupItem &>(*member));
    }
}

void CGroupEditing::empty(CGraphicsPortItem &port)
{
    for (CGraphicsGroupItem *group : port.groups(true))
        ungroupAll(*group);
    remove(port, port.cabinets(nullptr));
}

void CGroupEditing::remove(CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets)
{
    CWiringRecorder::takeOut(m_recorder, port, cabinets);
    // Outer groups first, so that undo restores inner groups before the groups that contain them.
    const QSet<CGraphicsCabinetItem *> leaving(cabinets.begin(), cabinets.end());
    QSet<CGraphicsGroupItem *> touched;
    for (const CGraphicsCabinetItem *cabinet : cabinets) {
        for (CGraphicsGroupItem *group = cabinet->groupItem(); group; group = group->groupItem())
            touched.insert(group);
    }
    for (CGraphicsGroupItem *group : port.groups(false)) {
        if (touched.contains(group) && losesAllMembers(*group, leaving))
            ungroup(*group);
    }
    for (CGraphicsCabinetItem *cabinet : cabinets)
        m_recorder.recordWith<CRemoveCommand>(*cabinet, ItemFactories::anew(*cabinet));
}
