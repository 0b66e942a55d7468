// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CTopologyLabel.h"

#include "layout/api/records/EditRefusal.h"
#include "layout/data/CLayoutData.h"
#include "layout/geometry/CSnakeOrder.h"
#include "layout/panels/SelectedPorts.h"
#include "platform/widgets/CSvgIcon.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QToolButton>
#include <QVariant>

namespace {

constexpr int TopologyToolLocation = 3;
constexpr int TopologyColumns = 4; // a column for each corner in which a wire begins
constexpr QSize TopologyIconSize(40, 28);
constexpr QSize TopologyButtonSize(82, 34);

} // namespace

CTopologyLabel::CTopologyLabel(const SUnitServices &services)
    : m_store(services.store)
    , m_buttons(new QButtonGroup(this))
{
    buildUi();
    connect(m_buttons, &QButtonGroup::idClicked, this, &CTopologyLabel::buttonClicked);
    updateEnabled();
}

void CTopologyLabel::setEditingBlocked(bool locked, bool redundancy)
{
    m_block = EditRefusal::of(locked, redundancy);
    updateEnabled();
}

void CTopologyLabel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor)
{
    if (m_processor.uuid != processor.uuid)
        showNone();
    m_processor = processor;
    updateEnabled();
}

/// The pattern that was used last was used for another wall.
void CTopologyLabel::showNone()
{
    QAbstractButton *shown = m_buttons->checkedButton();
    if (!shown)
        return;
    m_buttons->setExclusive(false); // otherwise one stays checked
    shown->setChecked(false);
    m_buttons->setExclusive(true);
}

void CTopologyLabel::onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor)
{
    onCurrentProcessorChanged(processor);
}

void CTopologyLabel::onSelectedPorts(const QList<int> &ports)
{
    m_selectedPorts = ports;
    updateEnabled();
}

void CTopologyLabel::setButtonEnable(bool enable)
{
    for (QAbstractButton *button : m_buttons->buttons())
        button->setEnabled(enable);
}

/// In an exclusive group, Qt's arrow keys click the button that they go to, which would wire.
bool CTopologyLabel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return CUnitLabel::eventFilter(watched, event);
    const int from = m_buttons->id(qobject_cast<QAbstractButton *>(watched));
    const int column = from % TopologyColumns;
    int to = from;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Left:
        to -= column > 0 ? 1 : 0;
        break;
    case Qt::Key_Right:
        to += column < TopologyColumns - 1 ? 1 : 0;
        break;
    case Qt::Key_Up:
        to -= TopologyColumns;
        break;
    case Qt::Key_Down:
        to += TopologyColumns;
        break;
    default:
        return false;
    }
    if (QAbstractButton *button = m_buttons->button(to))
        button->setFocus(Qt::TabFocusReason);
    return true;
}

void CTopologyLabel::buildUi()
{
    SetTitle(tr("Topology"));
    setProperty("ToolLocation", TopologyToolLocation);
    m_buttons->setExclusive(true);
    auto *grid = new QGridLayout;
    grid->setSpacing(4);
    for (int pattern = 0; pattern < CSnakeOrder::PatternCount; ++pattern) {
        QToolButton *button = makeButton(pattern);
        m_buttons->addButton(button, pattern);
        button->installEventFilter(this);
        grid->addWidget(button, pattern / TopologyColumns, pattern % TopologyColumns);
    }
    contentLayout()->addLayout(grid);
}

QToolButton *CTopologyLabel::makeButton(int pattern)
{
    const CSnakeOrder::SPattern &snake = CSnakeOrder::patterns().at(pattern);
    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("HasBackground"));
    button->setStyleSheet(QStringLiteral("QToolButton#HasBackground{border-radius:3px;}"));
    button->setCheckable(true); // shows the pattern that was used last
    button->setFocusPolicy(Qt::StrongFocus);
    button->setFixedSize(TopologyButtonSize);
    button->setIconSize(TopologyIconSize);
    button->setIcon(CSvgIcon::of(
        QStringLiteral(":/Image/Layout/SidePanel/Topology/%1.svg").arg(QLatin1String(snake.iconName))));
    button->setToolTip(QCoreApplication::translate("CSnakeOrder", snake.name));
    button->setAccessibleName(button->toolTip());
    return button;
}

void CTopologyLabel::updateEnabled()
{
    const QString refused = SelectedPorts::refusal(m_processor, m_block, m_store, m_selectedPorts);
    setButtonEnable(refused.isEmpty());
    for (QAbstractButton *button : m_buttons->buttons()) {
        const QString name = button->accessibleName();
        button->setToolTip(refused.isEmpty() ? name : name + QLatin1Char('\n') + refused);
    }
}
