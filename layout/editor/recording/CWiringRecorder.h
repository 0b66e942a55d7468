// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsPortItem;
class CUndoRecorder;

/// Records how a port's chain gets another order.
class CWiringRecorder final
{
public:
    /// Makes @p order the port's chain: removes cabinets from the end down to where the two differ, then
    /// appends the new ones. Every step works at the end of the chain, so undoing the steps restores the
    /// chain exactly.
    static void rechain(CUndoRecorder &recorder, CGraphicsPortItem &port,
                        const QVector<CGraphicsCabinetItem *> &order);
    /// Removes @p cabinets from the chain; the others close the gaps.
    static void takeOut(CUndoRecorder &recorder, CGraphicsPortItem &port,
                        const QVector<CGraphicsCabinetItem *> &cabinets);
};
