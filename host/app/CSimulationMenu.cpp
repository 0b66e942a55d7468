// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CSimulationMenu.h"

#include "host/devices/CDeviceManager.h"
#include "host/devices/simulated/ProcessorStates.h"
#include "platform/widgets/CMessageBox.h"

#include <QAction>
#include <QCoreApplication>

#include <algorithm>

CSimulationMenu::CSimulationMenu(CDeviceManager &manager, QWidget *parent)
    : QMenu(tr("&Simulation"), parent)
    , m_manager(manager)
{
    createActions();
    connect(this, &QMenu::aboutToShow, this, &CSimulationMenu::updateActions);
    updateActions();
}

void CSimulationMenu::createActions()
{
    setToolTipsVisible(true);
    for (const SSimulationFault &fault : SSimulationFault::all()) {
        if (fault.fault == SimulationFault::Bypass)
            addSeparator(); // states follow
        QAction *action = addAction(QCoreApplication::translate("SSimulationFault", fault.title));
        action->setObjectName(QStringLiteral("Simulate.") + QLatin1String(fault.name));
        action->setCheckable(true);
        m_faults.insert(action, fault.fault);
        connect(action, &QAction::triggered, this,
                [this, kind = fault.fault](bool on) { simulate(kind, on); });
    }
    addPorts();
    addSeparator();
    m_clear = addAction(tr("&No faults"));
    connect(m_clear, &QAction::triggered, this, &CSimulationMenu::clearFaults);
}

void CSimulationMenu::simulate(SimulationFault fault, bool on)
{
    const DeviceError error = m_manager.simulate(m_processor, fault, on);
    if (error != DeviceError::None)
        CMessageBox::warning(parentWidget(), tr("The simulation cannot be set."), deviceErrorText(error));
}

void CSimulationMenu::addPorts()
{
    addSeparator();
    m_ports = addMenu(tr("Unplug output port"));
    m_ports->menuAction()->setObjectName(QStringLiteral("Simulate.unplug"));
    connect(m_ports, &QMenu::aboutToShow, this, &CSimulationMenu::fillPorts);
}

void CSimulationMenu::fillPorts()
{
    m_ports->clear();
    const CabinetLayout layout = m_manager.services().layoutOf()(m_processor);
    for (const CabinetLayout::CabinetPort &port : layout.ports) {
        QAction *action = m_ports->addAction(tr("Port %1").arg(port.index + 1));
        action->setCheckable(true);
        action->setChecked(m_unplugged.contains({m_processor, port.index}));
        connect(action, &QAction::triggered, this,
                [this, index = port.index](bool unplugged) { setUnplugged(index, unplugged); });
    }
}

void CSimulationMenu::setUnplugged(int port, bool unplugged)
{
    if (unplugged)
        m_unplugged.insert({m_processor, port});
    else
        m_unplugged.remove({m_processor, port});
    Q_EMIT notifyUnpluggedChanged(m_unplugged);
    updateActions();
}

void CSimulationMenu::setProcessor(const QUuid &processor)
{
    m_processor = processor;
    updateActions();
}

void CSimulationMenu::updateActions()
{
    const bool device = m_manager.services().device(m_processor) != nullptr;
    const QString hint =
        device ? QString() : tr("Select a single processor, not a project, in the device tree.");
    bool any = false;
    for (auto it = m_faults.constBegin(); it != m_faults.constEnd(); ++it) {
        const bool on = device && m_manager.isSimulated(m_processor, it.value());
        it.key()->setChecked(on);
        it.key()->setEnabled(device);
        it.key()->setToolTip(hint);
        any = any || (on && !ProcessorStates::contains(it.value()));
    }
    m_ports->menuAction()->setEnabled(device);
    m_ports->menuAction()->setToolTip(hint);
    const bool unplugged = std::any_of(m_unplugged.begin(), m_unplugged.end(), [this](const SPortKey &port) {
        return port.processor == m_processor;
    });
    m_clear->setEnabled(any || unplugged);
}

void CSimulationMenu::clearFaults()
{
    for (const SimulationFault fault : qAsConst(m_faults)) {
        if (!ProcessorStates::contains(fault) && m_manager.isSimulated(m_processor, fault))
            m_manager.simulate(m_processor, fault, false);
    }
    const QSet<SPortKey> unplugged = m_unplugged;
    for (const SPortKey &port : unplugged) {
        if (port.processor == m_processor)
            setUnplugged(port.port, false);
    }
}
