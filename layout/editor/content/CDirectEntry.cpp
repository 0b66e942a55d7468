// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CDirectEntry.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

QGraphicsItem &CDirectEntry::membersParent(CGraphicsGroupItem &group, CGraphicsPortItem &)
{
    return group;
}

void CDirectEntry::wire(CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets)
{
    port.chain().reserve(cabinets.size());
    for (CGraphicsCabinetItem *cabinet : cabinets)
        port.chain().append(*cabinet);
}
