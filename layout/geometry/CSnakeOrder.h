// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QRectF>
#include <QString>
#include <QUuid>
#include <QVector>

/// The eight snake patterns and the order in which each runs through cabinets.
class CSnakeOrder final
{
public:
    /// One pattern. A pattern's number is its index in patterns().
    struct SPattern
    {
        const char *name;     ///< tool tip, e.g. "LTR TTB snake"
        const char *iconName; ///< file name of its picture, without path and suffix
        bool rows;            ///< its lines are rows; otherwise columns
        bool firstForward;    ///< the first line runs to the right (rows) or downward (columns)
        bool advanceForward;  ///< the lines advance downward (rows) or to the right (columns)
    };

    /// A cabinet to be ordered.
    struct SCell
    {
        QRectF rect; ///< in the port's coordinates, pixels
        QUuid uuid;  ///< decides between cabinets with equal centres
    };

    static constexpr int PatternCount = 8;
    static const QVector<SPattern> &patterns();

    /// The indices of @p cells in wiring order. Cabinets that no scan line touches are left out; empty for an
    /// unknown pattern number. O(n log n).
    static QVector<int> order(const QVector<SCell> &cells, int pattern);
};
