// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/operations/CSceneOperations.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/operations/CTopologyWiring.h"
#include "layout/editor/recording/CGroupEditing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/recording/CWiringRecorder.h"
#include "layout/editor/undo/CChangeReceiversCommand.h"
#include "layout/editor/undo/CMoveCommand.h"
#include "layout/geometry/CReceiverAreas.h"
#include "layout/geometry/CSnakeOrder.h"

#include <algorithm>

namespace {

/// The new position of an item, in scene coordinates.
QPointF nudged(const QPointF &place, const QPointF &step)
{
    const QPointF wanted = place + step;
    return QPointF(step.x() < 0 ? std::max(wanted.x(), 0.0) : wanted.x(),
                   step.y() < 0 ? std::max(wanted.y(), 0.0) : wanted.y());
}

/// How deep groups are nested in @p group, itself included.
int levelsOf(const CGraphicsGroupItem &group)
{
    int below = 0;
    for (const CGraphicsItemBase *member : group.members()) {
        if (member->type() == GroupItemKind)
            below = std::max(below, levelsOf(*static_cast<const CGraphicsGroupItem *>(member)));
    }
    return below + 1;
}

} // namespace

QVector<CGraphicsPortItem *> CSceneOperations::ports() const
{
    QVector<CGraphicsPortItem *> items;
    for (const int index : m_selection.ports())
        items << m_content.portItem(index);
    return items;
}

void CSceneOperations::wireByPattern(uint pattern)
{
    m_editing.cancelGesture();
    if (pattern >= uint(CSnakeOrder::PatternCount) || CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("topologyWiring"));
    for (const auto &selected : m_selection.cabinetsByPort()) {
        CGraphicsPortItem &port = *selected.first()->portItem();
        CWiringRecorder::rechain(m_recorder, port,
                                 CTopologyWiring::chainByPattern(port, selected, int(pattern)));
    }
}

void CSceneOperations::breakSelectedWiring()
{
    m_editing.cancelGesture();
    if (CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("breakSelectedWiring"));
    for (const auto &selected : m_selection.cabinetsByPort())
        CWiringRecorder::takeOut(m_recorder, *selected.first()->portItem(), selected);
}

void CSceneOperations::breakPortWiring(int port)
{
    m_editing.cancelGesture();
    if (isRefused(port))
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("BreakPortWiring"));
    CWiringRecorder::rechain(m_recorder, *m_content.portItem(port), {});
}

bool CSceneOperations::isRefused(int port) const
{
    const CGraphicsPortItem *item = m_content.portItem(port);
    return !item || CRefusal::isTold(m_editing, item);
}

void CSceneOperations::group()
{
    m_editing.cancelGesture();
    if (CRefusal::isTold(m_editing, m_selection.closedPort()) || !m_selection.canGroup())
        return;
    const QVector<CGraphicsGroupItem *> groups = m_selection.groups();
    if (std::any_of(groups.begin(), groups.end(), [](const CGraphicsGroupItem *group) {
            return levelsOf(*group) >= LayoutLimits::GroupLevels;
        })) {
        m_editing.tell(tr("Groups can be nested in at most %1 levels.").arg(LayoutLimits::GroupLevels));
        return;
    }
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("Group"));
    CGroupEditing(m_recorder).group(*ports().first(), m_selection.sorted(), m_content.takeOrdinal());
}

void CSceneOperations::ungroup()
{
    m_editing.cancelGesture();
    if (CRefusal::isTold(m_editing, m_selection.closedPort()) || !m_selection.canBreakGroup())
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("Ungroup"));
    CGroupEditing editing(m_recorder);
    for (CGraphicsGroupItem *group : m_selection.groups())
        editing.ungroup(*group);
}

void CSceneOperations::remove()
{
    m_editing.cancelGesture();
    if (CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("Delete"));
    CGroupEditing editing(m_recorder);
    const QVector<QVector<CGraphicsCabinetItem *>> doomed = m_selection.cabinetsByPort();
    for (const auto &cabinets : doomed)
        editing.remove(*cabinets.first()->portItem(), cabinets);
}

void CSceneOperations::nudge(const QPointF &step, bool again)
{
    m_editing.cancelGesture();
    if (CRefusal::isTold(m_editing, m_selection.closedPort()))
        return;
    const CEditBatch batch(m_editing);
    CUndoMacro macro(m_recorder, QStringLiteral("ChangePosition"), QStringLiteral("Move"));
    if (again && m_nudged == m_recorder.stepCount())
        macro.goOn();
    int atEdge = 0;
    for (CGraphicsItemBase *item : m_selection.sorted()) {
        const QPointF place = item->scenePlace();
        const QPointF target = nudged(place, step);
        if (target != place)
            m_recorder.record<CMoveCommand>(*item, place, target);
        else
            atEdge += item->concernedCabinets().size();
    }
    m_nudged = m_recorder.nextStepCount();
    if (atEdge > 0)
        m_editing.tell(atEdge == 1 ? tr("1 cabinet stands at the edge.")
                                   : tr("%1 cabinets stand at the edge.").arg(atEdge));
}

void CSceneOperations::exchangeReceivers(const QUuid &cabinet)
{
    CGraphicsItemBase *item = m_content.editedItem(cabinet);
    const CGraphicsPortItem *port = item ? item->portItem() : nullptr;
    if (!port || item->cabinet().directionFixed || item->cabinet().rects.size() < 2 ||
        CRefusal::isTold(m_editing, port))
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("ChangeRank"), QStringLiteral("Head-to-tail exchange"));
    auto reversed = item->cabinet();
    CReceiverAreas::reverse(reversed);
    m_recorder.record<CChangeReceiversCommand>(*item, QVariant::fromValue(item->cabinet()),
                                               QVariant::fromValue(reversed));
}

void CSceneOperations::prepareBackup(int port)
{
    m_editing.cancelGesture(); // the state of ports has changed
    CGraphicsPortItem *item = m_content.portItem(port);
    if (!item || item->isLocked())
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(m_recorder, QStringLiteral("Backup"));
    CGroupEditing editing(m_recorder);
    for (CGraphicsGroupItem *group : item->groups(true))
        editing.ungroupAll(*group);
    CWiringRecorder::rechain(m_recorder, *item, {});
}
