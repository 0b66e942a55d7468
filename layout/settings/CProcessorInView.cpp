// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CProcessorInView.h"

#include "layout/api/access/CHostAccess.h"
#include "platform/widgets/CMessageBox.h"

#include <QSet>

namespace {

using Port = CabinetLayout::CabinetPort;

/// Takes those that are in the saved mapping from @p missing.
void takeMapped(const QVector<Port::CabinetGroup> &groups, QSet<QUuid> &missing)
{
    for (const Port::CabinetGroup &group : groups) {
        for (const Port::Cabinet &cabinet : group.cabinets) {
            if (cabinet.mappingIndex >= 0)
                missing.remove(cabinet.uuid);
        }
        takeMapped(group.groups, missing);
    }
}

} // namespace

QUuid CProcessorInView::key()
{
    return CHostAccess::call<&ILayoutInterfaceHandler::currentProcessorNode>().uuid;
}

QString CProcessorInView::connectionRefusal()
{
    const auto node = CHostAccess::call<&ILayoutInterfaceHandler::currentProcessorNode>();
    if (!node.online)
        return tr("The processor is offline.");
    return node.address == 0 ? tr("A project has no cabinets that are connected.") : QString();
}

QString CProcessorInView::connectionRefusal(const QList<Cabinet> &cabinets)
{
    const QString refused = connectionRefusal();
    if (!refused.isEmpty())
        return refused;
    if (cabinets.isEmpty())
        return tr("There are no cabinets.");
    QSet<QUuid> missing;
    for (const Cabinet &cabinet : cabinets)
        missing << cabinet.uuid;
    const LayoutData data = CHostAccess::call<&ILayoutInterfaceHandler::layoutData>(key());
    for (const Port &port : data.layout.ports) {
        takeMapped(port.groups, missing);
        if (missing.isEmpty())
            return {};
    }
    return cabinets.size() == 1 ? tr("The cabinet is not in the processor's saved mapping.")
                                : tr("Not all of the cabinets are in the processor's saved mapping.");
}

bool CProcessorInView::isStill(const QUuid &processor, QWidget *window, const QString &failure)
{
    if (!processor.isNull() && key() == processor)
        return true;
    CMessageBox::warning(window, failure, tr("The processor is no longer in view."));
    return false;
}

bool CProcessorInView::carryOut(const QUuid &processor, QWidget *window, const Operation &operation,
                                const QString &failure)
{
    if (!isStill(processor, window, failure))
        return false;
    if (CHostAccess::call(operation))
        return true;
    CMessageBox::warning(window, failure, CHostAccess::call<&ILayoutInterfaceHandler::lastError>());
    return false;
}
