// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournalState.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CPortCodec.h"
#include "host/journal/CStateCodec.h"

#include <algorithm>

namespace {

/// About a second. Twice as much and more than after which a new file is begun, because the old one is
/// written until the disk has confirmed the new one.
constexpr qint64 MostEffort = 5 * CJournalState::LargestEffort / 2;

} // namespace

CJournalState::Port &CJournalState::port(int index)
{
    QVector<Port> &ports = m_project.layout.ports;
    auto found = std::lower_bound(ports.begin(), ports.end(), index,
                                  [](const Port &port, int wanted) { return port.index < wanted; });
    if (found == ports.end() || found->index != index) {
        Port added;
        added.index = index;
        found = ports.insert(found, added);
    }
    return *found;
}

quint64 CJournalState::digestOf(int index)
{
    const auto known = m_digests.constFind(index);
    return known != m_digests.constEnd() ? *known
                                         : *m_digests.insert(index, CPortCodec::digest(port(index).groups));
}

void CJournalState::enter(SJournalStep &step, const SEditStep::SPort &changed, SEditRecord::Kind kind)
{
    const int index = changed.after.index;
    const quint64 after = CPortCodec::digest(changed.after.groups);
    Port &now = port(index);
    const CPortCodec::Groups &given =
        kind == SEditRecord::Moved ? changed.after.groups : changed.before.groups;
    const bool isShared = given.constData() == now.groups.constData();
    const quint64 target = kind == SEditRecord::Moved ? after
                           : isShared                 ? digestOf(index)
                                                      : CPortCodec::digest(given);
    if (kind == SEditRecord::Moved || digestOf(index) != target) { // else it is as the step found it
        CByteWriter delta;
        CByteWriter unused;
        CPortCodec::writeGroups(delta, unused, now.groups, given);
        step.moves << SJournalStep::SMove{index, delta.bytes(), target};
    }
    if (kind != SEditRecord::Moved) {
        CByteWriter forward;
        CByteWriter back;
        CPortCodec::writeGroups(forward, back, changed.before.groups, changed.after.groups);
        step.deltas << SPortDelta{index, forward.bytes(), back.bytes(), target, after};
    }
    now.groups = changed.after.groups;
    m_digests[index] = after;
    countEffort(index);
}

QByteArray CJournalState::note(const SEditRecord &record, qint64 now)
{
    SJournalStep step;
    step.kind = record.kind;
    step.index = record.index;
    step.saved = record.saved;
    step.dropped = record.dropped;
    step.text = record.step.text;
    for (const SEditStep::SPort &changed : record.step.ports)
        enter(step, changed, record.kind);
    m_trail.note(step, m_project.layout.ports);
    m_changed = now;
    CByteWriter out;
    out.number(now);
    step.write(out);
    return out.bytes();
}

QByteArray CJournalState::note(const SProcessorProject &project, qint64 now)
{
    CByteWriter out;
    out.number(now);
    CStateCodec::write(out, m_project, project);
    m_effort += CStateCodec::cabinetsConcerned(m_project, project);
    for (const Port &after : project.layout.ports) {
        const Port *before = m_project.layout.port(after.index);
        if (!before || before->groups.constData() != after.groups.constData())
            m_digests.remove(after.index);
    }
    m_project = project;
    m_changed = now;
    return out.bytes();
}

QByteArray CJournalState::snapshot() const
{
    CByteWriter out;
    out.number(m_changed);
    CStateCodec::write(out, {}, m_project);
    m_trail.write(out);
    return out.bytes();
}

bool CJournalState::countEffort(int index)
{
    m_effort += 1 + port(index).cabinetCount();
    return m_effort <= MostEffort;
}

bool CJournalState::applyGroups(int index, const QByteArray &delta, quint64 digest)
{
    CByteReader in(delta);
    m_digests[index] = digest; // compared once, at the end
    return CPortCodec::applyGroups(in, port(index).groups) && in.atEnd() && countEffort(index);
}

bool CJournalState::apply(const SJournalStep &step)
{
    for (const SJournalStep::SMove &move : step.moves) {
        if (!applyGroups(move.port, move.delta, move.after))
            return false;
    }
    for (const SPortDelta &delta : step.deltas) {
        if (!applyGroups(delta.port, delta.forward, delta.after))
            return false;
    }
    m_trail.note(step, m_project.layout.ports);
    return true;
}

bool CJournalState::apply(int entry, const QByteArray &content)
{
    CByteReader in(content);
    m_changed = in.number();
    if (entry == Step) {
        const SJournalStep step = SJournalStep::read(in);
        return in.isValid() && in.atEnd() && apply(step);
    }
    if (entry == Snapshot)
        *this = CJournalState();
    else
        m_digests.clear();                      // the ports that it replaces are not named here
    const SProcessorProject before = m_project; // shares its ports
    CByteReader again(content);
    m_changed = again.number();
    if ((entry != Snapshot && entry != State) || !CStateCodec::apply(again, m_project))
        return false;
    m_effort += CStateCodec::cabinetsConcerned(before, m_project); // as note() counts
    if (entry == Snapshot)
        m_trail = CStepTrail::read(again);
    else
        m_trail.setOther(true);
    return again.isValid() && again.atEnd() && m_effort <= MostEffort;
}

bool CJournalState::isSound() const
{
    return std::all_of(m_digests.keyBegin(), m_digests.keyEnd(), [this](int index) {
        const Port *port = m_project.layout.port(index);
        return port && CPortCodec::digest(port->groups) == m_digests.value(index);
    });
}
