// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>

class CSceneContent;
class CSelectionPicks;
class CUndoCommandBase;
class CUndoRecorder;
class IEditing;
class QUndoCommand;
class QWidget;

/// Undoes and redoes the steps of a scene, unless a step touches a locked or a redundancy port. GUI thread.
class CGuardedUndo final
{
    Q_DECLARE_TR_FUNCTIONS(CGuardedUndo)

public:
    CGuardedUndo(IEditing &editing, const CSceneContent &content, const CUndoRecorder &recorder,
                 CSelectionPicks &picks)
        : m_editing(editing)
        , m_content(content)
        , m_recorder(recorder)
        , m_picks(picks)
    {
    }

    // Nothing happens without a step to take. A refusal is told over @p parent.
    void undo(QWidget *parent) { run(parent, true); }
    void redo(QWidget *parent) { run(parent, false); }
    bool canUndo() const;
    bool canRedo() const;

    /// What to tell the user instead of running @p command; empty when it may run. Commands are looked at in
    /// their order; one whose port has no item any more is passed over.
    QString refusal(const QUndoCommand &command, bool undoing) const;

    /// The first of the editor's own commands in @p command, which may be a macro; null without one.
    static const CUndoCommandBase *ownCommand(const QUndoCommand *command);

private:
    void run(QWidget *parent, bool undoing);

    IEditing &m_editing;
    const CSceneContent &m_content;
    const CUndoRecorder &m_recorder;
    CSelectionPicks &m_picks;
};
