// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"
#include "layout/api/records/SEditStep.h"

#include <random>

/// An edit history with all records.
struct SRecordedHistory
{
    QVector<SEditStep> steps;
    int index = 0;
    int saved = -1;
};

/// An editor without a window: edits a layout at random, keeps its history in full, and tells each edit as a
/// record.
class CRecordingEditor final
{
public:
    CRecordingEditor(const SProcessorProject &project, quint32 seed);

    const SProcessorProject &project() const { return m_project; }
    const SRecordedHistory &history() const { return m_history; }

    SEditRecord anything(); ///< an edit, a merged edit, undo, redo or a cleared history, at random
    SEditRecord edit(const QString &text);
    SEditRecord merge();
    SEditRecord undo(int steps = 1);
    SEditRecord redo();
    /// Moves all cabinets of all ports.
    SEditRecord nudgeAll();
    void save() { m_history.saved = m_history.index; }

private:
    using Port = CabinetLayout::CabinetPort;

    SEditRecord record(SEditRecord::Kind kind, const SEditStep &step) const;
    SEditRecord push(const SEditStep &step);
    SEditRecord change();
    SEditStep::SPort changed(int port);
    void apply(const SEditStep &step, bool forward);
    void alter(Port &port);
    QUuid newKey();
    int pick(int count) { return int(m_random() % quint32(count)); }

    SProcessorProject m_project;
    SRecordedHistory m_history;
    std::mt19937 m_random;
};

/// Whether what was kept has the same steps, which lead both ways, as far as they count.
bool sameHistory(const SEditHistory &kept, const SRecordedHistory &recorded);
