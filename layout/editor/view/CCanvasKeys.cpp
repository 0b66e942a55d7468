// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CCanvasKeys.h"

#include "layout/editor/content/CSelectionPicks.h"
#include "layout/editor/operations/CGuardedUndo.h"
#include "layout/editor/operations/CSceneOperations.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/scene/SEditTargets.h"
#include "platform/graphics/ArrowKeys.h"

#include <QKeyEvent>

#include <algorithm>

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

} // namespace

std::optional<EditKind> CCanvasKeys::kindOf(const QKeyEvent &event)
{
    if (plainKey(event) || !arrowStep(event).isNull() || event.matches(QKeySequence::Paste))
        return EditKind::Edit;
    if (event.matches(QKeySequence::Undo) || isRedo(event))
        return EditKind::History;
    if (pressedKey(event) == QKeySequence(Qt::CTRL | Qt::Key_T))
        return EditKind::Tool;
    return std::nullopt;
}

void CCanvasKeys::carryOut(const QKeyEvent &event, const SEditTargets &targets, QWidget *parent)
{
    if (const SCanvasKey *key = plainKey(event))
        key->edit(targets);
    else if (const QPoint step = arrowStep(event); !step.isNull())
        targets.operations.nudge(step, event.isAutoRepeat()); // one undo step, however long it is held
    else if (event.matches(QKeySequence::Undo))
        targets.history.undo(parent);
    else if (isRedo(event))
        targets.history.redo(parent);
    else if (event.matches(QKeySequence::Paste))
        targets.placing.paste({}, parent);
}
