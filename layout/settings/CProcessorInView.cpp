// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CProcessorInView.h"

#include "layout/api/ILayoutInterfaceHandler.h"
#include "layout/api/access/CHostAccess.h"
#include "platform/widgets/CMessageBox.h"

QUuid CProcessorInView::key()
{
    const auto handler = CHostAccess::handler();
    return handler ? handler->currentProcessorNode().uuid : QUuid();
}

bool CProcessorInView::isStill(const QUuid &processor, QWidget *window, const QString &failure)
{
    if (!processor.isNull() && key() == processor)
        return true;
    CMessageBox::information(window, failure, tr("The processor is no longer in view."));
    return false;
}

bool CProcessorInView::carryOut(const QUuid &processor, QWidget *window, const Operation &operation,
                                const QString &failure)
{
    if (!isStill(processor, window, failure))
        return false;
    const auto handler = CHostAccess::handler();
    if (handler && operation(*handler))
        return true;
    CMessageBox::information(window, failure, handler ? handler->lastError() : QString());
    return false;
}
