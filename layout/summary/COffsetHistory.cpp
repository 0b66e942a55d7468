// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/COffsetHistory.h"

#include <utility>

namespace {

/// A move as values; the history carries it out.
struct COffsetCommand final : QUndoCommand
{
    COffsetCommand(ProcessorOffsets from, ProcessorOffsets to)
        : QUndoCommand(COffsetHistory::tr("Move"))
        , before(std::move(from))
        , after(std::move(to))
    {
    }
    const ProcessorOffsets before;
    const ProcessorOffsets after;
};

const COffsetCommand &commandAt(const QUndoStack &stack, int index)
{
    return *static_cast<const COffsetCommand *>(stack.command(index));
}

} // namespace

COffsetHistory::COffsetHistory(Place place, QObject *parent)
    : QObject(parent)
    , m_place(std::move(place))
{
    connect(&m_stack, &QUndoStack::indexChanged, this, &COffsetHistory::notifyChanged);
}

COffsetHistory::~COffsetHistory()
{
    m_stack.disconnect(this); // it would announce that it becomes empty
}

void COffsetHistory::enter(const ProcessorOffsets &offsets)
{
    if (offsets != m_offsets)
        m_stack.clear();
    m_offsets = offsets;
}

void COffsetHistory::record(const ProcessorOffsets &before, const ProcessorOffsets &after)
{
    take(after);
    m_stack.push(new COffsetCommand(before, after));
}

void COffsetHistory::undo()
{
    if (!canUndo())
        return;
    const ProcessorOffsets before = commandAt(m_stack, m_stack.index() - 1).before;
    if (!m_place(before))
        return;
    take(before);
    m_stack.undo();
}

void COffsetHistory::redo()
{
    if (!canRedo())
        return;
    const ProcessorOffsets after = commandAt(m_stack, m_stack.index()).after;
    if (!m_place(after))
        return;
    take(after);
    m_stack.redo();
}

void COffsetHistory::take(const ProcessorOffsets &offsets)
{
    for (auto it = offsets.begin(); it != offsets.end(); ++it)
        m_offsets.insert(it.key(), it.value());
}
