// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CCanvasKeys.h"

#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/gestures/CAppendKeys.h"
#include "layout/editor/menus/IEditorCommands.h"
#include "layout/editor/operations/CGuardedUndo.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/scene/SEditTargets.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "platform/graphics/ArrowKeys.h"
#include "platform/widgets/CStatusWords.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include <algorithm>
#include <optional>

namespace {

/// A key and its edit.
struct SCanvasKey
{
    QKeySequence key;
    void (*edit)(const SEditTargets &);
};

const QVector<SCanvasKey> &canvasKeys()
{
    static const QVector<SCanvasKey> keys = {
        {Qt::Key_Delete, [](const SEditTargets &targets) { targets.operations.remove(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_A), [](const SEditTargets &targets) { targets.picks.all(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_X),
         [](const SEditTargets &targets) { targets.placing.cut(targets.operations); }},
        {QKeySequence(Qt::CTRL | Qt::Key_C), [](const SEditTargets &targets) { targets.placing.copy(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_G), [](const SEditTargets &targets) { targets.operations.group(); }},
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_G),
         [](const SEditTargets &targets) { targets.operations.ungroup(); }},
    };
    return keys;
}

QKeySequence pressedKey(const QKeyEvent &event)
{
    return QKeySequence(event.key() | int(event.modifiers() & ~Qt::KeypadModifier));
}

const SCanvasKey *plainKey(const QKeyEvent &event)
{
    const QKeySequence pressed = pressedKey(event);
    const auto key = std::find_if(canvasKeys().begin(), canvasKeys().end(),
                                  [&pressed](const SCanvasKey &k) { return k.key == pressed; });
    return key == canvasKeys().end() ? nullptr : &*key;
}

/// The unit step of an arrow key without modifiers; null for any other key.
QPoint arrowStep(const QKeyEvent &event)
{
    const bool plain = !(event.modifiers() & ~Qt::KeypadModifier);
    return plain ? ArrowKeys::directionOf(event.key()) : QPoint();
}

bool isRedo(const QKeyEvent &event)
{
    return event.matches(QKeySequence::Redo) || pressedKey(event) == QKeySequence(Qt::CTRL | Qt::Key_Y);
}

/// What the key does; nothing if it is none of the canvas.
std::optional<EditKind> kindOf(const QKeyEvent &event)
{
    if (plainKey(event) || !arrowStep(event).isNull() || event.matches(QKeySequence::Paste))
        return EditKind::Edit;
    if (event.matches(QKeySequence::Undo) || isRedo(event))
        return EditKind::History;
    if (pressedKey(event) == QKeySequence(Qt::CTRL | Qt::Key_T))
        return EditKind::Tool;
    return std::nullopt;
}

} // namespace

bool CCanvasKeys::press(QKeyEvent &event)
{
    CCabinetGraphicsScene &scene = m_view.cabinetScene();
    CScenePlacing &placing = scene.backend().placing();
    if (event.key() == Qt::Key_Escape) {
        scene.leaveOperation();
        return true;
    }
    if (CAppendKeys::press(event, placing, m_view)) {
        if (!placing.isAppending())
            scene.leaveOperation();
        return true;
    }
    const std::optional<EditKind> kind = kindOf(event);
    if (!kind || !m_view.refusal(*kind).isEmpty())
        return false;
    if (*kind == EditKind::Tool)
        openAppendMenu();
    else
        carryOut(event);
    return true;
}

bool CCanvasKeys::isOfWindow(const QKeyEvent &event)
{
    const std::optional<EditKind> kind = kindOf(event);
    return kind && *kind != EditKind::Edit;
}

void CCanvasKeys::explain(QKeyEvent &event)
{
    const std::optional<EditKind> kind = kindOf(event);
    if (!kind)
        return;
    if (!event.isAccepted())
        m_words.tell(m_view.refusal(*kind));
    event.accept();
}

void CCanvasKeys::carryOut(const QKeyEvent &event)
{
    const SEditTargets targets = m_view.cabinetScene().backend().targets();
    if (const SCanvasKey *key = plainKey(event))
        key->edit(targets);
    else if (const QPoint step = arrowStep(event); !step.isNull())
        targets.operations.nudge(step, event.isAutoRepeat()); // one undo step, however long it is held
    else if (event.matches(QKeySequence::Undo))
        targets.history.undo(&m_view);
    else if (isRedo(event))
        targets.history.redo(&m_view);
    else if (event.matches(QKeySequence::Paste))
        targets.placing.paste({}, &m_view);
}

void CCanvasKeys::openAppendMenu()
{
    if (!m_commands)
        return;
    const QPointer<QMenu> menu = new QMenu(&m_view);
    m_commands->fillAppendMenu(*menu, &m_view);
    if (!menu->isEmpty())
        menu->exec(QCursor::pos());
    delete menu;
}
