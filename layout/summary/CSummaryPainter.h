// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QVector>

class QPainter;

/// Draws what lies under and over the processors of the summary. GUI thread.
class CSummaryPainter final
{
public:
    /// The surroundings, and the lines from which offsets count.
    static void paintBackground(QPainter &painter, const QRectF &exposed);
    /// A frame around each of what is selected; @p focused: the keys act on it.
    static void paintFrames(QPainter &painter, const QVector<QRectF> &selected, bool focused);
    /// The edges at which a move catches: @p across are places on the X axis, @p down on the Y axis.
    static void paintEdges(QPainter &painter, const QRectF &exposed, const QVector<int> &across,
                           const QVector<int> &down);
};
