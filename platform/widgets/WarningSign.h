// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

class QColor;
class QPainter;
class QPointF;

namespace WarningSign {

/// Draws the theme's warning sign, 13 x 11 pixels, around @p middle, in @p color; @p rim sets it off from
/// what lies below. Draws nothing before the theme is applied. GUI thread.
void paint(QPainter &painter, const QPointF &middle, const QColor &color, const QColor &rim);

} // namespace WarningSign
