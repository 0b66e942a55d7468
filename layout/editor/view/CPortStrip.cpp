// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CPortStrip.h"

#include "layout/api/access/IPortStates.h"
#include "layout/geometry/CSnakeOrder.h"

#include <QAction>
#include <QComboBox>
#include <QCursor>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {

QIcon portIcon(const char *name)
{
    const QString base = QStringLiteral(":/Image/Layout/PortList/") + QLatin1String(name);
    QIcon icon(base + QStringLiteral("_normal.svg"));
    icon.addFile(base + QStringLiteral("_disabled.svg"), {}, QIcon::Disabled);
    return icon;
}

} // namespace

CPortStrip::CPortStrip(QToolBar &bar, const IPortStates &states)
    : QObject(&bar)
    , m_bar(bar)
    , m_states(states)
{
    m_bar.addSeparator();
    addPorts();
    addPatterns();
    addPortMenu();
    setPorts({});
}

QToolButton *CPortStrip::addButton(const QIcon &icon, const QString &toolTip)
{
    QAction *action = m_bar.addAction(icon, toolTip);
    auto *button = qobject_cast<QToolButton *>(m_bar.widgetForAction(action));
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(toolTip);
    return button;
}

void CPortStrip::addPorts()
{
    m_ports = new QComboBox;
    m_ports->setToolTip(tr("Output port that append and paste act on"));
    m_ports->setAccessibleName(tr("Output port"));
    m_ports->setFocusPolicy(Qt::TabFocus);
    m_ports->setPlaceholderText(tr("Output port"));
    m_ports->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_bar.addWidget(m_ports);
    connect(m_ports, QOverload<int>::of(&QComboBox::activated), this,
            [this](int place) { choose(m_ports->itemData(place).toInt()); });
    m_append = addButton(portIcon("append"), tr("Append(Ctrl+T)"));
    connect(m_append->defaultAction(), &QAction::triggered, this, &CPortStrip::append);
}

void CPortStrip::append()
{
    const bool shown = m_append->isVisible(); // not if the bar has no room for it
    Q_EMIT notifyAppendClicked(shown ? m_append->mapToGlobal(m_append->rect().bottomLeft()) : QCursor::pos());
}

void CPortStrip::addPatterns()
{
    auto *menu = new QMenu(&m_bar);
    for (int i = 0; i < CSnakeOrder::PatternCount; ++i) {
        const CSnakeOrder::SPattern &pattern = CSnakeOrder::patterns().at(i);
        const QString icon = QStringLiteral(":/Image/Layout/SidePanel/Topology/%1.svg");
        QAction *action = menu->addAction(QIcon(icon.arg(QLatin1String(pattern.iconName))), tr(pattern.name));
        connect(action, &QAction::triggered, this, [this, i] { Q_EMIT notifyPatternChosen(i); });
    }
    m_patterns = addButton(menu->actions().first()->icon(), tr("Topology"));
    m_patterns->defaultAction()->setMenu(menu);
    m_patterns->setPopupMode(QToolButton::InstantPopup);
}

void CPortStrip::addPortMenu()
{
    m_portMenu = new QMenu(&m_bar);
    m_portButton = addButton(portIcon("lock"), tr("Lock and redundancy of the output port"));
    m_portButton->defaultAction()->setMenu(m_portMenu);
    m_portButton->setPopupMode(QToolButton::InstantPopup);
    connect(m_portMenu, &QMenu::aboutToShow, this, &CPortStrip::fillPortMenu);
}

void CPortStrip::fillPortMenu()
{
    m_portMenu->clear();
    addPortChoice();
    const int chosen = m_states.currentPort();
    QAction *lock = m_portMenu->addAction(tr("Lock current output port"));
    lock->setCheckable(true);
    lock->setChecked(m_states.isPortLocked(chosen));
    connect(lock, &QAction::toggled, this,
            [this, chosen](bool locked) { Q_EMIT notifyLockToggled(chosen, locked); });
    addRedundancy();
    m_portMenu->addSeparator();
    connect(m_portMenu->addAction(tr("Current gain parameter settings...")), &QAction::triggered, this,
            &CPortStrip::notifyCurrentGainClicked);
}

void CPortStrip::addRedundancy()
{
    const int chosen = m_states.currentPort();
    const bool paired = m_states.portRedundancy(chosen) != CabinetLayout::CabinetPort::NoRedundancy;
    QMenu *redundancy = m_portMenu->addMenu(tr("Set as redundancy for"));
    for (int i = 0; i < m_ports->count(); ++i) {
        const int primary = m_ports->itemData(i).toInt();
        if (primary == chosen || m_states.portRedundancy(primary) == CabinetLayout::CabinetPort::Redundant)
            continue;
        QAction *action = redundancy->addAction(m_ports->itemText(i));
        connect(action, &QAction::triggered, this,
                [this, primary, chosen] { Q_EMIT notifyRedundancyChosen(primary, chosen); });
    }
    redundancy->setEnabled(!redundancy->isEmpty() && !paired);
    QAction *cancel = m_portMenu->addAction(tr("Cancel redundancy"));
    cancel->setEnabled(paired);
    connect(cancel, &QAction::triggered, this, [this, chosen] { Q_EMIT notifyRedundancyCancelled(chosen); });
    connect(m_portMenu->addAction(tr("Port redundancy...")), &QAction::triggered, this,
            &CPortStrip::notifyRedundancyViewClicked);
}

/// The same as the combo box, for a bar that has no room for it.
void CPortStrip::addPortChoice()
{
    QMenu *choice = m_portMenu->addMenu(tr("Output port"));
    for (int i = 0; i < m_ports->count(); ++i) {
        QAction *action = choice->addAction(m_ports->itemText(i));
        action->setCheckable(true);
        action->setChecked(i == m_ports->currentIndex());
        connect(action, &QAction::triggered, this,
                [this, port = m_ports->itemData(i).toInt()] { choose(port); });
    }
}

void CPortStrip::choose(int port)
{
    Q_EMIT notifyPortChosen(port);
    showCurrentPort(); // it may differ from the one chosen
}

void CPortStrip::setEditingBlocked(bool blocked)
{
    m_blocked = blocked;
    enableEntries();
}

/// The actions, which the bar shows instead of the buttons if it has no room.
void CPortStrip::enableEntries()
{
    const bool hasPort = m_ports->currentIndex() >= 0;
    m_ports->setEnabled(!m_blocked);
    m_patterns->defaultAction()->setEnabled(m_hasSelection && !m_blocked);
    m_append->defaultAction()->setEnabled(hasPort && !m_blocked);
    m_portButton->defaultAction()->setEnabled(hasPort && !m_blocked);
}

void CPortStrip::setPorts(const QList<int> &ports)
{
    m_ports->clear();
    for (const int port : ports)
        m_ports->addItem(tr("Port %1").arg(port + 1), port);
    m_hasSelection = false;
    showCurrentPort();
}

void CPortStrip::setHasSelection(bool hasSelection)
{
    m_hasSelection = hasSelection;
    enableEntries();
}

void CPortStrip::showCurrentPort()
{
    m_ports->setCurrentIndex(m_ports->findData(m_states.currentPort()));
    enableEntries();
    const bool locked = m_states.isPortLocked(m_states.currentPort());
    m_portButton->defaultAction()->setIcon(
        locked ? QIcon(QStringLiteral(":/Image/Layout/PortList/lock_checked.svg")) : portIcon("lock"));
}
