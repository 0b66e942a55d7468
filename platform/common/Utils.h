// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLineF>
#include <QRect>
#include <QVector>

/// Small helpers that belong to no class.
namespace Utils {

/// The borders at which two of @p rects touch, each shared stretch once: a vertical line for neighbours side
/// by side, a horizontal one for neighbours above each other. Lines run to the right or down and lie on the
/// pixels' edges (the right border of a rectangle is at left + width). Rectangles that only meet in a corner
/// or overlap share no border.
QVector<QLineF> calculateAdjacentLines(const QVector<QRect> &rects);

} // namespace Utils
