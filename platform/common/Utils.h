// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineF>
#include <QRect>
#include <QVector>

/// Small helpers that belong to no class.
namespace Utils {

/// Returns the borders shared by two of @p rects, each once: a vertical line for neighbours side by side, a
/// horizontal one for neighbours above each other. Lines run to the right or down, along the edges of pixels
/// (the right border of a rectangle is at left + width). Rectangles that overlap or only meet at a corner
/// share no border.
QVector<QLineF> calculateAdjacentLines(const QVector<QRect> &rects);

} // namespace Utils
