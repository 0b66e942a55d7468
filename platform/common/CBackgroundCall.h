// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <new>
#include <optional>
#include <utility>

/// Makes a slow call without freezing the window: the call runs on its own thread. The GUI thread waits for
/// it, but goes on painting and delivering queued events; only user input waits.
class CBackgroundCall final
{
    Q_DECLARE_TR_FUNCTIONS(CBackgroundCall)

public:
    /// Runs @p work and returns when it has ended. On any thread except the GUI thread, simply calls it. An
    /// exception of @p work is passed to the caller.
    static void run(const std::function<void()> &work);

    /// Returns what @p work returns, a CResult or CStatus; see run(). Running out of memory in it becomes a
    /// failure.
    template <typename Work>
    static auto result(const Work &work)
    {
        using Result = decltype(work());
        std::optional<Result> given;
        try {
            run([&given, &work] { given.emplace(work()); });
        } catch (const std::bad_alloc &) {
            given.emplace(Result::failure(memoryText()));
        }
        return std::move(*given);
    }

    /// What the user is told when memory has run out.
    static QString memoryText();
};
