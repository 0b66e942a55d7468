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
        int cabinets = 0;                        ///< in all
        QVector<PortPairs::Port::Cabinet> wired; ///< as PortPairs::mirrorOf() gives them
    };

    explicit CPortBackupTable(QWidget *parent = nullptr);

    void setPorts(const QHash<QUuid, SPort> &ports) { m_ports = ports; }

protected:
    /// A port with wired cabinets, and one of the same processor that holds the same or, less well, none.
    int fitness(const QUuid &primary, const QUuid &redundancy) const override;

private:
    QHash<QUuid, SPort> m_ports;
};
