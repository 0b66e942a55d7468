// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QMenu>
#include <QUuid>

class CDeviceManager;
enum class SimulationFault : int;

/// The faults and states that the selected processor can be told to show. GUI thread.
class CSimulationMenu final : public QMenu
{
    Q_OBJECT

public:
    explicit CSimulationMenu(CDeviceManager &manager, QWidget *parent = nullptr);

    /// The processor that the menu is about; null, or a project: the entries are disabled.
    void setProcessor(const QUuid &processor);

private:
    void createActions();
    void updateActions();
    void clearFaults();

    CDeviceManager &m_manager;
    QUuid m_processor;
    QHash<QAction *, SimulationFault> m_faults;
    QAction *m_clear = nullptr;
};
