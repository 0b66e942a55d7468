// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsPortItem;

/// The order that a snake pattern gives a port's chain. Changes nothing itself.
class CTopologyWiring final
{
public:
    /// The chain of @p port after @p selected, cabinets of it, were wired by @p pattern. Those that were
    /// wired go back between what stood before the first and after the last of them; unwired ones continue
    /// the chain at its end. Cabinets that no line of the pattern touches are left unwired; every unselected
    /// cabinet keeps its wiring.
    static QVector<CGraphicsCabinetItem *> chainByPattern(const CGraphicsPortItem &port,
                                                          const QVector<CGraphicsCabinetItem *> &selected,
                                                          int pattern);

    /// The cabinets in the order of the pattern.
    static QVector<CGraphicsCabinetItem *>
    snake(const CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets, int pattern);
};
