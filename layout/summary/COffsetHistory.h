// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/summary/SSummaryProcessor.h"

#include <QUndoStack>

#include <functional>

/// The undo history of moves of processors on the shared canvas. A step counts as done only once the host has
/// carried it out. GUI thread.
class COffsetHistory final : public QObject
{
    Q_OBJECT

public:
    /// Sets the processors' offsets in the host and on the screen; returns whether that succeeded.
    using Place = std::function<bool(const ProcessorOffsets &)>;

    explicit COffsetHistory(Place place, QObject *parent = nullptr);
    ~COffsetHistory() override;

    /// Call when processors come into view, with their @p offsets. The history is kept only if its steps lead
    /// to exactly these; it is cleared for other processors, or after an offset was changed elsewhere.
    void enter(const ProcessorOffsets &offsets);
    /// Records a move that was carried out.
    void record(const ProcessorOffsets &before, const ProcessorOffsets &after);
    bool canUndo() const { return m_stack.canUndo(); }
    bool canRedo() const { return m_stack.canRedo(); }
    void undo();
    void redo();

Q_SIGNALS:
    void notifyChanged(); ///< canUndo() or canRedo() may have changed

private:
    void take(const ProcessorOffsets &offsets);

    const Place m_place;
    ProcessorOffsets m_offsets; // the result of the steps done so far
    QUndoStack m_stack;
};
