// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/operations/CTopologyWiring.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/geometry/CSnakeOrder.h"

#include <QSet>

#include <algorithm>
#include <tuple>

QVector<CGraphicsCabinetItem *> CTopologyWiring::snake(const CGraphicsPortItem &port,
                                                       const QVector<CGraphicsCabinetItem *> &cabinets,
                                                       int pattern)
{
    // By position, then identity: among cells of equal area the first sets the pitch, and the same wall must
    // always be wired the same way, however it was made.
    QVector<QPair<CSnakeOrder::SCell, CGraphicsCabinetItem *>> placed;
    placed.reserve(cabinets.size());
    for (CGraphicsCabinetItem *cabinet : cabinets) {
        const QRectF rect = port.mapRectFromScene(cabinet->mapRectToScene(cabinet->rect()));
        placed << qMakePair(CSnakeOrder::SCell{rect, cabinet->uuid()}, cabinet);
    }
    std::sort(placed.begin(), placed.end(), [](const auto &a, const auto &b) {
        const QPointF first = a.first.rect.topLeft();
        const QPointF second = b.first.rect.topLeft();
        return std::make_tuple(first.y(), first.x(), a.first.uuid) <
               std::make_tuple(second.y(), second.x(), b.first.uuid);
    });
    QVector<CSnakeOrder::SCell> cells;
    cells.reserve(placed.size());
    for (const auto &entry : qAsConst(placed))
        cells << entry.first;
    QVector<CGraphicsCabinetItem *> ordered;
    ordered.reserve(placed.size());
    for (const int index : CSnakeOrder::order(cells, pattern))
        ordered << placed.at(index).second;
    return ordered;
}

QVector<CGraphicsCabinetItem *>
CTopologyWiring::chainByPattern(const CGraphicsPortItem &port,
                                const QVector<CGraphicsCabinetItem *> &selected, int pattern)
{
    const QVector<CGraphicsCabinetItem *> before = port.chain().order();
    if (selected.size() == 1) // no pattern for a single cabinet: it can only become a chain of one
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
