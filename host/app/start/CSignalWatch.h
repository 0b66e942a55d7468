// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>

/// Turns the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) into a Qt signal, so that it can end
/// in order. A second such signal ends the process at once. One instance at a time; GUI thread.
class CSignalWatch final : public QObject
{
    Q_OBJECT

public:
    CSignalWatch();
    ~CSignalWatch() override;

    /// Makes writing to a pipe that nobody reads fail instead of ending the program.
    static void ignoreBrokenPipes();

Q_SIGNALS:
    void notifySignal(int number);

private:
    void onReadable();

    int m_pipe[2] = {-1, -1};
};
