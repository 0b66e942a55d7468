// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/CCancelToken.h"

#include <memory>
#include <thread>

class CDeviceServices;
class QUuid;

/// Asks all processors now and then, on a thread of its own: those that no longer answer are offline from
/// then on, and those that answer again are taken back as a detection does. GUI thread.
class COfflineWatch final
{
public:
    /// @p services must outlive the watch.
    explicit COfflineWatch(CDeviceServices &services);
    ~COfflineWatch(); ///< stops first

    /// Begins to ask, with pauses of @p milliseconds. A second call does nothing.
    void start(int milliseconds);
    /// Ends the thread. Nothing can be started afterwards. A second call does nothing.
    void stop();

private:
    void run(int milliseconds);
    void askAll();
    void askOnline(const QUuid &processor);

    CDeviceServices &m_services;
    const std::shared_ptr<CCancelToken> m_cancel = std::make_shared<CCancelToken>();
    std::thread m_thread;
};
