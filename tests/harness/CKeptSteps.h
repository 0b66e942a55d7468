// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CPortChange.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/SEditStep.h"

#include <QHash>

/// Keeps an edit history from records alone, as a host does.
class CKeptSteps final
{
public:
    explicit CKeptSteps(const CabinetLayout &layout = {})
        : m_layout(layout)
    {
    }

    void take(const SEditRecord &record)
    {
        m_steps = m_steps.mid(record.dropped);
        switch (record.kind) {
        case SEditRecord::Done:
            m_steps.resize(record.index - 1);
            m_steps << record.step;
            break;
        case SEditRecord::Merged:
            if (record.index > 0)
                merge(m_steps[record.index - 1], record.step);
            break;
        case SEditRecord::Moved:
            break;
        case SEditRecord::Cleared:
            m_steps.clear();
        }
        m_index = record.index;
        m_saved = record.saved;
        for (const SEditStep::SPort &port : record.step.ports) {
            for (CabinetLayout::CabinetPort &known : m_layout.ports) {
                if (known.index != port.after.index)
                    continue;
                m_isFaulty = m_isFaulty || !LayoutData::comparePortData(known, port.before, true);
                known.groups = port.after.groups;
            }
        }
    }

    const QVector<SEditStep> &steps() const { return m_steps; }
    int index() const { return m_index; }
    SEditHistory history() const { return historyOf(m_steps, m_index, m_saved); }
    const CabinetLayout &layout() const { return m_layout; } ///< where the records lead
    bool isFaulty() const { return m_isFaulty; }             ///< a record did not begin where another ended

    /// A history in the form in which the host keeps it.
    static SEditHistory historyOf(const QVector<SEditStep> &steps, int index, int saved = -1)
    {
        SEditHistory history{{}, index, saved};
        for (const SEditStep &step : steps) {
            SKeptStep kept{step.text, {}};
            for (const SEditStep::SPort &port : step.ports) {
                const SPortDelta delta =
                    CPortChange::between(port.after.index, port.before.groups, port.after.groups);
                kept.changes << std::make_shared<CPortChange>(QVector<SPortDelta>{delta});
            }
            history.steps << kept;
        }
        return history;
    }

private:
    static void merge(SEditStep &step, const SEditStep &later)
    {
        QHash<int, SEditStep::SPort> ports;
        for (const SEditStep::SPort &port : qAsConst(step.ports))
            ports.insert(port.after.index, port);
        step = later;
        for (SEditStep::SPort &port : step.ports) {
            if (ports.contains(port.after.index))
                port.before = ports.take(port.after.index).before;
        }
        for (const SEditStep::SPort &port : qAsConst(ports))
            step.ports << port;
    }

    QVector<SEditStep> m_steps;
    int m_index = 0;
    int m_saved = -1;
    CabinetLayout m_layout;
    bool m_isFaulty = false;
};
