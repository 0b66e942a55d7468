// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CAppendKeys.h"

#include "layout/editor/placing/CScenePlacing.h"
#include "platform/graphics/ArrowKeys.h"

#include <QGraphicsView>
#include <QKeyEvent>

namespace {

constexpr int SightMargin = 16; // around the ghosts, screen pixels

} // namespace

bool CAppendKeys::press(const QKeyEvent &event, CScenePlacing &placing, QGraphicsView &view)
{
    const Qt::KeyboardModifiers keys = event.modifiers() & ~Qt::KeypadModifier;
    const bool places =
        event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter || event.key() == Qt::Key_Space;
    const QPoint direction = ArrowKeys::directionOf(event.key());
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
