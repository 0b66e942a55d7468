// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/geometry/COverlapGrid.h"

/// Finds what is wrong with the cabinets of a picture: the same faults that the canvas marks. Cabinets of
/// redundancy ports have none, as they repeat others.
class CPictureFaults final
{
public:
    using Port = CabinetLayout::CabinetPort;

    explicit CPictureFaults(const QSize &canvas)
        : m_canvas(canvas)
    {
    }

    /// Call for all cabinets before the first mark(), and then mark() for the same ones in the same order.
    void add(const Port &port, const Port::Cabinet &cabinet);
    /// Enters the faults of the next cabinet into its @p look.
    void mark(SCabinetLook &look);

private:
    static constexpr int NotKept = -1;

    void findOverlapping();

    QSize m_canvas;
    QVector<QRect> m_rects; ///< null: of a redundancy port
    COverlapGrid m_grid;
    QVector<int> m_numbers; ///< in the grid
    int m_next = 0;
};
