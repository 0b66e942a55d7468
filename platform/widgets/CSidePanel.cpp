// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CSidePanel.h"

#include "platform/widgets/CSeparator.h"
#include "platform/widgets/CUnitLabel.h"

#include <QVBoxLayout>

namespace {

constexpr int SideUnitWidth = 340;
constexpr int SideMargin = 12; // the scroll bar, where there is one, stands in the right margin

} // namespace

CSidePanel::CSidePanel(QWidget *parent)
    : CScrollArea(parent)
{
    buildUi();
}

void CSidePanel::addUnit(CUnitLabel *unit)
{
    for (QWidget *widget : std::initializer_list<QWidget *>{unit, new CSeparator}) {
        widget->setFixedWidth(SideUnitWidth);
        m_units->insertWidget(m_units->count() - 1, widget, 0, Qt::AlignLeft); // above the stretch
    }
}

void CSidePanel::buildUi()
{
    auto *column = new QWidget;
    m_units = new QVBoxLayout(column);
    m_units->setContentsMargins(SideMargin, 4, 0, 4);
    m_units->setSpacing(4);
    m_units->addStretch(1);
    setWidget(column);
    setMinimumWidth(SideMargin + SideUnitWidth + SideMargin);
}
