// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PortPairs.h"

#include <QHash>
#include <QMenu>
#include <QSet>
#include <QUuid>

class CDeviceManager;
enum class SimulationFault : int;

/// The menu of faults and states that can be simulated for the selected processor. GUI thread.
class CSimulationMenu final : public QMenu
{
    Q_OBJECT

public:
    explicit CSimulationMenu(CDeviceManager &manager, QWidget *parent = nullptr);

    /// Sets the processor of the menu; for null or a project, the entries are disabled.
    void setProcessor(const QUuid &processor);

Q_SIGNALS:
    /// The output ports whose cables are pulled, of all processors.
    void notifyUnpluggedChanged(const QSet<SPortKey> &ports);

private:
    void createActions();
    void simulate(SimulationFault fault, bool on);
    void addPorts();
    void fillPorts();
    void setUnplugged(int port, bool unplugged);
    void updateActions();
    void clearFaults();

    CDeviceManager &m_manager;
    QUuid m_processor;
    QHash<QAction *, SimulationFault> m_faults;
    QMenu *m_ports = nullptr;
    QSet<SPortKey> m_unplugged;
    QAction *m_clear = nullptr;
};
