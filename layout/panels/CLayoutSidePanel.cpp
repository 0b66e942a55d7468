// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"

#include "layout/panels/CMappingLabel.h"
#include "layout/panels/CSystemLoadLabel.h"

CLayoutSidePanel::CLayoutSidePanel(const SUnitServices &services, QWidget *parent)
    : CSidePanel(parent)
{
    // From top to bottom, one line per unit.
    const auto *mapping = add<CMappingLabel>(services);
    add<CSystemLoadLabel>(services);

    connect(mapping, &CMappingLabel::notifySaveMappingSuccessed, this,
            &CLayoutSidePanel::notifySaveMappingSuccessed);
}

template <typename Unit>
Unit *CLayoutSidePanel::add(const SUnitServices &services)
{
    auto *unit = new Unit(services);
    addUnit(unit);
    m_units.push_back(unit);
    return unit;
}

void CLayoutSidePanel::setEditingBlocked(bool blocked)
{
    for (ISidePanelUnit *unit : m_units)
        unit->setEditingBlocked(blocked);
}

void CLayoutSidePanel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor)
{
    for (ISidePanelUnit *unit : m_units)
        unit->onCurrentProcessorChanged(processor);
}

void CLayoutSidePanel::onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor)
{
    for (ISidePanelUnit *unit : m_units)
        unit->onCurrentProcessorStateChanged(processor);
}
