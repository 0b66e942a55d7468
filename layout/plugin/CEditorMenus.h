// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CLayoutGraphicsView;
class QAction;
class QKeySequence;
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
    /// Adds an entry for an edit. It is enabled if edits are allowed and @p possible.
    void addEdit(QMenu &menu, const QString &text, const QKeySequence &key, bool possible);
    QAction *addEntry(QMenu &menu, const QString &text, const QKeySequence &key) const;
    void addMoves(bool possible);
    void addLook(const QString &text, const QKeySequence &key, void (CLayoutGraphicsView::*look)());
    QString refusal() const; ///< why nothing can be edited; empty if something can

    CLayoutGraphicsView &m_view;
    QMenu &m_menu;
    const bool m_shown;
};
