// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CEditBatches.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

void CEditBatches::endBatch()
{
    while (m_depth == 1 && !m_pending.isEmpty())
        m_finish(std::exchange(m_pending, CPendingEdits())); // receivers of its signals may edit, too
    --m_depth;
}

void CEditBatches::noteCabinetMoved(CGraphicsCabinetItem &cabinet)
{
    const CEditBatch batch(*this);
    if (CGraphicsGroupItem *group = cabinet.groupItem())
        m_pending.noteMembersChanged(*group);
    if (CGraphicsPortItem *port = cabinet.portItem()) {
        port->chain().noteMoved(cabinet);
        port->noteChanged();
    }
    if (!m_pending.isSelectedMoved() && cabinet.isSelectedWithGroups())
        m_pending.noteSelectedMoved();
}

void CEditBatches::noteMembersChanged(CGraphicsGroupItem &group)
{
    const CEditBatch batch(*this);
    m_pending.noteMembersChanged(group);
    if (CGraphicsPortItem *port = group.portItem())
        port->noteChanged();
}

void CEditBatches::notePortChanged(const CGraphicsPortItem &port)
{
    const CEditBatch batch(*this);
    m_pending.notePortChanged(port);
}

void CEditBatches::noteSelection()
{
    const CEditBatch batch(*this);
    m_pending.noteSelection();
}

bool CEditBatches::noteRepaint()
{
    const CEditBatch batch(*this);
    const bool first = !m_pending.isRepaint();
    m_pending.noteRepaint();
    return first;
}

void CEditBatches::noteHighlight()
{
    const CEditBatch batch(*this);
    m_pending.noteHighlight();
}
