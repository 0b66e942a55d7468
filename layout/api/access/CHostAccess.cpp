// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/access/CHostAccess.h"

#include "layout/api/access/IEditSource.h"
#include "platform/control/IAbstractControlInterface.h"

#include <QCoreApplication>
#include <QThread>

#include <atomic>

namespace {
std::atomic<IAbstractControlInterface *> currentHost{nullptr};
std::atomic<IEditSource *> currentEdits{nullptr};
} // namespace

void CHostAccess::setHost(IAbstractControlInterface *host)
{
    currentHost = host;
}

void CHostAccess::setEdits(IEditSource *edits)
{
    currentEdits = edits;
}

IEditSource *CHostAccess::edits()
{
    return currentEdits;
}

std::shared_ptr<ILayoutInterfaceHandler> CHostAccess::handler()
{
    IAbstractControlInterface *host = currentHost;
    return host ? std::dynamic_pointer_cast<ILayoutInterfaceHandler>(host->handler()) : nullptr;
}

void CHostAccess::flush()
{
    const QCoreApplication *application = QCoreApplication::instance();
    IEditSource *edits = currentEdits;
    if (edits && application && application->thread() == QThread::currentThread())
        edits->flushEdits();
}
