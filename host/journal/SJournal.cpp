// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/SJournal.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CDigest.h"

#include <QtEndian>

#include <limits>

namespace {

const QByteArray magic = QByteArrayLiteral("ORVOJRNL");
constexpr quint32 Version =
    3; // 1 tells owners only at the beginning, and no revisions; 2 no changes without a step
constexpr int VersionBytes = sizeof(quint32);
constexpr int LengthBytes = sizeof(quint32);
constexpr int DigestBytes = sizeof(quint64);
constexpr int EntryBytes = LengthBytes + 1 + DigestBytes; // without the content

QByteArray numberBytes(quint32 value)
{
    char bytes[sizeof value];
    qToLittleEndian(value, bytes);
    return QByteArray(bytes, int(sizeof bytes));
}

quint64 digestOf(quint64 last, int entry, const QByteArray &content)
{
    CDigest digest(last);
    digest.add(quint64(entry));
    digest.add(content);
    return digest.value();
}

/// Cuts a file into entries.
class CEntries final
{
public:
    CEntries(const QByteArray &file, int at)
        : m_file(file)
        , m_at(at)
    {
    }

    SJournal::Problem problem() const { return m_problem; }
    /// False: there is no further entry, or none that can be read.
    bool next(int &entry, QByteArray &content)
    {
        const qint64 left = m_file.size() - m_at;
        if (left == 0)
            return false;
        const quint32 length = left < EntryBytes ? 0 : qFromLittleEndian<quint32>(m_file.constData() + m_at);
        if (left < EntryBytes || qint64(length) > left - EntryBytes)
            return stop(SJournal::Torn);
        entry = uchar(m_file.at(m_at + LengthBytes));
        content = QByteArray::fromRawData(m_file.constData() + m_at + LengthBytes + 1, int(length));
        const char *digest = content.constData() + length;
        m_last = digestOf(m_last, entry, content);
        if (qFromLittleEndian<quint64>(digest) != m_last)
            return stop(left == EntryBytes + qint64(length) ? SJournal::Torn : SJournal::Damaged);
        m_at += EntryBytes + int(length);
        return true;
    }

private:
    bool stop(SJournal::Problem problem)
    {
        m_problem = problem;
        return false;
    }

    const QByteArray &m_file;
    int m_at;
    quint64 m_last = 0;
    SJournal::Problem m_problem = SJournal::None;
};

} // namespace

QString SJournal::problemText() const
{
    switch (problem) {
    case Torn:
        return tr("The last edit was not written completely; everything before it is here.");
    case Damaged:
        return tr("The file is damaged; everything up to the damage is here.");
    case Newer:
        return tr("Written by a newer version of the program, which can restore it.");
    case Unusable:
        return tr("The file is damaged; nothing can be restored.");
    case Unreadable:
        return tr("It cannot be read now: %1. It is offered again at the next start.").arg(reason);
    case None:
        break;
    }
    return {};
}

SJournal SJournal::unreadable(const QString &reason)
{
    SJournal journal;
    journal.problem = Unreadable;
    journal.reason = reason;
    return journal;
}

SJournal SJournal::read(const QByteArray &file)
{
    SJournal journal;
    int applied = 0;
    if (read(file, std::numeric_limits<int>::max(), journal, applied))
        return journal;
    SJournal again; // nobody knows how far the entry that failed was carried out
    read(file, applied, again, applied);
    again.problem = again.problem == None ? Damaged : again.problem;
    return again;
}

/// Takes over at most @p most entries after the snapshot. False: one of them does not fit the state.
bool SJournal::read(const QByteArray &file, int most, SJournal &journal, int &applied)
{
    journal.problem = Unusable;
    applied = 0;
    const int start = magic.size() + VersionBytes;
    if (file.size() < start || !file.startsWith(magic))
        return true;
    const auto version = qFromLittleEndian<quint32>(file.constData() + magic.size());
    if (version < 1 || version > Version) {
        journal.problem = Newer;
        return true;
    }
    CEntries entries(file, start);
    int entry = 0;
    QByteArray content;
    if (!entries.next(entry, content) || entry != CJournalState::Owner)
        return true;
    if (!journal.take(entry, content) || !entries.next(entry, content) || entry != CJournalState::Snapshot ||
        !journal.take(entry, content))
        return true;
    for (; applied < most && entries.next(entry, content); ++applied) {
        if (!journal.take(entry, content))
            return false;
    }
    journal.problem = journal.state.isSound() ? entries.problem() : Damaged;
    return true;
}

bool SJournal::take(int entry, const QByteArray &content)
{
    if (entry != CJournalState::Owner)
        return state.apply(entry, content);
    CByteReader in(content);
    const SJournalOwner read = SJournalOwner::read(in);
    if (in.isValid())
        owner = read;
    return in.isValid();
}

QByteArray SJournal::write(const SJournalOwner &owner, const CJournalState &state, quint64 &last)
{
    CByteWriter out;
    owner.write(out);
    last = 0;
    QByteArray file = magic + numberBytes(Version);
    file += append(CJournalState::Owner, out.bytes(), last);
    return file + append(CJournalState::Snapshot, state.snapshot(), last);
}

QByteArray SJournal::append(int entry, const QByteArray &content, quint64 &last)
{
    last = digestOf(last, entry, content);
    QByteArray bytes = numberBytes(quint32(content.size()));
    bytes.append(char(entry));
    bytes += content;
    char digest[DigestBytes];
    qToLittleEndian(last, digest);
    return bytes.append(digest, DigestBytes);
}
