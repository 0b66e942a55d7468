// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/CLayoutSummaryWidget.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/summary/COffsetHistory.h"
#include "layout/summary/CSummaryGraphicsView.h"
#include "layout/summary/CSummaryLabel.h"
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/CSvgIcon.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

using Host = ILayoutInterfaceHandler;

constexpr QSize StepButtonSize(30, 28);
constexpr int StepIconSide = 20;

QIcon stepIcon(const QString &base)
{
    return CSvgIcon()
        .add(base + QStringLiteral("_normal.svg"))
        .add(base + QStringLiteral("_disabled.svg"), QIcon::Disabled)
        .icon();
}

} // namespace

CLayoutSummaryWidget::CLayoutSummaryWidget(QWidget *parent)
    : QWidget(parent)
    , m_history(std::make_unique<COffsetHistory>([this](const ProcessorOffsets &to) { return place(to); }))
{
    buildUi();
    connectSignals();
    updateSteps();
    updateLabel();
}

CLayoutSummaryWidget::~CLayoutSummaryWidget() = default;

void CLayoutSummaryWidget::showProcessors(const QList<ProcessorTree::ProcessorNode> &processors)
{
    if (m_busy) {
        m_waiting = processors;
        return;
    }
    QList<QUuid> keys;
    for (const ProcessorTree::ProcessorNode &node : processors)
        keys << node.uuid;
    const ProcessorBoundingRects places = CHostAccess::call<&Host::processorBoundingRects>(keys);
    QVector<SSummaryProcessor> shown;
    QStringList leftOut;
    for (const ProcessorTree::ProcessorNode &node : processors) {
        if (node.fiberTransceiver) {
            leftOut << node.displayText();
            continue;
        }
        const QRect place = places.value(node.uuid);
        shown << SSummaryProcessor{node.uuid, node.displayText(), place.size(), place.topLeft(), node.online};
    }
    m_view->setProcessors(shown);
    m_history->enter(m_view->offsets());
    const QString count = tr("%1 processors").arg(shown.size());
    const QString without = tr("%1, in Fiber Optic Transceiver Mode and without an area: %2");
    m_count->setText(leftOut.isEmpty() ? count : tr("%1, %2 without an area").arg(count).arg(leftOut.size()));
    m_count->setToolTip(leftOut.isEmpty() ? QString()
                                          : without.arg(count, leftOut.join(QStringLiteral(", "))));
    updateSteps();
    updateLabel();
}

void CLayoutSummaryWidget::setEditingBlocked(bool blocked)
{
    m_blocked = blocked;
    m_view->setEditingBlocked(blocked);
    updateSteps();
    updateLabel();
}

/// The keys are only shown: the page listens to them itself.
void CLayoutSummaryWidget::fillEditMenu(QMenu &menu) const
{
    for (const auto &[text, step] : {std::pair(tr("&Undo"), m_undo), std::pair(tr("&Redo"), m_redo)}) {
        QAction *entry = menu.addAction(text);
        entry->setShortcut(step->shortcut());
        entry->setShortcutContext(Qt::WidgetShortcut);
        entry->setEnabled(step->isEnabled());
        connect(entry, &QAction::triggered, step, &QAction::trigger);
    }
}

void CLayoutSummaryWidget::buildUi()
{
    m_view = new CSummaryGraphicsView;
    m_label = new CSummaryLabel;
    m_label->setFocusHeir(m_view);
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_view, 1);
    row->addWidget(m_label);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(titleRow());
    column->addLayout(row, 1);
    setTabOrder(m_view, m_label);
}

QHBoxLayout *CLayoutSummaryWidget::titleRow()
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(12, 1, 12, 1);
    row->setSpacing(8);
    auto *title = new QLabel(tr("Summary"));
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    row->addWidget(title);
    m_count = new QLabel;
    m_count->setTextFormat(Qt::PlainText);
    m_count->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(m_count, 1);
    QList<QKeySequence> redoKeys = QKeySequence::keyBindings(QKeySequence::Redo);
    const QKeySequence named(Qt::CTRL | Qt::Key_Y); // everywhere, so it is what the menu shows
    redoKeys.removeAll(named);
    redoKeys.prepend(named);
    m_undo = addStep(*row, QStringLiteral(":/Image/ToolBar/undo"), tr("Undo(Ctrl+Z)"),
                     QKeySequence::keyBindings(QKeySequence::Undo));
    m_redo = addStep(*row, QStringLiteral(":/Image/ToolBar/redo"), tr("Redo(Ctrl+Y)"), redoKeys);
    return row;
}

QAction *CLayoutSummaryWidget::addStep(QHBoxLayout &row, const QString &icon, const QString &text,
                                       const QList<QKeySequence> &keys)
{
    auto *action = new QAction(stepIcon(icon), text, this);
    action->setToolTip(text);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WindowShortcut); // also from the tree that chooses the processors
    addAction(action);
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setFixedSize(StepButtonSize);
    button->setIconSize(QSize(StepIconSide, StepIconSide));
    button->setFocusPolicy(Qt::TabFocus);
    row.addWidget(button);
    return action;
}

void CLayoutSummaryWidget::connectSignals()
{
    connect(m_view, &CSummaryGraphicsView::itemGeometryChanged, m_label,
            &CSummaryLabel::onItemGeometryChanged);
    connect(m_view, &CSummaryGraphicsView::itemOffsetChanged, m_label, &CSummaryLabel::onItemOffsetChanged);
    connect(m_view, &CSummaryGraphicsView::selectionChanged, this, &CLayoutSummaryWidget::updateLabel);
    connect(m_view, &CSummaryGraphicsView::notifyMoved, this, &CLayoutSummaryWidget::onMoved);
    connect(m_label, &CSummaryLabel::notifyItemOffsetChanged, m_view,
            &CSummaryGraphicsView::onItemOffsetChanged);
    connect(m_history.get(), &COffsetHistory::notifyChanged, this, &CLayoutSummaryWidget::updateSteps);
    connect(m_undo, &QAction::triggered, this, &CLayoutSummaryWidget::undo);
    connect(m_redo, &QAction::triggered, this, &CLayoutSummaryWidget::redo);
}

/// While the host moves processors it announces that already, and the history does not yet have the step.
void CLayoutSummaryWidget::carryOut(const std::function<void()> &step)
{
    m_busy = true;
    step();
    m_busy = false;
    if (const auto waiting = std::exchange(m_waiting, std::nullopt))
        showProcessors(*waiting);
}

void CLayoutSummaryWidget::onMoved(const ProcessorOffsets &before, const ProcessorOffsets &after)
{
    carryOut([&] {
        if (write(after)) {
            m_history->record(before, after);
        } else {
            m_view->setOffsets(before);
            tellProblem();
        }
    });
}

void CLayoutSummaryWidget::undo()
{
    m_view->endGesture();
    carryOut([this] { m_history->undo(); });
}

void CLayoutSummaryWidget::redo()
{
    m_view->endGesture();
    carryOut([this] { m_history->redo(); });
}

bool CLayoutSummaryWidget::place(const ProcessorOffsets &offsets)
{
    const bool written = write(offsets);
    if (written)
        m_view->setOffsets(offsets);
    else
        tellProblem();
    return written;
}

bool CLayoutSummaryWidget::write(const ProcessorOffsets &offsets)
{
    return CHostAccess::call<&Host::setProcessorOffsets>(offsets);
}

void CLayoutSummaryWidget::tellProblem()
{
    CMessageBox::warning(this, tr("Set failed."), CHostAccess::call<&Host::lastError>());
}

void CLayoutSummaryWidget::updateLabel()
{
    const QVector<SSummaryProcessor> selection = m_view->selection();
    const QString title = selection.size() > 1  ? tr("%1 processors selected").arg(selection.size())
                          : selection.isEmpty() ? QString()
                                                : selection.first().text;
    m_label->setSubject(title, noteOn(selection));
    m_label->setEditable(m_view->canMove());
}

void CLayoutSummaryWidget::updateSteps()
{
    m_undo->setEnabled(!m_blocked && m_history->canUndo());
    m_redo->setEnabled(!m_blocked && m_history->canRedo());
}

QString CLayoutSummaryWidget::noteOn(const QVector<SSummaryProcessor> &selection) const
{
    if (selection.isEmpty())
        return tr("Click a processor, or press Tab, to select it.");
    if (m_blocked)
        return tr("Editing is locked.");
    const auto offline = std::count_if(selection.begin(), selection.end(),
                                       [](const SSummaryProcessor &processor) { return !processor.online; });
    if (offline == selection.size())
        return offline == 1 ? tr("The processor is offline: its offset cannot be changed.")
                            : tr("The processors are offline: their offsets cannot be changed.");
    const QString how = tr("Drag to move; edges catch unless Alt is held. Arrow keys move by 1 pixel, with "
                           "Shift by 10.");
    return offline == 0 ? how : tr("Those that are offline stay where they are.") + QLatin1Char('\n') + how;
}
