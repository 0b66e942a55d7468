// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CEditorStrip.h"

#include "layout/geometry/CSnakeOrder.h"

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QIcon>
#include <QMenu>
#include <QToolButton>

namespace {

constexpr int StripIconSide = 20;

QIcon stripIcon(const QString &base)
{
    QIcon icon(QStringLiteral(":/Image/%1_normal.svg").arg(base));
    icon.addFile(QStringLiteral(":/Image/%1_checked.svg").arg(base), {}, QIcon::Normal, QIcon::On);
    icon.addFile(QStringLiteral(":/Image/%1_disabled.svg").arg(base), {}, QIcon::Disabled);
    return icon;
}

} // namespace

CEditorStrip::CEditorStrip(QWidget *parent)
    : QFrame(parent)
{
    buildUi();
}

void CEditorStrip::buildUi()
{
    setObjectName(QStringLiteral("EditorStrip"));
    setAutoFillBackground(true);
    setCursor(Qt::ArrowCursor);
    m_row = new QHBoxLayout(this);
    m_row->setContentsMargins(6, 2, 6, 2);
    m_row->setSpacing(2);
    m_tools = new QActionGroup(this);

    m_undo = addCommand(QStringLiteral("ToolBar/undo"), tr("Undo(Ctrl+Z)"), &CEditorStrip::undoClicked);
    m_redo = addCommand(QStringLiteral("ToolBar/redo"), tr("Redo(Ctrl+Y)"), &CEditorStrip::redoClicked);
    addTool(QStringLiteral("ToolBar/arrow"), tr("Arrow"), CLayoutGraphicsView::Arrow);
    addTool(QStringLiteral("ToolBar/open-hand"), tr("Hand"), CLayoutGraphicsView::Hand);
    addPatterns();
    addCommand(QStringLiteral("Layout/ToolBar/break-wiring"), tr("Clear topology"),
               &CEditorStrip::clearTopologyClicked);
    addTool(QStringLiteral("Layout/ToolBar/manual-wiring"), tr("Pen tool(Custom topology)"),
            CLayoutGraphicsView::Pen);
    addTool(QStringLiteral("Layout/ToolBar/head-to-tail-exchange"),
            tr("Reverse signal in an out for multi-receivers cabinet"),
            CLayoutGraphicsView::HeadToTailExchange);
    m_group = addCommand(QStringLiteral("Layout/ToolBar/create-group"), tr("Group(Ctrl+G)"),
                         &CEditorStrip::groupClicked);
    m_ungroup = addCommand(QStringLiteral("Layout/ToolBar/break-group"), tr("Ungroup(Ctrl+Shift+G)"),
                           &CEditorStrip::ungroupClicked);
    m_delete = addCommand(QString(), tr("Delete cabinet(Del)"), &CEditorStrip::deleteClicked);
    m_delete->setIcon(QIcon(QStringLiteral(":/Image/Layout/Menu/delete.svg")));
    addPortMenu();
    m_undo->setEnabled(false);
    m_redo->setEnabled(false);
    showSelection({}, false, false);
}

QToolButton *CEditorStrip::addButton(QAction *action)
{
    auto *button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setIconSize(QSize(StripIconSide, StripIconSide));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(action->toolTip());
    m_row->addWidget(button);
    return button;
}

QAction *CEditorStrip::addCommand(const QString &iconBase, const QString &toolTip,
                                  void (CEditorStrip::*clicked)())
{
    auto *action = new QAction(this);
    if (!iconBase.isEmpty())
        action->setIcon(stripIcon(iconBase));
    action->setToolTip(toolTip);
    connect(action, &QAction::triggered, this, clicked);
    addButton(action);
    return action;
}

void CEditorStrip::addTool(const QString &iconBase, const QString &toolTip, CLayoutGraphicsView::Tool tool)
{
    auto *action = new QAction(stripIcon(iconBase), QString(), m_tools);
    action->setToolTip(toolTip);
    action->setCheckable(true);
    action->setData(tool);
    connect(action, &QAction::triggered, this, [this, tool] { Q_EMIT toolClicked(tool); });
    addButton(action);
}

void CEditorStrip::addPatterns()
{
    auto *menu = new QMenu(this);
    for (int i = 0; i < CSnakeOrder::PatternCount; ++i) {
        const CSnakeOrder::SPattern &pattern = CSnakeOrder::patterns().at(i);
        const QString icon = QStringLiteral(":/Image/Layout/SidePanel/Topology/%1.svg");
        QAction *action = menu->addAction(QIcon(icon.arg(QLatin1String(pattern.iconName))), tr(pattern.name));
        connect(action, &QAction::triggered, this, [this, i] { Q_EMIT patternClicked(i); });
    }
    auto *action = new QAction(menu->actions().first()->icon(), QString(), this);
    action->setToolTip(tr("Topology"));
    m_patterns = addButton(action);
    m_patterns->setMenu(menu);
    m_patterns->setPopupMode(QToolButton::InstantPopup);
}

void CEditorStrip::addPortMenu()
{
    m_portMenu = new QMenu(this);
    auto *action =
        new QAction(QIcon(QStringLiteral(":/Image/Layout/PortList/lock_normal.svg")), QString(), this);
    action->setToolTip(tr("Output port"));
    m_portButton = addButton(action);
    m_portButton->setMenu(m_portMenu);
    m_portButton->setPopupMode(QToolButton::InstantPopup);
    connect(m_portMenu, &QMenu::aboutToShow, this, &CEditorStrip::fillPortMenu);
}

void CEditorStrip::fillPortMenu()
{
    m_portMenu->clear();
    QAction *lock = m_portMenu->addAction(tr("Lock current output port"));
    lock->setCheckable(true);
    lock->setChecked(m_locked);
    connect(lock, &QAction::toggled, this, &CEditorStrip::lockClicked);
    QMenu *redundancy = m_portMenu->addMenu(tr("Set as redundancy for"));
    redundancy->setEnabled(m_selectedPorts.size() == 1 && m_allPorts.size() > 1);
    for (const int primary : qAsConst(m_allPorts)) {
        if (m_selectedPorts.contains(primary))
            continue;
        QAction *action = redundancy->addAction(tr("Port %1").arg(primary + 1));
        connect(action, &QAction::triggered, this,
                [this, primary] { Q_EMIT redundancyClicked(primary, m_selectedPorts.value(0, -1)); });
    }
}

void CEditorStrip::showTool(CLayoutGraphicsView::Tool tool)
{
    const QList<QAction *> actions = m_tools->actions();
    for (QAction *action : actions)
        action->setChecked(action->data().toInt() == tool);
}

void CEditorStrip::showSelection(const QList<int> &ports, bool canGroup, bool canBreakGroup)
{
    m_selectedPorts = ports;
    m_group->setEnabled(canGroup);
    m_ungroup->setEnabled(canBreakGroup);
    m_delete->setEnabled(!ports.isEmpty());
    m_patterns->setEnabled(!ports.isEmpty());
    m_portButton->setEnabled(!ports.isEmpty());
}

void CEditorStrip::setCanUndo(bool can)
{
    m_undo->setEnabled(can);
}

void CEditorStrip::setCanRedo(bool can)
{
    m_redo->setEnabled(can);
}

void CEditorStrip::showLocked(bool locked)
{
    m_locked = locked;
}
