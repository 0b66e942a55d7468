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
/// separately.
class CHostAccess final
{
public:
    /// Sets the host; null if there is none (any more). Called by the controller and by tests.
    static void setHost(IAbstractControlInterface *host);
    /// Sets the object that holds edits until they are handed over; null: none. Called by the store.
    static void setEdits(IEditSource *edits);
    static IEditSource *edits();

    /// Calls @p operation, an operation of ILayoutInterfaceHandler or a function that takes the handler, with
    /// @p arguments. The handler is fetched for this one call and released after it. Without a host nothing
    /// is called, and a default value (false, empty) is returned. For an operation that returns nothing,
    /// returns whether it was called. Any thread that the operation allows.
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

    /// Like call(), for operations that depend on the layout in the editor: hands over pending edits first.
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
