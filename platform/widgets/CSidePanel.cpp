// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/CSidePanel.h"

#include "platform/widgets/CSeparator.h"
#include "platform/widgets/CUnitLabel.h"

#include <QVBoxLayout>

namespace {

// A unit is 340 pixels wide at most; the scroll bar, 8 wide, stands in what is left of the right margin.
constexpr int PanelWidth = 364;
constexpr int LeftMargin = 12;
constexpr int RightMargin = 4;

} // namespace

CSidePanel::CSidePanel(QWidget *parent)
    : CScrollArea(parent)
{
    buildUi();
}

void CSidePanel::addUnit(CUnitLabel *unit)
{
    const int beforeStretch = m_units->count() - 1;
    m_units->insertWidget(beforeStretch, unit);
    m_units->insertWidget(beforeStretch + 1, new CSeparator);
}

void CSidePanel::buildUi()
{
    auto *column = new QWidget;
    m_units = new QVBoxLayout(column);
    m_units->setContentsMargins(LeftMargin, 4, RightMargin, 4);
    m_units->setSpacing(4);
    m_units->addStretch(1);
    setWidget(column);
    setMinimumWidth(PanelWidth);
}
