// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <optional>
#include <utility>

/// Makes a slow call without freezing the window: the call runs on its own thread. The GUI thread waits for
/// it, but goes on painting and delivering queued events; only user input waits.
class CBackgroundCall final
{
public:
    /// Runs @p work and returns when it has ended. On any thread except the GUI thread, simply calls it.
    static void run(const std::function<void()> &work);

    /// Returns what @p work returns; see run().
    template <typename Work>
    static auto result(const Work &work)
    {
        std::optional<decltype(work())> given;
        run([&given, &work] { given.emplace(work()); });
        return std::move(*given);
    }
};
