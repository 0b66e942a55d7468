// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CTestBase.h"

#include <QEventLoop>
#include <QTimer>

/// Returns when the notification worker of @p store, which must be attached to @p host, has done all queued
/// work, and its queued signals have been delivered on this thread. Both must have the same current
/// processor. Uses a finished detection for that: the store's work for it begins with one signal and ends
/// with another.
inline void settle(CFakeHost &host, CLayoutData &store)
{
    QEventLoop loop;
    bool begun = false;
    QObject::connect(&store, &CLayoutData::notifyDetectFinished, &loop, [&begun] { begun = true; });
    QObject::connect(&store, &CLayoutData::notifyProcessorCanvasSizeChanged, &loop, [&] {
        if (begun)
            loop.quit();
    });
    QTimer::singleShot(PatienceMilliseconds, &loop,
                       [] { qFatal("The store's worker does not come to an end"); });
    host.notify(LayoutNotification::DetectFinished);
    loop.exec();
}
