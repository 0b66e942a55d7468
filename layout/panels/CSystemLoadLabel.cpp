// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CSystemLoadLabel.h"

#include "layout/data/CLayoutData.h"
#include "layout/panels/CSystemLoadProgressBar.h"
#include "layout/panels/ports/COverloadLine.h"
#include "layout/panels/ports/LoadText.h"

#include <QVBoxLayout>

CSystemLoadLabel::CSystemLoadLabel(const SUnitServices &services)
    : m_store(services.store)
    , m_bar(new CSystemLoadProgressBar)
    , m_overload(new COverloadLine(services.store))
{
    SetTitle(tr("System load"));
    contentLayout()->addWidget(m_bar);
    contentLayout()->addWidget(m_overload); // the mean does not show which port is overloaded
    connect(&services.store, &CLayoutData::notifyProcessorPayloadChanged, this,
            &CSystemLoadLabel::onNotifyProcessorPayloadChanged);
    connect(m_overload, &COverloadLine::notifySelectPorts, this, &CSystemLoadLabel::notifySelectPorts);
}

void CSystemLoadLabel::onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &)
{
    m_overload->refresh();
}

void CSystemLoadLabel::onNotifyProcessorPayloadChanged(int load)
{
    m_bar->onNotifyProcessorPayloadChanged(load);
    m_bar->setToolTip(LoadText::ofProcessor(load, m_store.ports().size()));
}
