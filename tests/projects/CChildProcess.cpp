// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/projects/CChildProcess.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

CChildProcess::CChildProcess(const std::vector<std::function<bool()>> &steps)
{
    if (pipe(m_orders) != 0 || pipe(m_reports) != 0)
        return;
    m_process = fork();
    if (m_process == 0)
        carryOut(steps);
}

CChildProcess::~CChildProcess()
{
    kill();
    for (const int end : {m_orders[0], m_orders[1], m_reports[0], m_reports[1]})
        close(end);
}

void CChildProcess::carryOut(const std::vector<std::function<bool()>> &steps) const
{
    for (const auto &step : steps) {
        char byte = 0;
        if (read(m_orders[0], &byte, 1) != 1)
            _exit(1);
        byte = step() ? 'y' : 'n';
        if (write(m_reports[1], &byte, 1) != 1)
            _exit(1);
    }
    for (;;)
        pause();
}

bool CChildProcess::next()
{
    char byte = 0;
    return m_process > 0 && write(m_orders[1], &byte, 1) == 1 && read(m_reports[0], &byte, 1) == 1 &&
           byte == 'y';
}

void CChildProcess::kill()
{
    if (m_process <= 0)
        return;
    ::kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = 0;
}
