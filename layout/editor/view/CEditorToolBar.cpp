// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CEditorToolBar.h"

#include "layout/editor/view/CEditRule.h"
#include "platform/widgets/CSvgIcon.h"

#include <QActionGroup>
#include <QIcon>
#include <QMenu>
#include <QToolButton>

#include <optional>

namespace {

constexpr int ToolIconSide = 20;
constexpr int BarHeight = 34; // pixels

QString layoutIcon(const char *name)
{
    return QStringLiteral(":/Image/Layout/ToolBar/") + QLatin1String(name);
}

QIcon toolIcon(const QString &base)
{
    return CSvgIcon()
        .add(base + QStringLiteral("_normal.svg"))
        .add(base + QStringLiteral("_checked.svg"), QIcon::Normal, QIcon::On)
        .add(base + QStringLiteral("_disabled.svg"), QIcon::Disabled)
        .icon();
}

/// Nothing for tools that change nothing.
std::optional<EditKind> kindOf(CEditorToolBar::ETool tool)
{
    switch (tool) {
    case CEditorToolBar::Undo:
    case CEditorToolBar::Redo:
        return EditKind::History;
    case CEditorToolBar::ClearTopology:
    case CEditorToolBar::Group:
    case CEditorToolBar::Ungroup:
        return EditKind::Edit;
    case CEditorToolBar::Hand:
    case CEditorToolBar::TypeLibrary:
    case CEditorToolBar::Print:
    case CEditorToolBar::Navigator:
        return std::nullopt;
    default:
        return EditKind::Tool;
    }
}

} // namespace

CEditorToolBar::CEditorToolBar(QWidget *parent)
    : QToolBar(parent)
{
    buildUi();
}

void CEditorToolBar::buildUi()
{
    setObjectName(QStringLiteral("EditorToolBar"));
    setIconSize(QSize(ToolIconSide, ToolIconSide));
    setFixedHeight(BarHeight);
    m_modes = new QActionGroup(this);
    m_modes->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);

    addTool(Undo, QStringLiteral(":/Image/ToolBar/undo"), tr("Undo(Ctrl+Z)"));
    addTool(Redo, QStringLiteral(":/Image/ToolBar/redo"), tr("Redo(Ctrl+Y)"));
    addTool(Arrow, QStringLiteral(":/Image/ToolBar/arrow"), tr("Arrow"));
    addTool(Hand, QStringLiteral(":/Image/ToolBar/open-hand"), tr("Hand"));
    addTool(TypeLibrary, layoutIcon("type-library"), tr("Type library"));
    addTool(ClearTopology, layoutIcon("break-wiring"), tr("Clear topology"));
    addTool(Pen, layoutIcon("manual-wiring"), tr("Pen tool(Custom topology)"));
    addTool(HeadToTailExchange, layoutIcon("head-to-tail-exchange"),
            tr("Reverse signal in an out for multi-receivers cabinet"));
    addTool(Group, layoutIcon("create-group"), tr("Group(Ctrl+G)"));
    addTool(Ungroup, layoutIcon("break-group"), tr("Ungroup(Ctrl+Shift+G)"));
    addTool(Calibrate, layoutIcon("calibrate"), tr("Highlight cabinet with flashing box"));
    addTool(Print, layoutIcon("print"), tr("Print(Ctrl+P)"));
    addTool(Navigator, QStringLiteral(":/Image/ToolBar/aerial-view"), tr("Navigator"));

    for (const ETool mode : {Arrow, Hand, Pen, HeadToTailExchange, Calibrate}) {
        makeCheckable(mode);
        m_modes->addAction(tool(mode));
    }
    makeCheckable(Navigator);
    addHighlightMenu();
    button(Navigator)->setObjectName(QStringLiteral("AeriaToolButton"));
    tool(Undo)->setShortcuts(QKeySequence::Undo);
    QList<QKeySequence> redoKeys = QKeySequence::keyBindings(QKeySequence::Redo);
    const QKeySequence named(Qt::CTRL | Qt::Key_Y); // the tool tip names it on every platform
    if (!redoKeys.contains(named))
        redoKeys << named;
    tool(Redo)->setShortcuts(redoKeys);
    enableTools();
    connect(tool(Hand), &QAction::toggled, this, &CEditorToolBar::enableTools);
    chooseMode(Arrow);
}

void CEditorToolBar::setObstacle(ETool tool, const QString &reason)
{
    m_obstacles.insert(tool, reason);
    enableTool(tool);
}

void CEditorToolBar::setBlock(const QString &reason)
{
    m_block = reason;
    enableTools();
}

void CEditorToolBar::enableTools()
{
    for (int tool = 0; tool < ToolCount; ++tool)
        enableTool(ETool(tool));
}

void CEditorToolBar::enableTool(ETool tool)
{
    QAction *action = m_actions.at(tool);
    const std::optional<EditKind> kind = kindOf(tool);
    QString refused = kind ? CEditRule::refusal(*kind, m_block, m_actions.at(Hand)->isChecked()) : QString();
    if (refused.isEmpty())
        refused = m_obstacles.value(tool);
    action->setEnabled(refused.isEmpty());
    const QString tip = action->data().toString();
    action->setToolTip(refused.isEmpty() ? tip : tip + QLatin1Char('\n') + refused);
}

QToolButton *CEditorToolBar::button(ETool tool) const
{
    return qobject_cast<QToolButton *>(widgetForAction(m_actions.at(tool)));
}

void CEditorToolBar::addTool(ETool tool, const QString &iconBase, const QString &toolTip)
{
    QAction *action = addAction(toolIcon(iconBase), toolTip);
    action->setToolTip(toolTip);
    action->setData(toolTip);
    m_actions << action;
    QToolButton *button = this->button(tool);
    button->setProperty("action", int(tool));
    button->setProperty("ToolLocation", int(tool));
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(toolTip);
    connect(action, &QAction::triggered, this, [this, tool] { Q_EMIT notifyToolClicked(tool); });
}

void CEditorToolBar::makeCheckable(ETool tool)
{
    m_actions.at(tool)->setCheckable(true);
    connect(m_actions.at(tool), &QAction::toggled, this,
            [this, tool](bool checked) { Q_EMIT notifyToolToggled(tool, checked); });
}

void CEditorToolBar::addHighlightMenu()
{
    auto *menu = new QMenu(this);
    const auto addKind = [this, menu](const QString &name, const QString &text, const char *icon,
                                      bool frameless) {
        QAction *kind = menu->addAction(toolIcon(layoutIcon(icon)), text);
        kind->setObjectName(name);
        kind->setProperty("frameless", frameless);
        connect(kind, &QAction::triggered, this, [this, frameless] { setFrameless(frameless); });
    };
    addKind(QStringLiteral("CalibrateFrame"), tr("Highlight cabinet with flashing box"), "calibrate", false);
    addKind(QStringLiteral("CalibrateFrameless"), tr("Highlight cabinet with LED indicator"),
            "calibrate-frameless", true);
    // Set on the action, so that it is also available if the bar has no room for the button.
    tool(Calibrate)->setMenu(menu);
    button(Calibrate)->setPopupMode(QToolButton::MenuButtonPopup);
}

void CEditorToolBar::setFrameless(bool frameless)
{
    m_frameless = frameless;
    QAction *highlight = tool(Calibrate);
    highlight->setIcon(toolIcon(layoutIcon(frameless ? "calibrate-frameless" : "calibrate")));
    highlight->setData(frameless ? tr("Highlight cabinet with LED indicator")
                                 : tr("Highlight cabinet with flashing box"));
    button(Calibrate)->setAccessibleName(highlight->data().toString());
    enableTool(Calibrate);
    Q_EMIT notifyHighlightKindChanged(frameless);
    highlight->setChecked(true);
}
