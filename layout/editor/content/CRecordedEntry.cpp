// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CRecordedEntry.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/recording/CWiringRecorder.h"
#include "layout/editor/recording/ItemFactories.h"
#include "layout/editor/undo/CAppendCommand.h"
#include "layout/editor/undo/CCreateGroupCommand.h"

void CRecordedEntry::enterCabinet(CGraphicsCabinetItem &cabinet)
{
    m_recorder.recordWith<CAppendCommand>(cabinet, ItemFactories::existingFirst(cabinet));
}

/// First the members, directly in the port, then the group around them: in this order every step finds what
/// it needs, in undo and in redo.
QGraphicsItem &CRecordedEntry::membersParent(CGraphicsGroupItem &, CGraphicsPortItem &port)
{
    return port;
}

void CRecordedEntry::enterGroup(CGraphicsGroupItem &group, const QVector<CGraphicsItemBase *> &members)
{
    group.gather(members);
    m_recorder.recordWith<CCreateGroupCommand>(group, ItemFactories::existingFirst(group));
}

void CRecordedEntry::wire(CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets)
{
    CWiringRecorder::rechain(m_recorder, port, port.chain().order() + cabinets);
}
