// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsPortItem;

/// Computes the order that a snake pattern gives a port's chain. Changes nothing itself.
class CTopologyWiring final
{
public:
    /// Returns the chain of @p port after wiring @p selected, cabinets of that port, by @p pattern. If some
    /// of them were wired, all of them go between what preceded the first and what followed the last of
    /// those; otherwise they continue the chain at its end. Cabinets that no line of the pattern touches are
    /// left unwired; every unselected cabinet keeps its wiring.
    static QVector<CGraphicsCabinetItem *> chainByPattern(const CGraphicsPortItem &port,
                                                          const QVector<CGraphicsCabinetItem *> &selected,
                                                          int pattern);

    /// The cabinets in the order of the pattern.
    static QVector<CGraphicsCabinetItem *>
    snake(const CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets, int pattern);
};
