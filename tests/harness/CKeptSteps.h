// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

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
        m_history.steps = m_history.steps.mid(record.dropped);
        switch (record.kind) {
        case SEditRecord::Done:
            m_history.steps.resize(record.index - 1);
            m_history.steps << record.step;
            break;
        case SEditRecord::Merged:
            if (record.index > 0)
                merge(m_history.steps[record.index - 1], record.step);
            break;
        case SEditRecord::Moved:
            break;
        case SEditRecord::Cleared:
            m_history.steps.clear();
        }
        m_history.index = record.index;
        m_history.saved = record.saved;
        for (const SEditStep::SPort &port : record.step.ports) {
            for (CabinetLayout::CabinetPort &known : m_layout.ports) {
                if (known.index != port.after.index)
                    continue;
                m_isFaulty = m_isFaulty || !LayoutData::comparePortData(known, port.before, true);
                known.groups = port.after.groups;
            }
        }
    }

    const SEditHistory &history() const { return m_history; }
    const CabinetLayout &layout() const { return m_layout; } ///< where the records lead
    bool isFaulty() const { return m_isFaulty; }             ///< a record did not begin where another ended

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

    SEditHistory m_history;
    CabinetLayout m_layout;
    bool m_isFaulty = false;
};
