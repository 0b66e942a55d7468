// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/CPortFill.h"

#include "layout/data/CLayoutData.h"
#include "layout/drawing/CPortColors.h"
#include "layout/settings/CCabinetFillSetting.h"
#include "layout/settings/CProcessorInView.h"

void CPortFill::ask(int port) const
{
    if (m_store.portRedundancy(port) == CLayoutData::Port::Redundant)
        return;
    const QUuid processor = m_store.currentProcessor();
    CCabinetFillSetting dialog(m_store.port(port).color, CPortColors::fill(port), m_parent);
    dialog.setAllPortsRule(rule());
    if (dialog.exec() != QDialog::Accepted || !CProcessorInView::isStill(processor, m_parent))
        return;
    const SCabinetFill fill = dialog.fill();
    if (fill.allPorts)
        fillAll(fill.color);
    else
        m_store.setPortColor(port, fill.color);
}

QString CPortFill::rule()
{
    return tr("Locked output ports, too; redundancy ports have no fill.");
}

void CPortFill::resetAll() const
{
    fillAll(QColor());
}

void CPortFill::fillAll(const QColor &color) const
{
    const QVector<CLayoutData::Port> ports = m_store.ports();
    for (const CLayoutData::Port &port : ports) {
        if (port.redundancy != CLayoutData::Port::Redundant)
            m_store.setPortColor(port.index, color);
    }
}
