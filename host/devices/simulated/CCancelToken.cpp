// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CCancelToken.h"

#include <chrono>

bool CCancelToken::wait(int milliseconds)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    return !m_wake.wait_until(lock, until, [this] { return m_cancelled; });
}
