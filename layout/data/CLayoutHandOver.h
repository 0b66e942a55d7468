// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "platform/common/CWorkThread.h"

#include <QHash>

#include <chrono>
#include <functional>
#include <mutex>

/// Hands edited layouts to the host, at once or deferred on a worker of its own. An older layout of a
/// processor never replaces a newer one. Any thread, unless stated otherwise.
class CLayoutHandOver final
{
public:
    /// What is deferred waits that long: edits in quick succession are handed over as one.
    static constexpr std::chrono::milliseconds Delay{200};

    /// @p followUpWanted returns whether the host shall follow up each layout; @p handed is called when the
    /// host has one. Both are called on any thread.
    CLayoutHandOver(std::function<bool()> followUpWanted, std::function<void()> handed);

    // @p edited: the layout differs from what the host has. GUI thread.
    /// Hands @p data over before returning; deferred layouts of the processor are dropped.
    void handOverNow(const LayoutData &data, bool edited);
    /// Hands @p data over after a short delay, unless a newer layout comes first.
    void handOverLater(const LayoutData &data, bool edited);

    /// Whether a deferred layout of @p processor has not reached the host yet.
    bool isPending(const QUuid &processor) const;
    /// Drops the deferred layouts of @p processor. Returns whether an edit is lost with them. What the host
    /// is being given right now is not; that is waited for, so that it never comes after what the caller
    /// knows. Not on the GUI thread.
    bool drop(const QUuid &processor);

    /// Ends the worker and waits for it; deferred layouts are dropped.
    void stop();

private:
    quint64 number(const QUuid &processor, bool edited);
    void post(const LayoutData &data, quint64 number, bool committed);
    void commit(const LayoutData &data, quint64 number);

    const std::function<bool()> m_followUpWanted;
    const std::function<void()> m_handed;
    mutable std::mutex m_mutex;         // guards the numbers
    QHash<QUuid, quint64> m_newest;     // number of the newest layout of each processor
    QHash<QUuid, quint64> m_edited;     // number of the newest one that was edited
    QHash<QUuid, quint64> m_handedOver; // number of the newest one that reached the host or was dropped
    quint64 m_lastNumber = 0;
    std::mutex m_commitMutex; // one hand-over at a time
    CWorkThread m_worker;     // last: its closures use the members above
};
