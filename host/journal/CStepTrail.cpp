// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CStepTrail.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CPortCodec.h"

#include <QMap>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

using Port = CabinetLayout::CabinetPort;

constexpr int HighestNumber = std::numeric_limits<int>::max();
constexpr int SmallestStep = 2;      // bytes
constexpr int CondensedAt = 16;      // changes in a step that others were merged with
constexpr int BytesPerCabinet = 240; // of a record with what belongs to it
constexpr int BytesPerStep = 1024;

template <typename List>
auto portIn(List &ports, int index)
{
    return std::find_if(ports.begin(), ports.end(),
                        [index](const Port &port) { return port.index == index; });
}

} // namespace

qint64 CStepTrail::SStep::bytes() const
{
    qint64 bytes = BytesPerStep;
    for (const SPortDelta &delta : deltas)
        bytes += delta.forward.size() + delta.back.size() + qint64(delta.cabinets) * BytesPerCabinet;
    return bytes;
}

void CStepTrail::note(const SJournalStep &step, const Ports &ports)
{
    dropFirst(std::max(0, step.dropped - m_first));
    m_first = std::max(0, m_first - step.dropped);
    if (step.kind == SEditRecord::Cleared)
        clear();
    else if (step.kind == SEditRecord::Done)
        add(step);
    else if (step.kind == SEditRecord::Merged)
        merge(step, ports);
    m_index = step.index;
    m_saved = step.saved;
}

void CStepTrail::clear()
{
    *this = CStepTrail();
}

void CStepTrail::add(const SJournalStep &step)
{
    const int kept = step.index - 1 - m_first;
    while (m_steps.size() > std::max(0, kept)) {
        m_bytes -= m_steps.last().bytes();
        m_steps.removeLast();
    }
    if (kept != m_steps.size()) { // steps are missing: those before them lead nowhere
        clear();
        m_first = std::max(0, step.index - 1);
    }
    m_steps << SStep{step.text, step.deltas};
    m_bytes += m_steps.last().bytes();
}

void CStepTrail::merge(const SJournalStep &step, const Ports &ports)
{
    if (m_steps.isEmpty() || step.index != m_first + m_steps.size()) {
        clear(); // the step that it belongs to is not known
        m_first = step.index;
        return;
    }
    SStep &last = m_steps.last();
    m_bytes -= last.bytes();
    last.text = step.text;
    last.deltas += step.deltas;
    QMap<int, int> changes;
    for (const SPortDelta &delta : std::as_const(last.deltas))
        ++changes[delta.port];
    if (std::any_of(changes.begin(), changes.end(), [](int count) { return count >= CondensedAt; }))
        condense(last, ports);
    m_bytes += last.bytes();
}

/// Makes one change per port of several.
void CStepTrail::condense(SStep &step, const Ports &ports)
{
    SEditStep whole;
    Ports walked = ports;
    if (!walk(walked, step, false, whole))
        return;
    step.deltas.clear();
    for (const SEditStep::SPort &port : std::as_const(whole.ports)) {
        CByteWriter forward;
        CByteWriter back;
        CPortCodec::writeGroups(forward, back, port.before.groups, port.after.groups);
        step.deltas << SPortDelta{port.after.index,
                                  forward.bytes(),
                                  back.bytes(),
                                  CPortCodec::digest(port.before.groups),
                                  CPortCodec::digest(port.after.groups),
                                  port.after.cabinetCount()};
    }
}

void CStepTrail::dropFirst(int count)
{
    const int dropped = std::min(count, m_steps.size());
    for (int i = 0; i < dropped; ++i)
        m_bytes -= m_steps.at(i).bytes();
    m_steps.remove(0, dropped);
}

void CStepTrail::limit(qint64 bytes)
{
    int dropped = 0;
    qint64 left = m_bytes;
    while (left > bytes && m_first + dropped < m_index && dropped < m_steps.size())
        left -= m_steps.at(dropped++).bytes();
    if (left > bytes) // steps that were undone lead nowhere without those before them
        dropped = m_steps.size();
    dropFirst(dropped);
    m_first += dropped;
}

int CStepTrail::unsaved() const
{
    return m_saved < 0 ? m_index : std::abs(m_index - m_saved);
}

/// Walks @p ports over a step, in its direction or back. @p result gets the ports before and after the step.
bool CStepTrail::walk(Ports &ports, const SStep &step, bool forward, SEditStep &result)
{
    QMap<int, SEditStep::SPort> changed;
    const int count = step.deltas.size();
    for (int i = 0; i < count; ++i) {
        const SPortDelta &delta = step.deltas.at(forward ? i : count - 1 - i);
        const auto port = portIn(ports, delta.port);
        if (port == ports.end())
            return false;
        if (!changed.contains(delta.port)) {
            if (CPortCodec::digest(port->groups) != (forward ? delta.before : delta.after))
                return false; // the layout was changed from elsewhere
            changed[delta.port] = {*port, *port};
        }
        CByteReader in(forward ? delta.forward : delta.back);
        if (!CPortCodec::applyGroups(in, port->groups) || !in.atEnd())
            return false;
        (forward ? changed[delta.port].after : changed[delta.port].before) = *port;
    }
    for (const SPortDelta &delta : step.deltas) { // the last one counts
        const SEditStep::SPort &port = changed[delta.port];
        const bool isFirst = &delta == &*std::find_if(step.deltas.begin(), step.deltas.end(),
                                                      [&](const auto &d) { return d.port == delta.port; });
        if (isFirst && CPortCodec::digest(port.before.groups) != delta.before)
            return false;
    }
    result.text = step.text;
    result.ports = changed.values().toVector();
    return true;
}

SEditHistory CStepTrail::history(const Ports &ports) const
{
    SEditHistory history;
    const int done = std::min(std::max(0, m_index - m_first), m_steps.size());
    Ports walked = ports;
    int first = done;
    SEditStep step;
    for (; first > 0 && walk(walked, m_steps.at(first - 1), false, step); --first)
        history.steps.prepend(step);
    walked = ports;
    for (int i = done; i < m_steps.size() && walk(walked, m_steps.at(i), true, step); ++i)
        history.steps << step;
    history.index = done - first;
    const int saved = m_saved - m_first - first;
    history.saved = m_saved >= 0 && saved >= 0 && saved <= history.steps.size() ? saved : -1;
    return history;
}

void CStepTrail::renumber(const Ports &ports)
{
    const SEditHistory reached = history(ports);
    const int done = std::min(std::max(0, m_index - m_first), m_steps.size());
    dropFirst(done - reached.index);
    while (m_steps.size() > reached.steps.size()) {
        m_bytes -= m_steps.last().bytes();
        m_steps.removeLast();
    }
    m_first = 0;
    m_index = reached.index;
    m_saved = reached.saved;
}

void CStepTrail::write(CByteWriter &out) const
{
    out.count(m_first);
    out.count(m_index);
    out.number(m_saved);
    out.count(m_steps.size());
    for (const SStep &step : m_steps) {
        out.text(step.text);
        out.count(step.deltas.size());
        for (const SPortDelta &delta : step.deltas)
            SJournalStep::write(out, delta);
    }
}

CStepTrail CStepTrail::read(CByteReader &in)
{
    CStepTrail trail;
    trail.m_first = in.upTo(HighestNumber);
    trail.m_index = in.upTo(HighestNumber);
    trail.m_saved = in.number(-1, HighestNumber);
    const int count = in.count(SmallestStep);
    for (int i = 0; i < count && in.isValid(); ++i) {
        SStep step;
        step.text = in.text();
        const int deltas = in.count(1);
        for (int j = 0; j < deltas && in.isValid(); ++j)
            step.deltas << SJournalStep::readDelta(in);
        trail.m_steps << step;
        trail.m_bytes += step.bytes();
    }
    return trail;
}
