// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/StoreBarrier.h"

/// A host, and a store that observes it.
struct SStoreWorld
{
    SStoreWorld() { host.subject()->attach(store); }
    ~SStoreWorld()
    {
        host.subject()->detach(store);
        store.stop();
    }

    /// Brings @p processor into view in host and store.
    void show(const QUuid &processor)
    {
        host.choose(processor);
        host.notify(LayoutNotification::CurrentProcessorChanged, processor);
        settle(host, store);
    }
    CFakeAnswers answers() { return host.answers(); }

    CFakeHost host;
    CLayoutData store;
};
