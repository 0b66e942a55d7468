// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/history/CEditHistory.h"

#include "layout/api/records/LayoutData.h"
#include "layout/editor/content/CLayoutBuilder.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/history/CRestoredStep.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

using Port = CabinetLayout::CabinetPort;

constexpr qint64 Megabyte = 1024 * 1024;

bool areShared(const Port &a, const Port &b)
{
    return a.groups.constData() == b.groups.constData() && a.groups.size() == b.groups.size();
}

/// What the editor's own commands need, each with its item's record.
qint64 commandBytes(const QUndoCommand &command)
{
    constexpr qint64 OwnCommand = 520;
    return command.childCount() * OwnCommand;
}

bool hasOwnCommands(const QUndoStack &stack)
{
    for (int i = 0; i < stack.count(); ++i) {
        if (stack.command(i)->childCount() > 0)
            return true;
    }
    return false;
}

/// Whether each step begins where the one before has ended, and the layout is where the done ones lead.
bool leadsTo(const SEditHistory &history, const CabinetLayout &layout)
{
    using Side = IPortChange::ESide;
    QHash<int, quint64> reached; // digests, by port index
    const auto leads = [&layout, &reached](const SKeptStep &step, Side from) {
        return std::all_of(step.changes.begin(), step.changes.end(), [&](const auto &change) {
            const Port *shown = change ? layout.port(change->port()) : nullptr;
            if (!shown)
                return false;
            if (!reached.contains(shown->index))
                reached[shown->index] = change->digestOf(shown->groups);
            const quint64 begin = change->digest(from);
            return std::exchange(reached[shown->index], change->digest(IPortChange::otherOf(from))) == begin;
        });
    };
    for (int i = history.index; i < history.steps.size(); ++i) {
        if (!leads(history.steps.at(i), IPortChange::Before))
            return false;
    }
    reached.clear();
    for (int i = history.index - 1; i >= 0; --i) {
        if (!leads(history.steps.at(i), IPortChange::After))
            return false;
    }
    return true;
}

} // namespace

CEditHistory::CEditHistory(CSceneContent &content)
    : m_content(content)
{
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &CEditHistory::tidy);
}

QString CEditHistory::beginning() const
{
    if (m_dropped > 0) {
        const QString dropped = m_dropped == 1 ? tr("1 older step was dropped")
                                               : tr("%1 older steps were dropped").arg(m_dropped);
        return tr("%1; limit in \"File > Settings\": %2 MB").arg(dropped).arg(m_limit / Megabyte);
    }
    return m_restored ? tr("Beginning, restored from earlier") : tr("Beginning");
}

void CEditHistory::enter(const CabinetLayout &layout, int stepCount)
{
    m_layout = layout;
    m_index = m_stack.index();
    m_stepCount = stepCount;
}

bool CEditHistory::restore(const SEditHistory &kept)
{
    const bool known = kept.index >= 0 && kept.index <= kept.steps.size() && kept.saved >= -1 &&
                       kept.saved <= kept.steps.size();
    if (!known || !leadsTo(kept, m_layout))
        return false;
    QVector<Values> steps;
    for (const SKeptStep &step : kept.steps)
        steps << std::make_shared<CStepValues>(step);
    rebuild(steps, kept.index, kept.saved);
    m_saved.restart(kept.saved);
    m_restored = !steps.isEmpty();
    m_dropped = kept.dropped;
    Q_EMIT notifyBeginningChanged();
    return true;
}

void CEditHistory::clear()
{
    m_stack.clear();
    m_steps.clear();
    forgetSavedFrom(0);
    m_index = 0;
    m_restored = false;
    m_dropped = m_droppedUntold = 0;
    Q_EMIT notifyBeginningChanged();
}

void CEditHistory::setUnsavedEdits(const SUnsavedEdits &edits)
{
    CSavedRows saved = m_saved;
    saved.take(m_stack.index(), edits);
    setSavedRows(saved);
}

void CEditHistory::forgetSavedFrom(int row)
{
    CSavedRows saved = m_saved;
    saved.forgetFrom(row);
    setSavedRows(saved);
}

void CEditHistory::setSavedRows(const CSavedRows &rows)
{
    const QSet<int> before = std::exchange(m_saved, rows).rows();
    if (m_saved.haveSavedCabinets(m_stack.index()))
        m_stack.setClean();
    else if (!m_saved.haveSavedCabinets(m_stack.cleanIndex()))
        m_stack.resetClean();
    if (savedRows() != before)
        Q_EMIT notifySavedRowsChanged();
}

SEditRecord CEditHistory::clearedRecord() const
{
    SEditRecord record;
    record.processor = m_layout.processor;
    record.kind = SEditRecord::Cleared;
    record.saved = m_stack.cleanIndex();
    return record;
}

QVector<SEditStep::SPort> CEditHistory::takeChanges(const SComparedEdit &edit)
{
    QVector<SEditStep::SPort> changes;
    for (const Port &port : edit.edited.ports) {
        const Port *before = m_layout.port(port.index);
        const Port *known = edit.known.port(port.index);
        if (!before || areShared(*before, port))
            continue;
        // What the store has compared already is not walked again.
        const bool compared = known && areShared(*before, *known);
        if (compared ? edit.changedPorts.contains(port.index)
                     : !LayoutData::comparePortData(*before, port, true))
            changes << SEditStep::SPort{CLayoutBuilder::withoutEmptyGroups(*before), port}; // as it was shown
    }
    m_layout = edit.edited;
    return changes;
}

QVector<SEditRecord> CEditHistory::note(const SComparedEdit &edit, int stepCount)
{
    if (edit.edited.processor != m_layout.processor)
        return {};
    const QVector<SEditStep::SPort> changes = takeChanges(edit);
    const int index = m_stack.index();
    const int newSteps = stepCount - m_stepCount;
    m_stepCount = stepCount;
    const bool moved = std::exchange(m_index, index) != index;
    if (newSteps == 0 && !moved && changes.isEmpty())
        return {};
    if (newSteps > 0)
        forgetSavedFrom(index - newSteps + 1);
    else if (!moved)
        forgetSavedFrom(index);
    SEditRecord record;
    record.processor = edit.edited.processor;
    record.saved = m_stack.cleanIndex();
    record.dropped = std::exchange(m_droppedUntold, 0);
    record.step.ports = changes;
    QVector<SEditRecord> records;
    // Steps that no change was seen of come first, so that indices agree.
    for (int i = std::max(index - newSteps, 0); i < index && newSteps > 0; ++i) {
        SEditRecord done = record;
        done.index = i + 1;
        done.step.text = m_stack.text(i);
        if (i + 1 < index)
            done.step.ports.clear();
        noteNewStep(done.step, i);
        records << done;
        record.dropped = 0;
    }
    if (newSteps == 0) {
        record.kind = moved ? SEditRecord::Moved : SEditRecord::Merged;
        record.index = index;
        if (!moved && index > 0) {
            record.step.text = m_stack.text(index - 1);
            if (index <= m_steps.size()) // else the step came unnoticed, while another processor was shown
                m_steps.at(index - 1)->merge(record.step);
        }
        records << record;
    }
    m_idle.start();
    return records;
}

void CEditHistory::noteNewStep(const SEditStep &step, int index)
{
    while (m_steps.size() < index)
        m_steps << std::make_shared<CStepValues>(SEditStep());
    m_steps.resize(index);
    m_steps << std::make_shared<CStepValues>(step);
}

void CEditHistory::setLimit(qint64 bytes)
{
    m_limit = bytes;
    Q_EMIT notifyBeginningChanged();
    m_idle.start();
}

qint64 CEditHistory::bytes() const
{
    qint64 bytes = 0;
    for (int i = 0; i < std::min(m_steps.size(), m_stack.count()); ++i)
        bytes += m_steps.at(i)->bytes() + commandBytes(*m_stack.command(i));
    return bytes;
}

void CEditHistory::rebuild(QVector<Values> steps, int index, int saved)
{
    const QScopedValueRollback<bool> rebuilding(m_rebuilding, true);
    m_stack.clear();
    m_steps = std::move(steps);
    for (const Values &step : qAsConst(m_steps))
        m_stack.push(new CRestoredStep(step, m_content, m_rebuilding));
    m_stack.resetClean();
    if (saved >= 0) {
        m_stack.setIndex(saved);
        m_stack.setClean();
    }
    m_stack.setIndex(index);
    m_index = index;
    m_idle.start();
}

/// In short turns, because records of a whole wall take a while.
void CEditHistory::tidy()
{
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) { // new ones are at the end
        if ((*step)->compactNext()) {
            m_idle.start();
            return;
        }
    }
    if (m_steps.size() == m_stack.count() && bytes() > m_limit) // not between a step and its note
        shorten();
}

/// Steps as values need less memory than commands, so what is left becomes restored steps. Half of the limit
/// is left, so that this happens rarely. The last step stays, and so do those that were undone.
void CEditHistory::shorten()
{
    qint64 kept = 0;
    for (const Values &step : qAsConst(m_steps))
        kept += step->bytes();
    const int index = m_stack.index();
    int dropped = 0;
    while (kept > m_limit / 2 && dropped < std::min(index, m_steps.size() - 1))
        kept -= m_steps.at(dropped++)->bytes();
    if (dropped == 0 && !hasOwnCommands(m_stack))
        return; // nothing more can be done
    const int saved = m_stack.cleanIndex() < dropped ? -1 : m_stack.cleanIndex() - dropped;
    m_dropped += dropped;
    m_droppedUntold += dropped;
    m_saved.dropFirst(dropped);
    rebuild(m_steps.mid(dropped), index - dropped, saved);
    Q_EMIT notifyBeginningChanged();
    Q_EMIT notifySavedRowsChanged();
}
