// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CStepTrail.h"
#include "host/projects/CProcessorProject.h"

#include <QMap>

/// What a journal tells of a processor: its state and its history. Turns every change into an entry, and
/// entries into changes. Any thread, one at a time.
class CJournalState final
{
public:
    /// The kinds of entries; the numbers stand in files.
    enum Entry { Owner = 1, Snapshot = 2, Step = 3, State = 4 };

    CJournalState() = default;
    explicit CJournalState(const SProcessorProject &project)
        : m_project(project)
    {
    }

    const SProcessorProject &project() const { return m_project; }
    const CStepTrail &trail() const { return m_trail; }
    CStepTrail &trail() { return m_trail; }
    SEditHistory history() const { return m_trail.history(m_project.layout.ports); }
    qint64 changed() const { return m_changed; } ///< when, in milliseconds since 1970; 0: never

    /// The entry of an edit, which the state takes over.
    QByteArray note(const SEditRecord &record, qint64 now);
    /// The entry of a state that is not the result of an edit; the state takes it over.
    QByteArray note(const SProcessorProject &project, qint64 now);
    /// The entry from which everything can be restored.
    QByteArray snapshot() const;

    /// Takes over an entry that was read. False: it does not fit; the state is as it was before it, or
    /// unusable if isSound() says so.
    bool apply(int entry, const QByteArray &content);
    /// After entries have been applied: whether the layout is the one that was noted.
    bool isSound() const;
    /// How much work it is to apply the entries since the snapshot, in cabinets.
    qint64 effort() const { return m_effort; }
    /// With more than that a file is to end. More than twice as much is not read.
    static constexpr qint64 LargestEffort = 20 * 1000 * 1000;
    void forgetEffort() { m_effort = 0; }

private:
    using Port = CabinetLayout::CabinetPort;

    Port &port(int index);
    quint64 digestOf(int port);
    void enter(SJournalStep &step, const SEditStep::SPort &changed, SEditRecord::Kind kind);
    bool apply(const SJournalStep &step);
    bool applyGroups(int port, const QByteArray &delta, quint64 digest);
    bool countEffort(int port);

    SProcessorProject m_project;
    CStepTrail m_trail;
    QMap<int, quint64> m_digests; // of ports' groups, as far as they are known
    qint64 m_changed = 0;
    qint64 m_effort = 0;
};
