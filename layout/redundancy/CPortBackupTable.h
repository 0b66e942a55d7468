// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PortPairs.h"
#include "layout/redundancy/CBackupTable.h"

/// The table that pairs output ports. GUI thread.
class CPortBackupTable final : public CBackupTable
{
    Q_OBJECT

public:
    /// A port behind an entry.
    struct SPort
    {
        SPortKey key;
        int cabinets = 0;                        ///< wired or not
        QVector<PortPairs::Port::Cabinet> wired; ///< see PortPairs::mirrorOf()
    };

    explicit CPortBackupTable(QWidget *parent = nullptr);

    void setPorts(const QHash<QUuid, SPort> &ports) { m_ports = ports; }

protected:
    /// A port with wired cabinets fits one of the same processor that has the same cabinets or, second best,
    /// none.
    int fitness(const QUuid &primary, const QUuid &redundancy) const override;

private:
    QHash<QUuid, SPort> m_ports;
};
