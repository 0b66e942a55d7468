// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/graphics/SPlacing.h"
#include "layout/printing/graphics/SheetSplit.h"

#include <algorithm>

/// A part of a port as it lies on its sheet.
struct SPartView
{
    const CWall &wall;
    const SPlanPort &port;
    const SWallPart &part;
    SPlacing placing;

    QRectF rect(int cabinet) const { return placing.map(wall.cabinets().at(cabinet).millimetres); }
    /// The cabinet at a place of the chain, from 0.
    int chained(int place) const { return port.chain.at(place); }
    /// Whether the first, or the last, cabinet of the chain is on this sheet.
    bool hasStart() const { return !port.chain.isEmpty() && part.owned.contains(port.chain.first()); }
    bool hasEnd() const { return !port.chain.isEmpty() && part.owned.contains(port.chain.last()); }
    /// The shorter side of the smallest cabinet, millimetres of the wall; without those that are far smaller
    /// than most: they do not decide how large the others are drawn.
    static double shortestSide(const CWall &wall, const QVector<int> &cabinets)
    {
        QVector<double> sides;
        for (int cabinet : cabinets) {
            const QRectF &rect = wall.cabinets().at(cabinet).millimetres;
            sides << std::min(rect.width(), rect.height());
        }
        std::sort(sides.begin(), sides.end());
        const double least = sides.isEmpty() ? 0 : sides.at(sides.size() / 2) / 2;
        return sides.isEmpty() ? 0 : *std::lower_bound(sides.begin(), sides.end(), least);
    }
    /// Of the disc at the start of the chain.
    double startRadius() const { return std::max(1.2, std::min(2.6, shortestSide() * 0.12)); }
    double shortestSide() const { return shortestSide(wall, part.owned) * placing.scale; }
};
