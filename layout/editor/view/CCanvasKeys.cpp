// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CCanvasKeys.h"

#include "layout/editor/scene/CSceneBackend.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

/// A key and its edit.
struct SCanvasKey
{
    QKeySequence key;
    void (*edit)(CSceneBackend &);
};

const QVector<SCanvasKey> &canvasKeys()
{
    static const QVector<SCanvasKey> keys = {
        {Qt::Key_Up,
         [](CSceneBackend &backend) {
             backend.operations().nudge({0, -1});
         }},
        {Qt::Key_Down,
         [](CSceneBackend &backend) {
             backend.operations().nudge({0, 1});
         }},
        {Qt::Key_Left,
         [](CSceneBackend &backend) {
             backend.operations().nudge({-1, 0});
         }},
        {Qt::Key_Right,
         [](CSceneBackend &backend) {
             backend.operations().nudge({1, 0});
         }},
        {Qt::Key_Delete, [](CSceneBackend &backend) { backend.operations().remove(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_A), [](CSceneBackend &backend) { backend.picks().all(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_X),
         [](CSceneBackend &backend) { backend.placing().cut(backend.operations()); }},
        {QKeySequence(Qt::CTRL | Qt::Key_C), [](CSceneBackend &backend) { backend.placing().copy(); }},
        {QKeySequence(Qt::CTRL | Qt::Key_G), [](CSceneBackend &backend) { backend.operations().group(); }},
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_G),
         [](CSceneBackend &backend) { backend.operations().ungroup(); }},
    };
    return keys;
}

QKeySequence pressedKey(const QKeyEvent &event)
{
    return QKeySequence(event.key() | int(event.modifiers() & ~Qt::KeypadModifier));
}

} // namespace

bool CCanvasKeys::carryOut(const QKeyEvent &event, CSceneBackend &backend, QWidget *parent)
{
    const QKeySequence pressed = pressedKey(event);
    const auto key = std::find_if(canvasKeys().begin(), canvasKeys().end(),
                                  [&pressed](const SCanvasKey &k) { return k.key == pressed; });
    if (key != canvasKeys().end())
        key->edit(backend);
    else if (event.matches(QKeySequence::Undo))
        backend.history().undo(parent);
    else if (isHistory(event))
        backend.history().redo(parent);
    else if (event.matches(QKeySequence::Paste))
        backend.placing().paste({}, parent);
    else
        return false;
    return true;
}

bool CCanvasKeys::isHistory(const QKeyEvent &event)
{
    return event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo) ||
           pressedKey(event) == QKeySequence(Qt::CTRL | Qt::Key_Y);
}

bool CCanvasKeys::isAppend(const QKeyEvent &event)
{
    return pressedKey(event) == QKeySequence(Qt::CTRL | Qt::Key_T);
}
