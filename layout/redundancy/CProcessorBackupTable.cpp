// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/CProcessorBackupTable.h"

#include "layout/redundancy/CBackupTableView.h"
#include "layout/redundancy/CProcessorBackupDelegate.h"

CProcessorBackupTable::CProcessorBackupTable(QWidget *parent)
    : CBackupTable([](CBackupTableView &view) { return new CProcessorBackupDelegate(view); },
                   tr("No processor"), parent)
{
}

void CProcessorBackupTable::setProcessors(const QList<ProcessorTree::ProcessorNode> &processors)
{
    m_processors.clear();
    for (const ProcessorTree::ProcessorNode &processor : processors)
        m_processors.insert(processor.uuid, processor);
}

int CProcessorBackupTable::fitness(const QUuid &primary, const QUuid &redundancy) const
{
    const ProcessorTree::ProcessorNode first = m_processors.value(primary);
    const ProcessorTree::ProcessorNode second = m_processors.value(redundancy);
    return first.model == second.model && first.online == second.online ? 1 : 0;
}
