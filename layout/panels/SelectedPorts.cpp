// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/SelectedPorts.h"

#include "layout/api/access/IPortStates.h"
#include "layout/api/records/EditRefusal.h"

#include <QCoreApplication>

QString SelectedPorts::refusal(const ProcessorTree::ProcessorNode &processor, const QString &block)
{
    if (processor.uuid.isNull())
        return QCoreApplication::translate("SelectedPorts", "No processor is shown.");
    return processor.online ? block : EditRefusal::offline();
}

QString SelectedPorts::refusal(const ProcessorTree::ProcessorNode &processor, const QString &block,
                               const IPortStates &states, const QList<int> &ports)
{
    const QString refused = refusal(processor, block);
    if (!refused.isEmpty())
        return refused;
    for (const int port : ports) {
        const bool redundant = states.portRedundancy(port) == CabinetLayout::CabinetPort::Redundant;
        const QString closed = EditRefusal::ofPort(port, states.isPortLocked(port), redundant);
        if (!closed.isEmpty())
            return closed;
    }
    return ports.isEmpty() ? EditRefusal::nothingSelected() : QString();
}
