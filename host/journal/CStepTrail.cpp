// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CStepTrail.h"

#include "host/journal/CByteReader.h"
#include "host/journal/CByteWriter.h"
#include "host/journal/CPortChange.h"
#include "host/journal/CPortCodec.h"

#include <QMap>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace {

using Port = CabinetLayout::CabinetPort;

constexpr int HighestNumber = std::numeric_limits<int>::max();
constexpr int SmallestStep = 2; // bytes
constexpr int CondensedAt = 16; // changes in a step that others were merged with

using Deltas = QVector<SPortDelta>;

QMap<int, Deltas> byPort(const Deltas &deltas)
{
    QMap<int, Deltas> sorted;
    for (const SPortDelta &delta : deltas)
        sorted[delta.port] << delta;
    return sorted;
}

const Port *portIn(const CStepTrail::Ports &ports, int index)
{
    const auto found =
        std::find_if(ports.begin(), ports.end(), [index](const Port &port) { return port.index == index; });
    return found == ports.end() ? nullptr : &*found;
}

/// Goes over steps one after the other, and tells which of them lead from the ports to where they say.
class CSteps final
{
public:
    CSteps(const CStepTrail::Ports &ports, IPortChange::ESide from)
        : m_ports(ports)
        , m_forward(from == IPortChange::Before)
    {
    }
    bool leads(const Deltas &deltas)
    {
        const auto leadsOn = [this](const SPortDelta &delta) {
            const Port *port = portIn(m_ports, delta.port);
            if (!port)
                return false;
            if (!m_reached.contains(delta.port))
                m_reached[delta.port] = CPortCodec::digest(port->groups);
            const quint64 end = m_forward ? delta.after : delta.before;
            return std::exchange(m_reached[delta.port], end) == (m_forward ? delta.before : delta.after);
        };
        return m_forward ? std::all_of(deltas.begin(), deltas.end(), leadsOn)
                         : std::all_of(deltas.rbegin(), deltas.rend(), leadsOn);
    }

private:
    const CStepTrail::Ports &m_ports;
    const bool m_forward;
    QMap<int, quint64> m_reached; // digests
};

} // namespace

qint64 CStepTrail::SStep::bytes() const
{
    constexpr qint64 BytesOfLists = 2 * 40;
    qint64 bytes = qint64(sizeof(*this)) + text.size() * qint64(sizeof(QChar)) + BytesOfLists;
    for (const SPortDelta &delta : deltas)
        bytes += delta.bytes();
    return bytes;
}

void CStepTrail::note(const SJournalStep &step, const Ports &ports)
{
    dropFirst(std::max(0, step.dropped - m_first));
    m_first = std::max(0, m_first - step.dropped);
    m_gone += std::min(step.dropped, HighestNumber - m_gone);
    if (step.kind == SEditRecord::Cleared)
        clear();
    else if (step.kind == SEditRecord::Done)
        add(step);
    else if (step.kind == SEditRecord::Merged)
        merge(step, ports);
    m_index = step.index;
    m_saved = step.saved;
    m_begun = true;
}

void CStepTrail::clear()
{
    const bool other = m_other;
    *this = CStepTrail();
    m_other = other; // it is not in any step
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
    condense(last, ports);
    m_bytes += last.bytes();
}

/// Makes one change of a port of many.
void CStepTrail::condense(SStep &step, const Ports &ports)
{
    const QMap<int, Deltas> changes = byPort(step.deltas);
    if (std::all_of(changes.begin(), changes.end(),
                    [](const Deltas &deltas) { return deltas.size() < CondensedAt; }))
        return;
    Deltas condensed;
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        const Port *port = portIn(ports, change.key());
        const auto before =
            port ? CPortChange(*change).groups(IPortChange::Before, port->groups) : std::nullopt;
        if (before)
            condensed << CPortChange::between(change.key(), *before, port->groups);
        else
            condensed += *change;
    }
    step.deltas = condensed;
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

/// Where no step counts as saved, nobody knows how many lie between: those that can be undone are counted.
QString CStepTrail::unsavedText() const
{
    const int before = m_saved < 0 ? m_first : m_saved;
    QStringList parts;
    if (before > m_index)
        parts << tr("saved steps undone: %1").arg(before - m_index);
    else if (m_index > before)
        parts << tr("unsaved steps: %1").arg(m_index - before);
    if (m_other || parts.isEmpty())
        parts << (parts.isEmpty() ? tr("with unsaved changes") : tr("and changes without a step"));
    return parts.join(QLatin1Char(' '));
}

/// Which steps lead to @p ports. That their contents are what their digests say is seen when they are used.
CStepTrail::SReach CStepTrail::reach(const Ports &ports) const
{
    SReach reach;
    reach.done = reach.first = reach.end = std::min(std::max(0, m_index - m_first), m_steps.size());
    CSteps back(ports, IPortChange::After);
    while (reach.first > 0 && back.leads(m_steps.at(reach.first - 1).deltas))
        --reach.first;
    CSteps forward(ports, IPortChange::Before);
    while (reach.end < m_steps.size() && forward.leads(m_steps.at(reach.end).deltas))
        ++reach.end;
    return reach;
}

SKeptStep CStepTrail::kept(const SStep &step)
{
    SKeptStep kept{step.text, {}};
    for (const Deltas &deltas : byPort(step.deltas))
        kept.changes << std::make_shared<CPortChange>(deltas);
    return kept;
}

SEditHistory CStepTrail::history(const Ports &ports) const
{
    const SReach found = reach(ports);
    SEditHistory history;
    for (int i = found.first; i < found.end; ++i)
        history.steps << kept(m_steps.at(i));
    history.index = found.done - found.first;
    const int saved = m_saved - m_first - found.first;
    history.saved = m_saved >= 0 && saved >= 0 && saved <= history.steps.size() ? saved : -1;
    history.dropped = m_gone + std::min(m_first + found.first, HighestNumber - m_gone);
    return history;
}

void CStepTrail::renumber(const Ports &ports)
{
    const SReach found = reach(ports);
    const int saved = m_saved - m_first - found.first;
    while (m_steps.size() > found.end) {
        m_bytes -= m_steps.last().bytes();
        m_steps.removeLast();
    }
    dropFirst(found.first);
    m_gone += std::min(m_first + found.first, HighestNumber - m_gone);
    m_first = 0;
    m_index = found.done - found.first;
    m_saved = m_saved >= 0 && saved >= 0 && saved <= m_steps.size() ? saved : -1;
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
    if (m_gone > 0 || m_other)
        out.count(m_gone);
    if (m_other)
        out.count(1);
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
    if (!in.atEnd())
        trail.m_gone = in.upTo(HighestNumber);
    if (!in.atEnd())
        trail.m_other = in.upTo(1) == 1;
    return trail;
}
