// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <optional>
#include <utility>

/// Makes a call that takes long without stopping the window: it runs on a thread of its own while the GUI
/// thread, which waits for it, goes on painting and delivering what is queued; only the user's input waits.
class CBackgroundCall final
{
public:
    /// Runs @p work and returns when it has ended. On any thread but the GUI thread it is just called.
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
