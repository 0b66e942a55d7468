// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CEditorMenus.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CRefusal.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CEditRule.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CLayoutGraphicsView.h"

#include <QKeyEvent>
#include <QMenu>

namespace {

using Bar = CEditorToolBar;

void press(QWidget &widget, const QKeySequence &key)
{
    const int code = key[0];
    const int modifiers = code & int(Qt::KeyboardModifierMask);
    widget.setFocus();
    QKeyEvent event(QEvent::KeyPress, code & ~modifiers, Qt::KeyboardModifiers(modifiers));
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

void CEditorMenus::fillEdit()
{
    m_menu.setToolTipsVisible(true);
    CSceneBackend &backend = m_view.cabinetScene().backend();
    const CSceneSelection &selection = backend.selection();
    const QUndoStack *stack = backend.recorder().stack();
    addEdit(m_menu, {tr("&Undo"), Qt::CTRL | Qt::Key_Z, EditKind::History},
            CEditRule::undoing(stack && stack->canUndo()));
    addEdit(m_menu, {tr("&Redo"), Qt::CTRL | Qt::Key_Y, EditKind::History},
            CEditRule::redoing(stack && stack->canRedo()));
    m_menu.addSeparator();
    addClipboard();
    m_menu.addSeparator();
    addEdit(m_menu, {tr("Select &all"), Qt::CTRL | Qt::Key_A});
    addEdit(m_menu, {tr("&Group"), Qt::CTRL | Qt::Key_G},
            CEditRule::grouping(selection, selection.canGroup()));
    addEdit(m_menu, {tr("U&ngroup"), Qt::CTRL | Qt::SHIFT | Qt::Key_G},
            CEditRule::ungrouping(selection, selection.canBreakGroup()));
    addMoves();
    m_menu.addSeparator();
    addEdit(m_menu, {tr("App&end cabinets..."), Qt::CTRL | Qt::Key_T, EditKind::Tool},
            backend.placing().appendRefusal(backend.states().currentPort()));
}

void CEditorMenus::addClipboard()
{
    CSceneBackend &backend = m_view.cabinetScene().backend();
    const QString refused = CEditRule::selected(backend.selection());
    const CGraphicsPortItem *current = backend.content().portItem(backend.states().currentPort());
    addEdit(m_menu, {tr("Cu&t"), Qt::CTRL | Qt::Key_X}, refused);
    addEdit(m_menu, {tr("&Copy"), Qt::CTRL | Qt::Key_C}, backend.selection().isEmpty() ? refused : QString());
    const bool empty = backend.placing().cache().isEmpty();
    addPaste(empty     ? tr("Nothing was copied")
             : current ? CRefusal::reason(current)
                       : tr("No output port is chosen."));
    addEdit(m_menu, {tr("&Delete"), Qt::Key_Delete}, refused);
}

/// Unlike by the key, the mouse is where the menu was.
void CEditorMenus::addPaste(const QString &obstacle)
{
    QAction *entry = addEntry(m_menu, tr("&Paste"), Qt::CTRL | Qt::Key_V);
    allow(*entry, EditKind::Edit, obstacle);
    QObject::connect(entry, &QAction::triggered, &m_view, [view = &m_view] {
        view->setFocus();
        if (view->refusal(EditKind::Edit).isEmpty())
            view->cabinetScene().backend().placing().pasteAtLast(view);
    });
}

void CEditorMenus::addMoves()
{
    QMenu *moves = m_menu.addMenu(tr("&Move by one pixel"));
    moves->setToolTipsVisible(true);
    const QString refused = CEditRule::selected(m_view.cabinetScene().selection());
    allow(*moves->menuAction(), EditKind::Edit, refused);
    addEdit(*moves, {tr("&Left"), Qt::Key_Left}, refused);
    addEdit(*moves, {tr("&Right"), Qt::Key_Right}, refused);
    addEdit(*moves, {tr("&Up"), Qt::Key_Up}, refused);
    addEdit(*moves, {tr("&Down"), Qt::Key_Down}, refused);
}

void CEditorMenus::fillView()
{
    addLook(tr("Zoom &in"), QKeySequence::ZoomIn, &CLayoutGraphicsView::zoomIn);
    addLook(tr("Zoom &out"), QKeySequence::ZoomOut, &CLayoutGraphicsView::zoomOut);
    addLook(tr("&Fit the wall"), Qt::CTRL | Qt::Key_0, &CLayoutGraphicsView::fitContent);
    addLook(tr("Pixel by &pixel"), Qt::CTRL | Qt::Key_1, &CLayoutGraphicsView::showActualSize);
    m_menu.addSeparator();
    QAction *tool = m_view.toolBar().tool(Bar::Navigator);
    QAction *navigator = addEntry(m_menu, tr("&Navigator"), {});
    navigator->setCheckable(true);
    navigator->setChecked(tool->isChecked());
    navigator->setEnabled(m_shown);
    QObject::connect(navigator, &QAction::triggered, tool, &QAction::setChecked);
}

QAction *CEditorMenus::addEntry(QMenu &menu, const QString &text, const QKeySequence &key) const
{
    QAction *entry = menu.addAction(text);
    entry->setShortcut(key);
    entry->setShortcutContext(Qt::WidgetShortcut); // shown only: the canvas listens to the key itself
    return entry;
}

void CEditorMenus::addEdit(QMenu &menu, const SEntry &edit, const QString &obstacle)
{
    QAction *entry = addEntry(menu, edit.text, edit.key);
    allow(*entry, edit.kind, obstacle);
    QObject::connect(entry, &QAction::triggered, &m_view,
                     [view = &m_view, key = edit.key] { press(*view, key); });
}

void CEditorMenus::allow(QAction &entry, EditKind kind, const QString &obstacle) const
{
    const QString refused = refusal(kind);
    const QString why = refused.isEmpty() ? obstacle : refused;
    entry.setEnabled(why.isEmpty());
    if (!why.isEmpty())
        entry.setToolTip(why);
}

void CEditorMenus::addLook(const QString &text, const QKeySequence &key, void (CLayoutGraphicsView::*look)())
{
    QAction *entry = addEntry(m_menu, text, key);
    entry->setEnabled(m_shown);
    QObject::connect(entry, &QAction::triggered, &m_view, look);
}

QString CEditorMenus::refusal(EditKind kind) const
{
    return m_shown ? m_view.refusal(kind) : tr("No layout is shown.");
}
