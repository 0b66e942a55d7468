// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CSystemLoadLabel.h"

#include "layout/panels/CSystemLoadProgressBar.h"

#include <QVBoxLayout>

CSystemLoadLabel::CSystemLoadLabel(QWidget *parent)
    : CUnitLabel(parent)
    , m_bar(new CSystemLoadProgressBar)
{
    SetTitle(tr("System load"));
    contentLayout()->addWidget(m_bar);
}

void CSystemLoadLabel::onNotifyProcessorPayloadChanged(int load)
{
    m_bar->onNotifyProcessorPayloadChanged(load);
}
