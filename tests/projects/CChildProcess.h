// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

#include <functional>
#include <sys/types.h>
#include <vector>

/// A copy of the test's process that carries out steps, each when it is told to, and lives until it is
/// killed.
class CChildProcess final
{
public:
    explicit CChildProcess(const std::vector<std::function<bool()>> &steps);
    ~CChildProcess(); ///< kills it
    Q_DISABLE_COPY(CChildProcess)

    bool next(); ///< carries out the next step; returns what that returned
    pid_t number() const { return m_process; }
    void kill();

private:
    void carryOut(const std::vector<std::function<bool()>> &steps) const;

    pid_t m_process = 0;
    int m_orders[2] = {-1, -1}; // pipes
    int m_reports[2] = {-1, -1};
};
