// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/redundancy/CBackupDialog.h"
#include "layout/redundancy/CPortBackupTable.h"

#include <QSet>
#include <QStringList>

/// Pairs output ports, of one processor or of two: one takes over the signal if the other fails. GUI thread.
class CPortBackupDialog final : public CBackupDialog
{
    Q_OBJECT

public:
    explicit CPortBackupDialog(QWidget *parent = nullptr);

    /// Asks whether ports that hold cabinets may become redundancy ports, which removes their grouping and
    /// wiring. @p ports are their names; if empty, returns true without asking.
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
    QHash<QUuid, CPortBackupTable::SPort> m_ports; ///< by the key of the entry
    QHash<QUuid, QString> m_names;
    QList<QUuid> m_processors;
};
