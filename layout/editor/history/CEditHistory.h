// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/history/CSavedRows.h"
#include "layout/editor/history/CStepValues.h"

#include <QTimer>
#include <QUndoStack>

class CSceneContent;

/// What the editor's scene showed when it was compared with what the store knew.
struct SComparedEdit
{
    CabinetLayout known;       ///< by the store
    CabinetLayout edited;      ///< as it is now
    QVector<int> changedPorts; ///< in which the two differ
};

/// The undo history of one processor: a stack whose commands act, and beside each its step as values, from
/// which it can be kept, restored and shortened. GUI thread.
class CEditHistory final : public QObject
{
    Q_OBJECT

public:
    using Port = CabinetLayout::CabinetPort;
    /// The usual argument of setLimit().
    static constexpr qint64 UsualLimit = 256LL * 1024 * 1024;

    /// @p content must outlive the history.
    explicit CEditHistory(CSceneContent &content);

    QUndoStack &stack() { return m_stack; }
    const QUndoStack &stack() const { return m_stack; }
    /// What is before the first step, for the user: also whether older ones are missing.
    QString beginning() const;

    /// The layout to compare edits with. Call when the layout comes into view, before the first edit.
    /// @p stepCount as for note().
    void enter(const CabinetLayout &layout, int stepCount);
    /// The layout when it was last entered or noted.
    const CabinetLayout &layout() const { return m_layout; }

    /// Fills an empty history with what was kept of an earlier run. Returns false if it does not lead to the
    /// layout; then it stays empty.
    [[nodiscard]] bool restore(const SEditHistory &kept);
    void clear();
    /// What the host says of the layout as it is now.
    void setUnsavedEdits(const SUnsavedEdits &edits);
    /// At which numbers of done steps the layout equals what was saved, as far as is known.
    QSet<int> savedRows() const { return m_saved.rows(); }

    /// Call after each edit, undo and redo; @p stepCount is CUndoRecorder::stepCount(). Returns what to tell
    /// the host: usually one record; none if nothing has happened.
    QVector<SEditRecord> note(const SComparedEdit &edit, int stepCount);
    /// The record of a history that was cleared.
    SEditRecord clearedRecord() const;

    /// Sets how much memory the history may need. If it needs more, its oldest steps are dropped, once the
    /// event loop is idle; the next record tells how many.
    void setLimit(qint64 bytes);
    /// The memory that stack and steps need, approximately.
    qint64 bytes() const;
    /// Whether nothing is left to be done when the event loop is idle.
    bool isTidy() const { return !m_idle.isActive(); }

Q_SIGNALS:
    void notifyBeginningChanged(); ///< see beginning()
    void notifySavedRowsChanged();

private:
    using Values = std::shared_ptr<CStepValues>;

    QVector<SEditStep::SPort> takeChanges(const SComparedEdit &edit);
    void noteNewStep(const SEditStep &step, int index);
    void rebuild(QVector<Values> steps, int index, int saved);
    void forgetSavedFrom(int row);
    void setSavedRows(const CSavedRows &rows);
    void tidy();
    void shorten();

    CSceneContent &m_content;
    bool m_rebuilding = false;
    QUndoStack m_stack;
    QVector<Values> m_steps; // by index of the stack
    CSavedRows m_saved;      // the stack's clean index is one of them
    CabinetLayout m_layout;
    int m_index = 0;     // when last noted
    int m_stepCount = 0; // when last noted
    bool m_restored = false;
    int m_dropped = 0;
    int m_droppedUntold = 0;
    qint64 m_limit = UsualLimit;
    QTimer m_idle; // runs out when there is time to tidy up
};
