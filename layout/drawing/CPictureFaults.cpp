// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CPictureFaults.h"

#include "layout/geometry/COutside.h"
#include "layout/geometry/CSharedPixels.h"

void CPictureFaults::add(const Port &port, const Port::Cabinet &cabinet)
{
    m_rects << (port.redundancy == Port::Redundant ? QRect() : cabinet.rect);
}

/// Only what overlaps anything goes into the grid, which in most layouts is nothing.
void CPictureFaults::findOverlapping()
{
    const QVector<bool> overlapping = CSharedPixels::overlapping(m_rects);
    m_numbers.fill(NotKept, m_rects.size());
    for (int i = 0; i < m_rects.size(); ++i) {
        if (overlapping.at(i))
            m_numbers[i] = m_grid.add(m_rects.at(i));
    }
}

void CPictureFaults::mark(SCabinetLook &look)
{
    if (m_next == 0)
        findOverlapping();
    const QRect rect = m_rects.at(m_next);
    const int number = m_numbers.at(m_next++);
    if (rect.isNull())
        return;
    if (number != NotKept) {
        for (const QRect &shared : m_grid.overlaps(number, COverlapGrid::MostMarked))
            look.overlaps << QRectF(shared.translated(-rect.topLeft()));
    }
    look.outside = COutside::parts(rect, m_canvas);
    if (!look.overlaps.isEmpty())
        look.fault = CabinetFault::Overlapping;
    else if (!look.outside.isEmpty())
        look.fault = CabinetFault::Outside;
}
