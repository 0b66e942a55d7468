// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/HostOperations.h"

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

    /// Calls @p Operation, a member of ILayoutInterfaceHandler, with @p arguments. Pending edits are handed
    /// over before if the operation depends on them (see HostOperations.h) and this is the GUI thread. The
    /// handler is fetched for this one call and released after it. Without a host nothing is called, and a
    /// default value (false, empty) is returned. For an operation that returns nothing, returns whether it
    /// was called. Any thread that the operation allows.
    template <auto Operation, typename... Arguments>
    static auto call(Arguments &&...arguments)
    {
        if constexpr (HostOperations::NeedsEdits<Operation>)
            flush();
        return callUnflushed<Operation>(std::forward<Arguments>(arguments)...);
    }

    /// Like call(), for a function that takes the handler. Pending edits are handed over first.
    template <typename Function>
    static auto call(Function &&function)
    {
        static_assert(!std::is_member_function_pointer_v<std::decay_t<Function>>,
                      "Write call<&ILayoutInterfaceHandler::operation>(arguments)");
        flush();
        return invoke(std::forward<Function>(function));
    }

    /// Like call(), for the store, which holds the edits: they are never handed over.
    template <auto Operation, typename... Arguments>
    static auto callUnflushed(Arguments &&...arguments)
    {
        return invoke(Operation, std::forward<Arguments>(arguments)...);
    }

private:
    template <typename Operation, typename... Arguments>
    static auto invoke(Operation &&operation, Arguments &&...arguments)
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

    static std::shared_ptr<ILayoutInterfaceHandler> handler(); ///< null without a host or handler
    static void flush(); ///< does nothing on other threads than the GUI thread
};
