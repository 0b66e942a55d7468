// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CTopologyWiring.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/geometry/CSnakeOrder.h"

#include <QSet>

QVector<CGraphicsCabinetItem *> CTopologyWiring::snake(const CGraphicsPortItem &port,
                                                       const QVector<CGraphicsCabinetItem *> &cabinets,
                                                       int pattern)
{
    QVector<CSnakeOrder::SCell> cells;
    cells.reserve(cabinets.size());
    for (const CGraphicsCabinetItem *cabinet : cabinets)
        cells << CSnakeOrder::SCell{port.mapRectFromScene(cabinet->mapRectToScene(cabinet->rect())),
                                    cabinet->uuid()};
    QVector<CGraphicsCabinetItem *> ordered;
    ordered.reserve(cabinets.size());
    for (const int index : CSnakeOrder::order(cells, pattern))
        ordered << cabinets.at(index);
    return ordered;
}

QVector<CGraphicsCabinetItem *>
CTopologyWiring::chainByPattern(const CGraphicsPortItem &port,
                                const QVector<CGraphicsCabinetItem *> &selected, int pattern)
{
    const QVector<CGraphicsCabinetItem *> before = port.chain().order();
    if (selected.size() == 1) // a single cabinet gets no line; it can only become a chain of its own
        return before.isEmpty() ? selected : before;

    const QSet<CGraphicsCabinetItem *> chosen(selected.begin(), selected.end());
    const QVector<CGraphicsCabinetItem *> stretch = snake(port, selected, pattern);
    QVector<CGraphicsCabinetItem *> chain;
    bool placed = false;
    for (CGraphicsCabinetItem *cabinet : before) {
        if (!chosen.contains(cabinet)) {
            chain << cabinet;
        } else if (!placed) {
            chain += stretch;
            placed = true;
        }
    }
    if (!placed)
        chain += stretch;
    return chain;
}
