// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

class IAbstractControlInterface;
class ILayoutInterfaceHandler;

/// The only way from the module to the host. Knows interfaces only, so that a dialog can be built and tested
/// alone.
class CHostAccess final
{
public:
    /// The host, or null if there is none or it has gone. Set by the controller, and by tests.
    static void setHost(IAbstractControlInterface *host);

    /// The host's handler, fetched afresh; kept by the caller for one call. Null without a host or handler.
    static std::shared_ptr<ILayoutInterfaceHandler> handler();
};
