// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CPortBackupTable.h"

#include "layout/redundancy/CBackupTableView.h"
#include "layout/redundancy/CPortBackupDelegate.h"

CPortBackupTable::CPortBackupTable(QWidget *parent)
    : CBackupTable([](CBackupTableView &view) { return new CPortBackupDelegate(view); }, tr("No output port"),
                   parent)
{
}

int CPortBackupTable::fitness(const QUuid &primary, const QUuid &redundancy) const
{
    const auto first = m_ports.constFind(primary);
    const auto second = m_ports.constFind(redundancy);
    if (first == m_ports.constEnd() || second == m_ports.constEnd() || first->wired.isEmpty() ||
        first->key.processor != second->key.processor)
        return 0;
    if (second->cabinets == 0)
        return 1;
    return PortPairs::agree(first->wired, second->wired) ? 2 : 0;
}
