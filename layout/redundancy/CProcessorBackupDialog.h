// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/redundancy/CBackupDialog.h"

class CProcessorBackupTable;

/// Pairs processors: one takes over if the other fails. GUI thread.
class CProcessorBackupDialog final : public CBackupDialog
{
    Q_OBJECT

public:
    explicit CProcessorBackupDialog(QWidget *parent = nullptr);

protected:
    QList<SBackupEntry> readEntries() override;
    QList<SBackupPair> readPairs() override;
    bool confirm(const QList<SBackupPair> &pairs) override;
    QString apply(const QList<SBackupPair> &pairs) override;

private:
    CProcessorBackupDialog(CProcessorBackupTable *table, QWidget *parent);

    CProcessorBackupTable *m_processorTable = nullptr;
    QList<QUuid> m_keys; ///< of the processors in the list
};
