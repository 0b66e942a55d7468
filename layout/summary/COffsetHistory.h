// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/summary/SSummaryProcessor.h"

#include <QUndoStack>

#include <functional>

/// The moves of processors on the shared canvas, to be taken back and done again. A step is taken only once
/// the host has carried it out. GUI thread.
class COffsetHistory final : public QObject
{
    Q_OBJECT

public:
    /// Brings processors to their offsets, at the host and on the screen; whether it was done.
    using Place = std::function<bool(const ProcessorOffsets &)>;

    explicit COffsetHistory(Place place, QObject *parent = nullptr);
    ~COffsetHistory() override;

    /// The processors in view lie at @p offsets. The steps stay only when they lead there: those of other
    /// processors are forgotten, and so are all once an offset was changed elsewhere.
    void enter(const ProcessorOffsets &offsets);
    /// Records a move that was carried out.
    void record(const ProcessorOffsets &before, const ProcessorOffsets &after);
    bool canUndo() const { return m_stack.canUndo(); }
    bool canRedo() const { return m_stack.canRedo(); }
    void undo();
    void redo();

Q_SIGNALS:
    void notifyChanged(); ///< what can be undone and redone

private:
    void take(const ProcessorOffsets &offsets);

    const Place m_place;
    ProcessorOffsets m_offsets; // to which the steps that were taken lead
    QUndoStack m_stack;
};
