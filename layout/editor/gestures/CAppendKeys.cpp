// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CAppendKeys.h"

#include "layout/editor/placing/CScenePlacing.h"

#include <QGraphicsView>
#include <QKeyEvent>

namespace {

constexpr int SightMargin = 16; // around the ghosts, screen pixels

QPoint directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

bool CAppendKeys::press(const QKeyEvent &event, CScenePlacing &placing, QGraphicsView &view)
{
    const Qt::KeyboardModifiers keys = event.modifiers() & ~Qt::KeypadModifier;
    const bool places =
        event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Space;
    const QPoint direction = directionOf(event.key());
    if (!placing.isAppending() || (!places && direction.isNull()) || (keys & ~Qt::ShiftModifier))
        return false;
    if (places) {
        placing.placeHere(&view);
    } else {
        placing.step(direction, keys == Qt::ShiftModifier);
        view.ensureVisible(placing.block(), SightMargin, SightMargin);
    }
    return true;
}
