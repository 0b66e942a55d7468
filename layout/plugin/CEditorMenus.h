// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/view/CEditRule.h"

#include <QCoreApplication>
#include <QKeySequence>
#include <QString>

class CLayoutGraphicsView;
class QAction;
class QMenu;

/// Fills the window's menus "Edit" and "View" for the layout editor. The entries show the keys of the canvas,
/// and do what the keys do. Needed only while filling; the entries need the view. GUI thread.
class CEditorMenus final
{
    Q_DECLARE_TR_FUNCTIONS(CEditorMenus)

public:
    /// @p shown: whether the editor is on screen; otherwise all entries are disabled.
    CEditorMenus(CLayoutGraphicsView &view, QMenu &menu, bool shown)
        : m_view(view)
        , m_menu(menu)
        , m_shown(shown)
    {
    }

    void fillEdit();
    void fillView();

private:
    /// An entry for an edit: its kind decides when it is refused.
    struct SEntry
    {
        QString text;
        QKeySequence key;
        EditKind kind = EditKind::Edit;
    };

    /// Enables an entry if the editor allows its kind and there is no @p obstacle; its tip tells otherwise.
    void allow(QAction &entry, EditKind kind, const QString &obstacle) const;
    void addEdit(QMenu &menu, const SEntry &edit, const QString &obstacle = {});
    void addClipboard();
    void addPaste(const QString &obstacle);
    QAction *addEntry(QMenu &menu, const QString &text, const QKeySequence &key) const;
    void addMoves();
    void addLook(const QString &text, const QKeySequence &key, void (CLayoutGraphicsView::*look)());
    QString refusal(EditKind kind) const; ///< why the editor refuses it; empty if it does not

    CLayoutGraphicsView &m_view;
    QMenu &m_menu;
    const bool m_shown;
};
