// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournalState.h"
#include "host/journal/SJournalOwner.h"

#include <QCoreApplication>

/// What a journal or a history file holds, and how such a file is made of entries.
struct SJournal
{
    Q_DECLARE_TR_FUNCTIONS(SJournal)

public:
    enum Problem {
        None,
        Torn,      ///< the last entry is incomplete
        Damaged,   ///< what follows some entry cannot be read
        Newer,     ///< written by a newer version of the program; nothing of it is known
        Unusable,  ///< holds nothing that can be restored
        Unreadable ///< nobody knows what it holds, because reading it failed
    };

    SJournalOwner owner;
    CJournalState state;
    Problem problem = None;
    QString reason; ///< why it is unreadable

    bool isUsable() const { return problem < Newer; }
    /// Whether nothing is lost that somebody could still read: an unreadable one must stay.
    bool mayBeDiscarded() const { return problem != Unreadable; }
    /// What the user should know of the problem; empty: there is none.
    QString problemText() const;

    static SJournal unreadable(const QString &reason);
    /// Reads the content of a file of any origin. Everything up to the first entry that is incomplete,
    /// damaged or unknown counts.
    static SJournal read(const QByteArray &file);
    /// A whole file: owner and snapshot. @p last gets what append() needs for the next entry.
    static QByteArray write(const SJournalOwner &owner, const CJournalState &state, quint64 &last);
    /// The bytes of one more entry. @p last is the digest of the entry before, then of this one.
    static QByteArray append(int entry, const QByteArray &content, quint64 &last);

private:
    static bool read(const QByteArray &file, int most, SJournal &journal, int &applied);
    /// Takes over an entry. False: it does not fit.
    bool take(int entry, const QByteArray &content);
};
