// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QRect>
#include <QVector>

/// What is told of selected cabinets in figures, so that nobody needs their records for it.
struct SSelectionFigures
{
    static constexpr int Mixed = -1;

    static SSelectionFigures of(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets);
    /// Counts a cabinet of @p area, canvas pixels.
    void add(const QRect &area);

    int count = 0;
    qint64 pixels = 0;
    int width = Mixed; ///< that all cabinets have; Mixed without any
    int height = Mixed;
    bool resizable = true;   ///< whether at least one of the selected items can be resized
    QVector<QRect> arranged; ///< areas of what an arrangement moves: groups, and cabinets without them
};
