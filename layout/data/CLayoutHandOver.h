// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "platform/common/CWorkThread.h"

#include <QHash>

#include <functional>
#include <mutex>

/// Hands edited layouts to the host, at once or deferred on a worker of its own. Of several layouts of one
/// processor only a newer one ever follows an older one. Any thread but where stated otherwise.
class CLayoutHandOver final
{
public:
    /// @p followUpWanted returns, on any thread, whether the host is to follow up each layout.
    explicit CLayoutHandOver(std::function<bool()> followUpWanted);

    /// Hands @p data over before it returns, in place of what is deferred. GUI thread.
    void handOverNow(const LayoutData &data);
    /// Hands @p data over a moment later, unless a newer layout comes first. GUI thread.
    void handOverLater(const LayoutData &data);

    /// Whether a deferred layout of @p processor has not reached the host yet.
    bool isPending(const QUuid &processor) const;
    /// Forgets the deferred layouts of @p processor.
    void drop(const QUuid &processor);

    /// Ends the worker and waits for it; what is deferred is dropped.
    void stop();

private:
    quint64 number(const QUuid &processor);
    void post(const LayoutData &data, quint64 number, bool committed);
    void commit(const LayoutData &data, quint64 number);

    const std::function<bool()> m_followUpWanted;
    mutable std::mutex m_mutex;         // guards the numbers
    QHash<QUuid, quint64> m_newest;     // number of the newest layout of each processor
    QHash<QUuid, quint64> m_handedOver; // of the newest that reached the host or was dropped
    quint64 m_lastNumber = 0;
    std::mutex m_commitMutex; // one hand-over at a time
    CWorkThread m_worker;     // last: its closures use the members above
};
