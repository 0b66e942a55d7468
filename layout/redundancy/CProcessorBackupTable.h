// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/redundancy/CBackupTable.h"

/// The table that pairs processors. GUI thread.
class CProcessorBackupTable final : public CBackupTable
{
    Q_OBJECT

public:
    explicit CProcessorBackupTable(QWidget *parent = nullptr);

    /// The processors behind the entries.
    void setProcessors(const QList<ProcessorTree::ProcessorNode> &processors);
    ProcessorTree::ProcessorNode processor(const QUuid &key) const { return m_processors.value(key); }

protected:
    /// Processors fit if they are of one kind and both online or both offline.
    int fitness(const QUuid &primary, const QUuid &redundancy) const override;

private:
    QHash<QUuid, ProcessorTree::ProcessorNode> m_processors;
};
