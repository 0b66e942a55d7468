// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/redundancy/CBackupDialog.h"
#include "layout/redundancy/CPortBackupTable.h"

#include <QSet>
#include <QStringList>

/// Pairs output ports, of which one carries the signal of the other when that fails, on one processor or
/// across two. GUI thread.
class CPortBackupDialog final : public CBackupDialog
{
    Q_OBJECT

public:
    explicit CPortBackupDialog(QWidget *parent = nullptr);

    /// Asks whether ports that hold cabinets may become redundancy ports, and so lose grouping and wiring;
    /// true without asking when @p ports, their names, are none.
    static bool mayDissolve(QWidget *parent, const QStringList &ports);

protected:
    QList<SBackupEntry> readEntries() override;
    QList<SBackupPair> readPairs() override;
    bool confirm(const QList<SBackupPair> &pairs) override;
    QString apply(const QList<SBackupPair> &pairs) override;

private:
    CPortBackupDialog(CPortBackupTable *table, QWidget *parent);
    void readPorts(const ProcessorTree::ProcessorNode &processor, const QSet<SPortKey> &redundancies,
                   QList<SBackupEntry> &entries);

    CPortBackupTable *m_portTable = nullptr;
    QHash<QUuid, CPortBackupTable::SPort> m_ports; ///< by the keys of their entries
    QHash<QUuid, QString> m_names;
    QList<QUuid> m_processors;
};
