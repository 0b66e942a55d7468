// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CRefusal.h"

#include "layout/api/records/EditRefusal.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditing.h"

QString CRefusal::reason(const CGraphicsPortItem *port)
{
    if (!port)
        return {};
    return EditRefusal::ofPort(port->port(), port->isLocked(), port->isClosed());
}

bool CRefusal::isTold(IEditing &editing, const CGraphicsPortItem *port)
{
    const QString words = reason(port);
    if (words.isEmpty())
        return false;
    editing.tell(words);
    return true;
}
