// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/access/CHostAccess.h"

#include "layout/api/ILayoutInterfaceHandler.h"
#include "platform/control/IAbstractControlInterface.h"

#include <atomic>

namespace {
std::atomic<IAbstractControlInterface *> currentHost{nullptr};
}

void CHostAccess::setHost(IAbstractControlInterface *host)
{
    currentHost = host;
}

std::shared_ptr<ILayoutInterfaceHandler> CHostAccess::handler()
{
    IAbstractControlInterface *host = currentHost;
    return host ? std::dynamic_pointer_cast<ILayoutInterfaceHandler>(host->handler()) : nullptr;
}
