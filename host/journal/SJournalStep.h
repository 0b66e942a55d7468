// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SEditStep.h"

#include <QByteArray>

class CByteReader;
class CByteWriter;

/// What a step did to one port, both ways, as CPortCodec writes groups.
struct SPortDelta
{
    int port = -1;
    QByteArray forward;
    QByteArray back;
    quint64 before = 0; ///< digests of the port's groups
    quint64 after = 0;

    qint64 bytes() const; ///< the memory that it needs, approximately
};

/// An edit record as a journal holds it.
struct SJournalStep
{
    /// A change of a port that is not part of the history.
    struct SMove
    {
        int port = -1;
        QByteArray delta;
        quint64 after = 0;
    };

    SEditRecord::Kind kind = SEditRecord::Done;
    int index = 0;
    int saved = -1;
    int dropped = 0;
    QString text;
    QVector<SMove> moves;       ///< come first
    QVector<SPortDelta> deltas; ///< of Done and Merged

    void write(CByteWriter &out) const;
    static SJournalStep read(CByteReader &in);
    static void write(CByteWriter &out, const SPortDelta &delta);
    static SPortDelta readDelta(CByteReader &in);
};
