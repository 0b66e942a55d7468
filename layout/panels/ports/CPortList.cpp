// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/CPortList.h"

#include "layout/data/CLayoutData.h"
#include "layout/panels/ports/COverloadLine.h"
#include "layout/panels/ports/CPortFill.h"
#include "layout/panels/ports/IPortCommands.h"
#include "layout/settings/CPortAreaDialog.h"
#include "layout/settings/CProcessorInView.h"
#include "platform/widgets/CFlowListView.h"
#include "platform/widgets/CPureImageBtn.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QStackedLayout>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int TitleHeight = 26;
constexpr int Spacing = 4;
constexpr int SideMargin = 8;
constexpr int PortAreaLocation = 4; // of a tool widget

} // namespace

CPortList::CPortList(CLayoutData &store, IPortCommands &commands, QWidget *parent)
    : QWidget(parent)
    , m_store(store)
    , m_commands(commands)
{
    setObjectName(QStringLiteral("PortList"));
    buildUi();
    connectSignals();
    onNotifyProcessorStateChanged();
}

void CPortList::buildUi()
{
    m_empty = new QLabel(tr("No output port is detected."));
    m_empty->setAlignment(Qt::AlignCenter);
    m_flow = new CFlowListView(CPortPainter::Size, Spacing);
    m_flow->setAccessibleName(tr("Port list"));
    auto *pages = new QWidget;
    m_pages = new QStackedLayout(pages);
    m_pages->addWidget(m_empty);
    m_pages->addWidget(m_flow);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(SideMargin, 0, 0, Spacing); // the scroll bar stands in the right margin
    column->setSpacing(0);
    column->addWidget(buildTitleRow());
    column->addWidget(pages, 1);
    setMinimumHeight(heightOfRows(1));
}

QWidget *CPortList::buildTitleRow()
{
    auto *title = new QLabel(tr("Port list"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    m_counts = new QLabel;
    m_counts->setObjectName(QStringLiteral("PortCounts"));
    m_overload = new COverloadLine(m_store);
    m_more = addMenuButton();
    m_areas = new CPureImageBtn(QStringLiteral(":/Image/Layout/PortList/setting"));
    m_areas->setIconSize(QSize(20, 20));
    m_areas->setFixedSize(20, 20);
    m_areas->setToolTip(tr("Port area"));
    m_areas->setProperty("ToolLocation", PortAreaLocation);
    connect(m_areas, &QAbstractButton::clicked, this, [this] { CPortAreaDialog::edit(window()); });

    auto *row = new QWidget;
    row->setFixedHeight(TitleHeight);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, SideMargin + Spacing, 0);
    layout->setSpacing(12);
    layout->addWidget(title);
    layout->addWidget(m_counts);
    layout->addWidget(m_overload, 1);
    layout->addStretch();
    layout->addWidget(m_more);
    layout->addWidget(m_areas);
    return row;
}

QAbstractButton *CPortList::addMenuButton()
{
    auto *button = new QToolButton;
    button->setIcon(QIcon(QStringLiteral(":/Image/Layout/PortList/Menu/backup.svg")));
    button->setToolTip(tr("Redundancy and current gain"));
    button->setAccessibleName(button->toolTip());
    button->setFocusPolicy(Qt::TabFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(button);
    connect(menu->addAction(tr("Port redundancy...")), &QAction::triggered, this,
            [this] { m_commands.pairPorts(); });
    menu->setToolTipsVisible(true);
    QAction *gain = menu->addAction(tr("Current gain parameter settings..."));
    connect(gain, &QAction::triggered, this, [this] { m_commands.adjustCurrentGain(); });
    connect(menu, &QMenu::aboutToShow, gain, [gain] {
        const QString refused = CProcessorInView::connectionRefusal();
        gain->setEnabled(refused.isEmpty());
        gain->setToolTip(refused.isEmpty() ? gain->text() : refused);
    });
    button->setMenu(menu);
    return button;
}

void CPortList::connectSignals()
{
    connect(&m_store, &CLayoutData::notifyProcessorStateChanged, this,
            &CPortList::onNotifyProcessorStateChanged);
    connect(&m_store, &CLayoutData::notifyProcessorPortColorChanged, this,
            &CPortList::onNotifyPortColorChanged);
    connect(&m_store, &CLayoutData::notifyProcessorPortPayloadChanged, this,
            &CPortList::onNotifyProcessorPortPayloadChanged);
    connect(&m_store, &CLayoutData::notifyProcessorPortLocked, this, &CPortList::onNotifyProcessorPortLocked);
    connect(&m_store, &CLayoutData::notifyProcessorPortBackup, this,
            [this](int primary, int backup, bool on) {
                setPortBackup(primary, false);
                setPortBackup(backup, on);
            });
    connect(&m_store, &CLayoutData::notifyProcessorPortNoteChanged, this, [this](int port) {
        if (CPort *changed = button(port))
            changed->refreshPair();
    });
    connect(&m_store, &CLayoutData::notifyCurrentPortChanged, this, &CPortList::showChecked);
    connect(m_overload, &COverloadLine::notifySelectPorts, this, &CPortList::notifyPortsSought);
    connect(m_overload, &COverloadLine::notifyOverloadChanged, this, &CPortList::notifyOverloadChanged);
}

void CPortList::connectButton(CPort *button)
{
    connect(button, &CPort::notifyAppendCabinet, this, &CPortList::append);
    connect(button, &CPort::notifyShowCabinetInfo, this, &CPortList::notifyShowCabinetInfo);
    connect(button, &CPort::notifyMarkupCustomCabinet, this, &CPortList::notifyMarkupCustomCabinet);
    connect(button, &CPort::notifySaveCabinetPara, this, &CPortList::notifySaveCabinetPara);
    connect(button, &CPort::notifyResetProcessorColor, this,
            [this] { CPortFill(m_store, window()).resetAll(); });
    connect(button, &QAbstractButton::clicked, this, [this, button] { click(button); });
}

CPort *CPortList::button(int port) const
{
    const auto place =
        std::lower_bound(m_buttons.begin(), m_buttons.end(), port,
                         [](const CPort *button, int index) { return button->port() < index; });
    return place != m_buttons.end() && (*place)->port() == port ? *place : nullptr;
}

void CPortList::setEditingBlocked(bool blocked)
{
    for (QWidget *part : {m_flow->widget(), static_cast<QWidget *>(m_more), static_cast<QWidget *>(m_areas)})
        part->setEnabled(!blocked);
}

int CPortList::heightOfRows(int rows) const
{
    return TitleHeight + m_flow->heightOfRows(rows) + Spacing;
}

void CPortList::openAppendMenu(int port)
{
    if (CPort *current = button(port))
        current->openAppendMenu();
}

/// A click selects one port's cabinets alone, with the Control key in addition.
void CPortList::click(CPort *button)
{
    const int port = button->port();
    const bool adds = QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier);
    const bool alone = adds || m_selected == QSet<int>{port};
    const bool selected = !alone || !m_commands.isWhollySelected(port);
    if (!adds && selected && !m_selected.isEmpty())
        Q_EMIT notifyPortsChosen({});
    Q_EMIT notifyPortClicked(port, selected);
    if (!adds || selected)
        makeCurrent(port); // also where it is empty
    showChecked();         // whatever the click has toggled
}

void CPortList::append(int port, const QSize &size, const CPort::TypeInfo &type)
{
    makeCurrent(port);
    Q_EMIT notifyAppendCabinet(port, size, type);
}

void CPortList::makeCurrent(int port)
{
    if (m_store.currentPort() == port)
        return;
    m_store.setCurrentPort(port);
    Q_EMIT notifyPortToggled(port, true);
}

void CPortList::setCurrentSelectPort(const QList<int> &ports)
{
    m_selected = QSet<int>(ports.begin(), ports.end());
    if (ports.size() == 1)
        makeCurrent(ports.first());
    showChecked();
}

/// Without a selection the current port is marked: append and paste go there.
void CPortList::showChecked()
{
    const int current = m_store.currentPort();
    for (CPort *button : qAsConst(m_buttons))
        button->setChecked(m_selected.isEmpty() ? button->port() == current
                                                : m_selected.contains(button->port()));
}

void CPortList::onNotifyPortColorChanged(int port, const QColor &color)
{
    if (CPort *changed = button(port))
        changed->setFill(color);
}

void CPortList::setPortBackup(int port, bool)
{
    if (CPort *changed = button(port))
        changed->refreshPair(); // the store knows the relation, which may be newer
    countPorts();
}

void CPortList::onNotifyProcessorPortPayloadChanged(int port, int load)
{
    CPort *changed = button(port);
    if (!changed)
        return;
    const bool wasUsed = changed->face().load > 0;
    changed->setLoad(load);
    if (wasUsed != (load > 0))
        countPorts();
}

void CPortList::onNotifyProcessorPortLocked(int port, bool locked)
{
    if (CPort *changed = button(port))
        changed->setLocked(locked);
}

void CPortList::onNotifyProcessorStateChanged()
{
    // Buttons are used again, so that scroll position, hover, focus and open menus stay.
    const QVector<CLayoutData::Port> ports = m_store.ports();
    QVector<CPort *> buttons = m_buttons.mid(0, ports.size());
    const QVector<CPort *> dropped = m_buttons.mid(buttons.size());
    for (int i = 0; i < ports.size(); ++i) {
        if (i < buttons.size()) {
            buttons.at(i)->refresh(ports.at(i).index);
        } else {
            buttons << new CPort(ports.at(i).index, m_store, m_commands, m_flow->widget());
            connectButton(buttons.last());
        }
    }
    if (buttons.size() != m_buttons.size()) {
        m_buttons = buttons;
        m_flow->setItems(QVector<QWidget *>(buttons.begin(), buttons.end()));
        for (CPort *button : dropped)
            button->deleteLater(); // one of them may have asked for this
    }
    m_pages->setCurrentIndex(m_buttons.isEmpty() ? 0 : 1);
    m_overload->refresh();
    countPorts();
    showChecked();
}

void CPortList::countPorts()
{
    int used = 0;
    int redundant = 0;
    for (const CPort *button : qAsConst(m_buttons)) {
        if (button->face().redundant)
            ++redundant;
        else if (button->face().load > 0)
            ++used;
    }
    m_counts->setText(tr("%1 in use, %2 redundancy").arg(used).arg(redundant));
    m_counts->setVisible(!m_buttons.isEmpty());
}
