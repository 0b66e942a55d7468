// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/journal/CRecordingEditor.h"

#include <algorithm>

namespace {

using Group = CabinetLayout::CabinetPort::CabinetGroup;
using Cabinet = CabinetLayout::CabinetPort::Cabinet;

bool sameStep(const SKeptStep &kept, const SEditStep &step)
{
    const auto same = [](const auto &change, const SEditStep::SPort &port) {
        return change->port() == port.after.index &&
               change->groups(IPortChange::Before, port.after.groups) == port.before.groups &&
               change->groups(IPortChange::After, port.before.groups) == port.after.groups;
    };
    return kept.text == step.text &&
           std::equal(kept.changes.begin(), kept.changes.end(), step.ports.begin(), step.ports.end(), same);
}

void forget(QVector<Group> &groups)
{
    for (Group &group : groups) {
        for (Cabinet &cabinet : group.cabinets)
            cabinet.mappingIndex = cabinet.calibrationIndex = -1; // never part of a journal
        forget(group.groups);
    }
}

} // namespace

bool sameHistory(const SEditHistory &kept, const SRecordedHistory &recorded)
{
    return kept.index == recorded.index && kept.saved == recorded.saved &&
           std::equal(kept.steps.begin(), kept.steps.end(), recorded.steps.begin(), recorded.steps.end(),
                      sameStep);
}

CRecordingEditor::CRecordingEditor(const SProcessorProject &project, quint32 seed)
    : m_project(project)
    , m_random(seed)
{
    m_project.background.processor = {};
    for (Port &port : m_project.layout.ports) {
        port.load = 0;
        QVector<Group> mirror(1);
        mirror[0].cabinets = port.mirrored;
        forget(mirror);
        port.mirrored = mirror[0].cabinets;
        forget(port.groups);
    }
}

/// The same ones for the same seed.
QUuid CRecordingEditor::newKey()
{
    return QUuid::createUuidV5(QUuid(), QString::number(m_random()));
}

void CRecordingEditor::alter(Port &port)
{
    if (port.groups.isEmpty())
        port.groups << Group();
    Group &group = port.groups[pick(port.groups.size())];
    const int kind = pick(7);
    if (kind == 0 && !group.cabinets.isEmpty()) {
        group.cabinets.remove(pick(group.cabinets.size()));
    } else if (kind == 1) {
        Cabinet cabinet;
        cabinet.uuid = newKey();
        cabinet.port = port.index;
        cabinet.rect = QRect(pick(4000), pick(4000), 100, 200);
        cabinet.rects << QRect(0, 0, 100, 200);
        group.cabinets.insert(pick(group.cabinets.size() + 1), cabinet);
    } else if (kind == 2) {
        Group added;
        added.uuid = newKey();
        added.name = QStringLiteral("G%1").arg(pick(100));
        added.cabinets = group.cabinets.mid(group.cabinets.size() / 2);
        group.cabinets.resize(group.cabinets.size() / 2);
        (pick(2) ? port.groups : group.groups).append(added);
    } else if (kind == 3) {
        std::shuffle(group.cabinets.begin(), group.cabinets.end(), m_random);
    } else if (kind == 4) {
        for (Cabinet &cabinet : group.cabinets)
            cabinet.rank = pick(3) ? cabinet.rank + 1 : -1;
    } else {
        const int x = pick(40) - 20;
        for (Cabinet &cabinet : group.cabinets)
            cabinet.rect.translate(x, 3);
        if (kind == 6 && !group.cabinets.isEmpty())
            group.cabinets.first().directionFixed = !group.cabinets.first().directionFixed;
    }
}

SEditStep::SPort CRecordingEditor::changed(int index)
{
    SEditStep::SPort changed;
    changed.before = m_project.layout.ports.at(index);
    changed.after = changed.before;
    alter(changed.after);
    return changed;
}

void CRecordingEditor::apply(const SEditStep &step, bool forward)
{
    for (const SEditStep::SPort &port : step.ports) {
        for (Port &now : m_project.layout.ports) {
            if (now.index == port.after.index)
                now.groups = (forward ? port.after : port.before).groups;
        }
    }
}

SEditRecord CRecordingEditor::record(SEditRecord::Kind kind, const SEditStep &step) const
{
    SEditRecord record;
    record.processor = m_project.layout.processor;
    record.kind = kind;
    record.index = m_history.index;
    record.saved = m_history.saved;
    record.step = step;
    return record;
}

SEditRecord CRecordingEditor::push(const SEditStep &step)
{
    m_history.steps.resize(m_history.index);
    if (m_history.saved > m_history.index)
        m_history.saved = -1;
    m_history.steps << step;
    ++m_history.index;
    apply(step, true);
    return record(SEditRecord::Done, step);
}

SEditRecord CRecordingEditor::edit(const QString &text)
{
    const int first = pick(m_project.layout.ports.size());
    SEditStep step;
    step.text = text;
    step.ports << changed(first);
    if (first + 1 < m_project.layout.ports.size() && pick(3) == 0)
        step.ports << changed(first + 1);
    return push(step);
}

SEditRecord CRecordingEditor::nudgeAll()
{
    SEditStep step;
    step.text = QStringLiteral("Move");
    for (const Port &port : m_project.layout.ports) {
        SEditStep::SPort moved{port, port};
        for (Group &group : moved.after.groups) {
            for (Cabinet &cabinet : group.cabinets)
                cabinet.rect.translate(1, 0);
        }
        step.ports << moved;
    }
    return push(step);
}

SEditRecord CRecordingEditor::merge()
{
    SEditStep &last = m_history.steps.last();
    SEditStep part;
    part.text = last.text + QLatin1Char('+');
    last.text = part.text;
    for (SEditStep::SPort &port : last.ports) {
        SEditStep::SPort more = port;
        more.before = port.after;
        alter(more.after);
        port.after = more.after;
        part.ports << more;
    }
    if (m_history.saved == m_history.index)
        m_history.saved = -1;
    apply(part, true);
    return record(SEditRecord::Merged, part);
}

SEditRecord CRecordingEditor::undo(int steps)
{
    SEditStep all;
    for (; steps > 0 && m_history.index > 0; --steps) {
        const SEditStep &step = m_history.steps.at(--m_history.index);
        apply(step, false);
        for (const SEditStep::SPort &port : step.ports) {
            SEditStep::SPort back{port.after, port.before};
            const auto known = std::find_if(all.ports.begin(), all.ports.end(),
                                            [&](const auto &p) { return p.after.index == port.after.index; });
            if (known == all.ports.end())
                all.ports << back;
            else
                known->after = back.after;
        }
    }
    return record(SEditRecord::Moved, all);
}

SEditRecord CRecordingEditor::redo()
{
    const SEditStep step = m_history.steps.at(m_history.index++);
    apply(step, true);
    return record(SEditRecord::Moved, step);
}

SEditRecord CRecordingEditor::anything()
{
    const int kind = pick(100);
    if (kind < 2) {
        m_history = {};
        return record(SEditRecord::Cleared, {});
    }
    if (kind < 20 && m_history.index > 0)
        return undo(1 + pick(3));
    if (kind < 35 && m_history.index < m_history.steps.size())
        return redo();
    if (kind < 55 && m_history.index > 0 && m_history.index == m_history.steps.size())
        return merge();
    if (kind < 60 && m_history.steps.size() > 3 && m_history.index > 2) {
        SEditRecord dropped = edit(QStringLiteral("Drop"));
        m_history.steps.removeFirst();
        --m_history.index;
        m_history.saved = std::max(-1, m_history.saved - 1);
        dropped.dropped = 1;
        dropped.index = m_history.index;
        dropped.saved = m_history.saved;
        return dropped;
    }
    if (kind < 65)
        save();
    return edit(QStringLiteral("Edit %1").arg(kind));
}
