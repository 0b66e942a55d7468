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

/// Undoes and redoes the steps of a scene; refuses a step that touches a locked port or a redundancy port.
/// GUI thread.
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

    // Nothing happens if there is no step. A refusal is shown in a message box over @p parent.
    void undo(QWidget *parent);
    void redo(QWidget *parent);
    /// Undoes or redoes until @p index steps are done; none of them if one is refused.
    void goTo(int index, QWidget *parent);
    bool canUndo() const;
    bool canRedo() const;

    struct SRefusal
    {
        QString text;   ///< empty: the command may run
        QString advice; ///< what can be done about it
    };
    /// The message to show instead of running @p command. The commands of a macro are
    /// checked in order; one whose port no longer exists is skipped.
    SRefusal refusal(const QUndoCommand &command, bool undoing) const;

    /// The first of the editor's own commands in @p command, which may be a macro; null if there is none.
    static const CUndoCommandBase *ownCommand(const QUndoCommand *command);

private:
    IEditing &m_editing;
    const CSceneContent &m_content;
    const CUndoRecorder &m_recorder;
    CSelectionPicks &m_picks;
};
