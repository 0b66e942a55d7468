// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CCanvasKeys.h"

#include "layout/editor/scene/CCabinetGraphicsScene.h"

#include <QKeyEvent>

#include <algorithm>

namespace {

using Scene = CCabinetGraphicsScene;

/// A key and the edit that it stands for.
struct SCanvasKey
{
    QKeySequence key;
    void (CCabinetGraphicsScene::*command)();
};

const QVector<SCanvasKey> &canvasKeys()
{
    static const QVector<SCanvasKey> keys = {
        {Qt::Key_Up, &Scene::selectedItemMoveUp},
        {Qt::Key_Down, &Scene::selectedItemMoveDown},
        {Qt::Key_Left, &Scene::selectedItemMoveLeft},
        {Qt::Key_Right, &Scene::selectedItemMoveRight},
        {Qt::Key_Delete, &Scene::deleteSelected},
        {QKeySequence(Qt::CTRL | Qt::Key_A), &Scene::selectAllItem},
        {QKeySequence(Qt::CTRL | Qt::Key_X), &Scene::cutSelected},
        {QKeySequence(Qt::CTRL | Qt::Key_C), &Scene::copySelected},
        {QKeySequence(Qt::CTRL | Qt::Key_G), &Scene::groupSelected},
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_G), &Scene::ungroupSelected},
    };
    return keys;
}

QKeySequence pressedKey(const QKeyEvent &event)
{
    return QKeySequence(event.key() | int(event.modifiers() & ~Qt::KeypadModifier));
}

} // namespace

bool CCanvasKeys::carryOut(const QKeyEvent &event, CCabinetGraphicsScene &scene, QWidget *parent)
{
    const QKeySequence pressed = pressedKey(event);
    const auto key = std::find_if(canvasKeys().begin(), canvasKeys().end(),
                                  [&pressed](const SCanvasKey &k) { return k.key == pressed; });
    if (key != canvasKeys().end())
        (scene.*key->command)();
    else if (event.matches(QKeySequence::Undo))
        scene.undo(parent);
    else if (event.matches(QKeySequence::Redo) || pressed == QKeySequence(Qt::CTRL | Qt::Key_Y))
        scene.redo(parent);
    else if (event.matches(QKeySequence::Paste))
        scene.pasteItems({}, parent);
    else
        return false;
    return true;
}

bool CCanvasKeys::isAppend(const QKeyEvent &event)
{
    return pressedKey(event) == QKeySequence(Qt::CTRL | Qt::Key_T);
}
