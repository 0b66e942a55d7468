// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QColor;
class QPainter;
class QPointF;

namespace WarningSign {

/// Draws a triangle with an exclamation mark, 13 x 11 pixels, around @p middle; @p rim sets it off from what
/// lies below.
void paint(QPainter &painter, const QPointF &middle, const QColor &color, const QColor &rim);

} // namespace WarningSign
