// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzFiles.h"
#include "fuzz/FuzzTargets.h"
#include "host/journal/SJournal.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr int FileStart = 12; // magic and version
constexpr int LengthBytes = sizeof(quint32);
constexpr int AroundContent = LengthBytes + 1 + int(sizeof(quint64)); // length, kind, digest

/// The same entries with lengths that fit and right digests.
QByteArray withRightDigests(const QByteArray &bytes)
{
    QByteArray right = bytes.left(FileStart);
    quint64 last = 0;
    for (int at = FileStart; at + AroundContent <= bytes.size();) {
        const qint64 room = bytes.size() - at - AroundContent;
        const int length = int(std::min<qint64>(qFromLittleEndian<quint32>(bytes.constData() + at), room));
        const int kind = static_cast<quint8>(bytes.at(at + LengthBytes));
        right += SJournal::append(kind, bytes.mid(at + LengthBytes + 1, length), last);
        at += AroundContent + length;
    }
    return right;
}

} // namespace

QString FuzzTargets::journal(const QByteArray &bytes)
{
    const SJournal journal = SJournal::read(withRightDigests(bytes));
    if (journal.problem != SJournal::None && journal.problemText().isEmpty())
        return QStringLiteral("a problem without words");
    if (!journal.isUsable())
        return {};
    quint64 last = 0;
    const SJournal again = SJournal::read(SJournal::write(journal.owner, journal.state, last));
    if (again.problem != SJournal::None || again.state.snapshot() != journal.state.snapshot())
        return QStringLiteral("what was read is different after it was written and read again");
    const QString file = FuzzFiles::path("restored");
    const CStatus written = CProcessorProject::write(file, journal.state.project());
    // A host may have sent what no file holds: what was on the screen is restored, and saving it says why
    // not.
    const bool isTold = !written.error().isEmpty() && !QFile::exists(file);
    QFile::remove(file);
    return written || isTold ? QString() : QStringLiteral("neither written nor refused");
}
