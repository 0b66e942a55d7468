// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/ILayoutInterfaceHandler.h"

#include <functional>
#include <memory>
#include <type_traits>

class IAbstractControlInterface;
class IEditSource;

/// The only way from the module to the host. Knows interfaces only, so that a dialog can be built and tested
/// alone.
class CHostAccess final
{
public:
    /// The host, or null if there is none or it has gone. Set by the controller, and by tests.
    static void setHost(IAbstractControlInterface *host);
    /// Where edits wait for their hand-over; null: nowhere. Set by the store.
    static void setEdits(IEditSource *edits);
    static IEditSource *edits();

    /// Calls @p operation, an operation of ILayoutInterfaceHandler or a function that takes the handler, with
    /// @p arguments. The handler is fetched for this one call and released after it. Without a host nothing
    /// is called, and a default value (false, empty) is the answer. The answer of an operation that has none
    /// is whether it was called. Any thread that the operation allows.
    template <typename Operation, typename... Arguments>
    static auto call(Operation &&operation, Arguments &&...arguments)
    {
        using Answer = std::decay_t<std::invoke_result_t<Operation, ILayoutInterfaceHandler &, Arguments...>>;
        const std::shared_ptr<ILayoutInterfaceHandler> host = handler();
        if constexpr (std::is_void_v<Answer>) {
            if (host)
                std::invoke(std::forward<Operation>(operation), *host, std::forward<Arguments>(arguments)...);
            return host != nullptr;
        } else {
            return host ? Answer(std::invoke(std::forward<Operation>(operation), *host,
                                             std::forward<Arguments>(arguments)...))
                        : Answer();
        }
    }

    /// Like call(), for all that depends on the layout in the editor: first hands over the edits that wait.
    /// GUI thread.
    template <typename Operation, typename... Arguments>
    static auto flushAndCall(Operation &&operation, Arguments &&...arguments)
    {
        flush();
        return call(std::forward<Operation>(operation), std::forward<Arguments>(arguments)...);
    }

private:
    static std::shared_ptr<ILayoutInterfaceHandler> handler(); ///< null without a host or handler
    static void flush();
};
