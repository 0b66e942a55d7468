// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/SSelectionFigures.h"

SSelectionFigures SSelectionFigures::of(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets)
{
    SSelectionFigures figures;
    for (const auto &cabinet : cabinets) {
        figures.add(cabinet.rect);
        figures.arranged << cabinet.rect;
    }
    return figures;
}

void SSelectionFigures::add(const QRect &area)
{
    width = count == 0 || width == area.width() ? area.width() : int(Mixed);
    height = count == 0 || height == area.height() ? area.height() : int(Mixed);
    pixels += qint64(area.width()) * area.height();
    ++count;
}
