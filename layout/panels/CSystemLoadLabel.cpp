// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CSystemLoadLabel.h"

#include "layout/data/CLayoutData.h"
#include "layout/panels/CSystemLoadProgressBar.h"

#include <QVBoxLayout>

CSystemLoadLabel::CSystemLoadLabel(const SUnitServices &services)
    : m_bar(new CSystemLoadProgressBar)
{
    SetTitle(tr("System load"));
    contentLayout()->addWidget(m_bar);
    connect(&services.store, &CLayoutData::notifyProcessorPayloadChanged, this,
            &CSystemLoadLabel::onNotifyProcessorPayloadChanged);
}

void CSystemLoadLabel::onNotifyProcessorPayloadChanged(int load)
{
    m_bar->onNotifyProcessorPayloadChanged(load);
}
