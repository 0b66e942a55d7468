// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/CSignalWatch.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int watchedSignals[] = {SIGTERM, SIGINT, SIGHUP};
volatile std::sig_atomic_t signalPipe = -1;

/// Only passes the number on: hardly anything else is allowed in a signal handler.
void passSignalOn(int number)
{
    const int before = errno;
    const auto byte = static_cast<unsigned char>(number);
    if (write(signalPipe, &byte, 1) != 1)
        _exit(128 + number);
    errno = before;
}

} // namespace

CSignalWatch::CSignalWatch()
{
    if (pipe2(m_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals keep their default effect
    signalPipe = m_pipe[1];
    auto *notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &CSignalWatch::onReadable);
    for (const int number : watchedSignals) {
        struct sigaction before = {};
        sigaction(number, nullptr, &before);
        if (before.sa_handler == SIG_IGN)
            continue; // ignored on purpose, e.g. by nohup
        struct sigaction action = {};
        action.sa_handler = passSignalOn;
        action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        sigaction(number, &action, nullptr);
    }
}

CSignalWatch::~CSignalWatch()
{
    for (const int number : watchedSignals) {
        struct sigaction now = {};
        sigaction(number, nullptr, &now);
        if (now.sa_handler == passSignalOn)
            std::signal(number, SIG_DFL);
    }
    for (const int end : m_pipe) {
        if (end >= 0)
            close(end);
    }
}

void CSignalWatch::ignoreBrokenPipes()
{
    std::signal(SIGPIPE, SIG_IGN);
}

void CSignalWatch::onReadable()
{
    unsigned char byte = 0;
    if (read(m_pipe[0], &byte, 1) == 1)
        Q_EMIT notifySignal(byte);
}
