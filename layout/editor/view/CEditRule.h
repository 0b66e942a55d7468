// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>

class CSceneSelection;

/// What a key, a menu entry or a button of the editor does.
enum class EditKind {
    Edit,    ///< changes, selects or copies what is on the canvas
    History, ///< undo and redo
    Tool     ///< takes another tool in hand, as appending does
};

/// What is possible, and why not. Keys, menus and tool bar all ask here.
class CEditRule final
{
    Q_DECLARE_TR_FUNCTIONS(CEditRule)

public:
    /// The reason why what is of @p kind is refused; empty if it is not. @p block: why nothing may be edited,
    /// see EditRefusal; @p hand: the hand tool is in use.
    static QString refusal(EditKind kind, const QString &block, bool hand);

    static QString undoing(bool possible);
    static QString redoing(bool possible);
    /// Why nothing can be done with what is selected.
    static QString selected(const CSceneSelection &selection);
    static QString grouping(const CSceneSelection &selection, bool possible);
    static QString ungrouping(const CSceneSelection &selection, bool possible);
};
