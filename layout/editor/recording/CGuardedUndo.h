// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>

class CUndoCommandBase;
class IEditorScene;
class QUndoCommand;

/// Decides whether an undo step may run: not when it touches a locked or a redundancy port.
class CGuardedUndo final
{
    Q_DECLARE_TR_FUNCTIONS(CGuardedUndo)

public:
    /// What to tell the user in place of running @p command; empty when it may run. Commands are looked at in
    /// their order; one whose port has no item any more is passed over.
    static QString refusal(const IEditorScene &scene, const QUndoCommand &command, bool undoing);

    /// The first of the editor's own commands in @p command, which may be a macro; null without one.
    static const CUndoCommandBase *ownCommand(const QUndoCommand *command);
};
