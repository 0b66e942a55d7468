// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

/// Who has a file open, as its lock says. Any thread.
struct SLockHolder
{
    Q_DECLARE_TR_FUNCTIONS(SLockHolder)

public:
    QString machine;
    QString installation; ///< the machine's own key; empty: unknown
    QString boot;         ///< of the machine: another one after each start of it
    QString user;
    QString program;
    qint64 process = 0;
    qint64 started = 0; ///< of the process, in ticks since the machine's start
    QString session;    ///< of the lock: no two are equal
    QDateTime since;

    /// A new lock of this process.
    static SLockHolder ofThisProcess();
    /// What a lock says; a holder without session if it cannot be understood.
    static SLockHolder decode(const QByteArray &content);
    QByteArray encode() const;

    bool isKnown() const { return !session.isEmpty(); }
    bool isThisProcess() const;
    /// Whether the process was one of this machine, and has ended. One of another machine may still run.
    bool isDead() const;
    /// E.g. "anna on studio-2, since 12 March 14:05 (Orvo 1.2, process 4711)".
    QString text() const;
};
