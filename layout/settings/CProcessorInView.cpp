// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CProcessorInView.h"

#include "layout/api/access/CHostAccess.h"
#include "platform/widgets/CMessageBox.h"

QUuid CProcessorInView::key()
{
    return CHostAccess::call<&ILayoutInterfaceHandler::currentProcessorNode>().uuid;
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
