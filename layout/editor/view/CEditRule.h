// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>

/// What a key, a menu entry or a button of the editor does.
enum class EditKind {
    Edit,    ///< changes, selects or copies what is on the canvas
    History, ///< undo and redo
    Tool     ///< takes another tool in hand, as appending does
};

/// What is possible while the editor is looked at only. Keys, menus and tool bar all ask here.
class CEditRule final
{
    Q_DECLARE_TR_FUNCTIONS(CEditRule)

public:
    /// Why nothing may be edited; empty if it may. @p locked: the user has locked it; @p backup: the
    /// processor follows a primary, which unlocking does not change.
    static QString block(bool locked, bool backup);
    /// The reason why what is of @p kind is refused; empty if it is not. @p block: see block(); @p hand: the
    /// hand tool is in use.
    static QString refusal(EditKind kind, const QString &block, bool hand);
};
