// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CCabinetGemometryLabel.h"

#include "layout/api/records/EditRefusal.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/data/CLayoutData.h"
#include "layout/geometry/SSelectionFigures.h"
#include "layout/panels/CabinetRank.h"
#include "layout/panels/SelectedPorts.h"
#include "platform/widgets/input/CRecoveryFocusSpinBox.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>

#include <algorithm>
#include <limits>

namespace {

constexpr int GeometryFieldWidth = 104;
constexpr int FirstCaption = 0; // columns of the grid
constexpr int SecondCaption = 2;
constexpr int LargestExtent = LayoutLimits::LargestOffset;
constexpr int AnyPlace = std::numeric_limits<int>::max(); // the editor limits places, and says so

/// The figure that all cabinets have, or a dash.
QString commonFigure(int figure)
{
    return figure == SSelectionFigures::Mixed ? QStringLiteral("\u2013") : QString::number(figure);
}

} // namespace

CCabinetGemometryLabel::CCabinetGemometryLabel(const SUnitServices &services)
    : m_store(services.store)
{
    buildUi();
    connectSignals();
    onNotifySelectedCabinetInfos({});
    updateEnabled();
}

void CCabinetGemometryLabel::setEditingBlocked(bool locked, bool redundancy)
{
    m_block = EditRefusal::of(locked, redundancy);
    updateEnabled();
}

void CCabinetGemometryLabel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor)
{
    m_processor = processor;
    updateEnabled();
}

void CCabinetGemometryLabel::onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor)
{
    onCurrentProcessorChanged(processor);
}

void CCabinetGemometryLabel::onSelectedPorts(const QList<int> &ports)
{
    m_selectedPorts = ports;
    updateEnabled();
}

void CCabinetGemometryLabel::onSelectedCabinetGeometryChanged(const QRect &extent)
{
    m_extent = extent;
    showExtent();
}

void CCabinetGemometryLabel::onNotifySelectedCabinetInfos(
    const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets)
{
    onSelectionFigures(SSelectionFigures::of(cabinets));
}

void CCabinetGemometryLabel::onSelectionFigures(const SSelectionFigures &figures)
{
    m_arranged = figures.arranged.size();
    m_resizable = figures.resizable;
    m_rank = CabinetRank::of(figures.arranged);
    m_count->setText(QString::number(figures.count));
    m_cabinetWidth->setText(commonFigure(figures.width));
    m_cabinetHeight->setText(commonFigure(figures.height));
    showRank();
    updateEnabled();
}

void CCabinetGemometryLabel::buildUi()
{
    SetTitle(tr("Cabinets information"));
    m_lock = new QCheckBox(tr("Lock to prevent edits"));
    m_count = new QLabel;
    m_count->setAccessibleName(tr("Selected cabinet count"));
    m_count->setToolTip(tr("Selected cabinet count"));
    auto *head = new QHBoxLayout;
    head->addWidget(m_lock);
    head->addStretch();
    head->addWidget(new QLabel(tr("Cabinets selected")));
    head->addWidget(m_count);
    contentLayout()->addLayout(head);

    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(8);
    grid->setColumnStretch(FirstCaption, 1);
    grid->setColumnStretch(SecondCaption, 1);
    m_columns = addField(*grid, 0, FirstCaption, tr("Columns"), 1, LargestExtent);
    m_rows = addField(*grid, 0, SecondCaption, tr("Rows"), 1, LargestExtent);
    m_x = addField(*grid, 1, FirstCaption, tr("X"), -AnyPlace, AnyPlace);
    m_y = addField(*grid, 1, SecondCaption, tr("Y"), -AnyPlace, AnyPlace);
    m_width = addField(*grid, 2, FirstCaption, tr("Width"), 1, LargestExtent);
    m_height = addField(*grid, 2, SecondCaption, tr("Height"), 1, LargestExtent);
    contentLayout()->addLayout(grid);

    auto *size = new QHBoxLayout;
    size->addWidget(new QLabel(tr("Cabinet size")));
    size->addStretch();
    for (const auto &[caption, figure] :
         {std::make_pair(tr("Width"), &m_cabinetWidth), std::make_pair(tr("Height"), &m_cabinetHeight)}) {
        *figure = new QLabel;
        (*figure)->setAccessibleName(QStringLiteral("%1, %2").arg(tr("Cabinet size"), caption));
        size->addSpacing(8);
        size->addWidget(new QLabel(caption));
        size->addWidget(*figure);
    }
    contentLayout()->addLayout(size);
}

CRecoveryFocusSpinBox *CCabinetGemometryLabel::addField(QGridLayout &grid, int row, int column,
                                                        const QString &name, int minimum, int maximum)
{
    auto *field = new CRecoveryFocusSpinBox;
    field->setFixedWidth(GeometryFieldWidth);
    field->setRange(minimum, maximum);
    field->setAccessibleName(name);
    auto *caption = new QLabel(name);
    caption->setBuddy(field);
    grid.addWidget(caption, row, column);
    grid.addWidget(field, row, column + 1);
    return field;
}

void CCabinetGemometryLabel::connectSignals()
{
    connect(m_lock, &QCheckBox::clicked, this, [this] { lockPorts(!m_allLocked); });
    const auto whenEntered = [this](CRecoveryFocusSpinBox *field, const std::function<void(int)> &enter) {
        connect(field, &CRecoveryFocusSpinBox::notifyFigureEntered, this, [this, enter](int figure) {
            enter(figure);
            showExtent(); // what was refused is not shown
            showRank();
        });
    };
    const auto linesOf = [this](int length) { return (m_arranged + length - 1) / length; };
    const auto within = [this](const CRecoveryFocusSpinBox *field, int entered) {
        if (entered > m_arranged)
            field->tell(tr("There are %1 cabinets and groups to arrange.").arg(m_arranged));
        return qBound(1, entered, qMax(1, m_arranged));
    };
    whenEntered(m_columns, [this, linesOf, within](int entered) {
        const int columns = within(m_columns, entered);
        Q_EMIT notifySelectedCabinetRankChanged({columns, linesOf(columns)});
    });
    whenEntered(m_rows, [this, linesOf, within](int entered) {
        const int rows = within(m_rows, entered);
        Q_EMIT notifySelectedCabinetRankChanged({linesOf(rows), rows});
    });
    whenEntered(m_x, [this](int x) { Q_EMIT notifySelectedCabinetPositionChanged({x, m_extent.y()}); });
    whenEntered(m_y, [this](int y) { Q_EMIT notifySelectedCabinetPositionChanged({m_extent.x(), y}); });
    whenEntered(m_width, [this](int width) {
        Q_EMIT notifySelectedCabinetSizeChanged({width, m_extent.height()});
    });
    whenEntered(m_height, [this](int height) {
        Q_EMIT notifySelectedCabinetSizeChanged({m_extent.width(), height});
    });
}

/// The ports that hold the selection; without one those of the whole processor.
void CCabinetGemometryLabel::lockPorts(bool locked)
{
    for (const int port : m_selectedPorts.isEmpty() ? QList<int>{-1} : m_selectedPorts)
        m_store.setPortLocked(port, locked);
    updateEnabled();
}

void CCabinetGemometryLabel::showExtent()
{
    const auto show = [this](CRecoveryFocusSpinBox &field, int figure) {
        if (m_extent.isEmpty())
            field.showMixed();
        else
            field.showFigure(figure);
    };
    show(*m_x, m_extent.x());
    show(*m_y, m_extent.y());
    show(*m_width, m_extent.width());
    show(*m_height, m_extent.height());
}

void CCabinetGemometryLabel::showRank()
{
    const auto show = [](CRecoveryFocusSpinBox &field, int figure) {
        if (figure > 0)
            field.showFigure(figure);
        else
            field.showMixed();
    };
    show(*m_columns, m_rank.width());
    show(*m_rows, m_rank.height());
}

void CCabinetGemometryLabel::updateEnabled()
{
    QList<int> ports = m_selectedPorts;
    if (ports.isEmpty()) {
        for (const CabinetLayout::CabinetPort &port : m_store.ports())
            ports << port.index;
    }
    const auto locked =
        std::count_if(ports.begin(), ports.end(), [this](int port) { return m_store.isPortLocked(port); });
    m_allLocked = locked == ports.size();
    m_lock->setCheckState(locked == 0 ? Qt::Unchecked : m_allLocked ? Qt::Checked : Qt::PartiallyChecked);
    const QString lockRefused = SelectedPorts::refusal(m_processor, m_block);
    m_lock->setEnabled(lockRefused.isEmpty() && !ports.isEmpty());
    m_lock->setToolTip(!lockRefused.isEmpty() ? lockRefused
                       : m_selectedPorts.isEmpty()
                           ? tr("Locks all output ports of the processor")
                           : tr("Locks the output ports that hold the selected cabinets"));
    const QString refused = SelectedPorts::refusal(m_processor, m_block, m_store, m_selectedPorts);
    for (CRecoveryFocusSpinBox *field : {m_x, m_y}) {
        field->setEnabled(refused.isEmpty());
        field->setToolTip(refused);
    }
    for (CRecoveryFocusSpinBox *field : {m_columns, m_rows}) {
        field->setEnabled(refused.isEmpty() && m_arranged != 1);
        field->setToolTip(!refused.isEmpty() ? refused
                          : m_arranged == 1  ? tr("What is selected is one thing: a group counts as one.")
                                             : QString());
    }
    for (CRecoveryFocusSpinBox *field : {m_width, m_height}) {
        field->setEnabled(refused.isEmpty() && m_resizable);
        field->setToolTip(!refused.isEmpty() ? refused
                          : m_resizable      ? tr("Cabinets and groups are scaled together.")
                                             : tr("Cabinets of a group, and groups that do not tile a "
                                                       "rectangle with one type, cannot be resized."));
    }
}
