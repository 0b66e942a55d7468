// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QVector>

class QPainter;

/// Draws the background and the overlays of the summary. GUI thread.
class CSummaryPainter final
{
public:
    /// Draws the background, and the axes from which offsets are measured.
    static void paintBackground(QPainter &painter, const QRectF &exposed);
    /// Draws a frame around each selected processor; @p focused: keys act on it.
    static void paintFrames(QPainter &painter, const QVector<QRectF> &selected, bool focused);
    /// Draws the edges that a move has snapped to: @p across are X positions, @p down are Y positions.
    static void paintEdges(QPainter &painter, const QRectF &exposed, const QVector<int> &across,
                           const QVector<int> &down);
};
