// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CPictureFaults.h"

#include "layout/geometry/COutside.h"

namespace {
constexpr int NotKept = -1;
}

void CPictureFaults::add(const Port &port, const Port::Cabinet &cabinet)
{
    m_numbers << (port.redundancy == Port::Redundant ? NotKept : m_grid.add(cabinet.rect));
}

void CPictureFaults::mark(SCabinetLook &look)
{
    const int number = m_numbers.at(m_next++);
    if (number == NotKept)
        return;
    const QRect &rect = m_grid.rect(number);
    for (const QRect &shared : m_grid.overlaps(number, COverlapGrid::MostMarked))
        look.overlaps << QRectF(shared.translated(-rect.topLeft()));
    look.outside = COutside::parts(rect, m_canvas);
    if (!look.overlaps.isEmpty())
        look.fault = CabinetFault::Overlapping;
    else if (!look.outside.isEmpty())
        look.fault = CabinetFault::Outside;
}
