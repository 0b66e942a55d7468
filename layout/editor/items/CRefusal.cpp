// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CRefusal.h"

#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditing.h"

QString CRefusal::reason(const CGraphicsPortItem *port)
{
    if (!port || !port->isClosed())
        return {};
    return port->isLocked() ? tr("Port %1 is locked.").arg(port->port() + 1)
                            : tr("Port %1 is a redundancy port.").arg(port->port() + 1);
}

bool CRefusal::isTold(IEditing &editing, const CGraphicsPortItem *port)
{
    const QString words = reason(port);
    if (words.isEmpty())
        return false;
    editing.tell(words);
    return true;
}
