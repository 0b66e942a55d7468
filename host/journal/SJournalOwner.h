// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/SFileStamp.h"

#include <QByteArray>
#include <QString>
#include <QUuid>

#include <optional>

class CByteReader;
class CByteWriter;

/// Whose edits a journal or a history holds.
struct SJournalOwner
{
    QUuid processor;
    bool project = false;
    QString name;          ///< as the user knows it; of a device with its address
    QString file;          ///< of a project; empty: none yet
    SFileStamp stamp;      ///< of that file when it was last read or written
    QByteArray fileDigest; ///< SHA-256 of the project file that a history belongs to
    QString version;       ///< of the program that wrote it
    /// Of the mapping on a device that the edits are based on; none if an older program wrote the journal.
    std::optional<quint64> revision;

    void write(CByteWriter &out) const;
    static SJournalOwner read(CByteReader &in);

    friend bool operator==(const SJournalOwner &a, const SJournalOwner &b);
    friend bool operator!=(const SJournalOwner &a, const SJournalOwner &b) { return !(a == b); }
};
