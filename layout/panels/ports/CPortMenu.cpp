// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/CPortMenu.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/api/records/EditRefusal.h"
#include "layout/data/CLayoutData.h"
#include "layout/panels/ports/CPort.h"
#include "layout/panels/ports/CPortFill.h"
#include "layout/panels/ports/IPortCommands.h"
#include "layout/settings/CProcessorInView.h"

#include <QIcon>
#include <QMenu>

namespace {

using Host = ILayoutInterfaceHandler;
using Port = CabinetLayout::CabinetPort;

constexpr int MenuWidth = 200;

QIcon menuIcon(const char *name)
{
    return QIcon(QStringLiteral(":/Image/Layout/PortList/Menu/%1.svg").arg(QLatin1String(name)));
}

/// Whether ports of the processor in view can be paired now.
bool canPair()
{
    return !CHostAccess::call<&Host::isPortRedundancyBlocked>() &&
           CHostAccess::call<&Host::isPortRedundancySupported>();
}

/// An empty @p reason enables the entry; any other says why it is disabled.
void allowUnless(QAction &entry, const QString &reason)
{
    entry.setEnabled(reason.isEmpty());
    if (!reason.isEmpty())
        entry.setToolTip(reason);
}

QString lockReason(const Port &port)
{
    return EditRefusal::ofPort(port.index, port.locked, false);
}

/// Adds an entry that is checked or not; @p toggled is called with what it then is.
template <typename Toggled>
void addToggle(QMenu &menu, const QString &text, bool checked, QObject *context, const Toggled &toggled)
{
    QAction *action = menu.addAction(text);
    action->setCheckable(true);
    action->setChecked(checked);
    QObject::connect(action, &QAction::toggled, context, toggled);
}

} // namespace

void CPortMenu::fill(QMenu &menu) const
{
    menu.setObjectName(QStringLiteral("PortMenu"));
    menu.setFixedWidth(MenuWidth);
    menu.setToolTipsVisible(true);
    const Port::Redundancy role = m_store.portRedundancy(m_button.port());
    if (role != Port::Redundant) {
        addFiles(menu);
        if (role != Port::Primary && canPair())
            addPrimaries(menu);
        addLocks(menu);
        addFill(menu);
        addParameters(menu);
    }
    if (role != Port::NoRedundancy)
        addCancel(menu);
}

void CPortMenu::addFiles(QMenu &menu) const
{
    IPortCommands *commands = &m_commands;
    const int port = m_button.port();
    QObject::connect(menu.addAction(menuIcon("import"), tr("Import mapping...")), &QAction::triggered,
                     &m_button, [commands, port] { commands->importMapping(port); });
    QObject::connect(menu.addAction(menuIcon("export"), tr("Export mapping...")), &QAction::triggered,
                     &m_button, [commands, port] { commands->exportMapping(port); });
}

void CPortMenu::addPrimaries(QMenu &menu) const
{
    IPortCommands *commands = &m_commands;
    const int backup = m_button.port();
    QMenu *primaries = menu.addMenu(menuIcon("backup"), tr("Set as redundancy for"));
    primaries->setToolTipsVisible(true);
    const QVector<Port> ports = m_store.ports();
    for (const Port &port : ports) {
        if (port.index == backup || port.redundancy == Port::Redundant)
            continue;
        const QString text =
            QStringLiteral("%1%2%3").arg(tr("Port"), QStringLiteral(" ")).arg(port.index + 1);
        QAction *entry = primaries->addAction(text);
        const bool paired = port.redundancy == Port::Primary;
        allowUnless(*entry,
                    paired ? tr("Port %1 has a redundancy already.").arg(port.index + 1) : lockReason(port));
        QObject::connect(entry, &QAction::triggered, &m_button, [commands, primary = port.index, backup] {
            commands->setRedundancy(primary, backup);
        });
    }
    const QString reason = lockReason(m_store.port(backup));
    allowUnless(*primaries->menuAction(),
                reason.isEmpty() && primaries->isEmpty() ? tr("There is no other port.") : reason);
}

void CPortMenu::addLocks(QMenu &menu) const
{
    QMenu *locks = menu.addMenu(menuIcon("lock"), tr("Lock options"));
    CLayoutData *store = &m_store;
    const int port = m_button.port();
    addToggle(*locks, tr("Lock current output port"), m_store.isPortLocked(port), &m_button,
              [store, port](bool locked) { store->setPortLocked(port, locked); });
    addToggle(*locks, tr("Lock current processor"), m_store.isProcessorLocked(), &m_button,
              [button = &m_button](bool locked) { button->setProcessorLocked(locked); });
    addToggle(*locks, tr("Lock all processors"), m_store.areAllProcessorsLocked(), &m_button,
              [button = &m_button](bool locked) { button->setAllProcessorsLocked(locked); });
}

void CPortMenu::addFill(QMenu &menu) const
{
    QMenu *fill = menu.addMenu(tr("Cabinet fill"));
    QObject::connect(fill->addAction(tr("Current output...")), &QAction::triggered, &m_button,
                     &CPort::askFill);
    fill->setToolTipsVisible(true);
    QAction *reset = fill->addAction(tr("Set all outputs to default"));
    reset->setToolTip(CPortFill::rule());
    QObject::connect(reset, &QAction::triggered, &m_button, &CPort::notifyResetProcessorColor);
}

void CPortMenu::addParameters(QMenu &menu) const
{
    QMenu *parameters = menu.addMenu(tr("Cabinet parameters"));
    parameters->setToolTipsVisible(true);
    const SLayoutOptions options = m_store.options();
    addToggle(*parameters, tr("Markup custom cabinets"), options.markupCustomCabinets, &m_button,
              [button = &m_button](bool marked) { button->markUpCustomCabinets(marked); });
    const QIcon placeholder(QStringLiteral(":/Image/Menu/placeholder.svg"));
    QAction *save = parameters->addAction(placeholder, tr("Save parameters..."));
    allowUnless(*save,
                CProcessorInView::connectionRefusal(m_store.port(m_button.port()).getAllCabinets().toList()));
    QObject::connect(save, &QAction::triggered, &m_button, &CPort::saveParameters);
    QObject::connect(parameters->addAction(tr("Cabinet information...")), &QAction::triggered, &m_button,
                     &CPort::showCabinets);
}

void CPortMenu::addCancel(QMenu &menu) const
{
    IPortCommands *commands = &m_commands;
    QObject::connect(menu.addAction(tr("Cancel redundancy")), &QAction::triggered, &m_button,
                     [commands, port = m_button.port()] { commands->cancelRedundancy(port); });
}
