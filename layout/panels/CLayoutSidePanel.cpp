// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"

#include "layout/panels/CMappingLabel.h"
#include "layout/panels/CSystemLoadLabel.h"

CLayoutSidePanel::CLayoutSidePanel(QWidget *parent)
    : CSidePanel(parent)
    , m_mapping(new CMappingLabel)
    , m_systemLoad(new CSystemLoadLabel)
{
    buildUi();
    connectSignals();
}

void CLayoutSidePanel::setMappingBusy(bool busy)
{
    m_mapping->setBusy(busy);
}

void CLayoutSidePanel::setEditingBlocked(bool blocked)
{
    m_mapping->setReadBlocked(blocked);
}

void CLayoutSidePanel::reportMappingSaved()
{
    m_mapping->reportMappingSaved();
}

void CLayoutSidePanel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor)
{
    m_mapping->onCurrentProcessorChanged(processor);
}

void CLayoutSidePanel::onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor)
{
    m_mapping->onCurrentProcessorStateChanged(processor);
}

void CLayoutSidePanel::onNotifyProcessorPayloadChanged(int load)
{
    m_systemLoad->onNotifyProcessorPayloadChanged(load);
}

void CLayoutSidePanel::buildUi()
{
    addUnit(m_mapping);
    addUnit(m_systemLoad);
}

void CLayoutSidePanel::connectSignals()
{
    connect(m_mapping, &CMappingLabel::notifySaveMappingSuccessed, this,
            &CLayoutSidePanel::notifySaveMappingSuccessed);
    connect(m_mapping, &CMappingLabel::notifyReadMapping, this, &CLayoutSidePanel::notifyReadMapping);
    connect(m_mapping, &CMappingLabel::notifySaveMapping, this, &CLayoutSidePanel::notifySaveMapping);
}
