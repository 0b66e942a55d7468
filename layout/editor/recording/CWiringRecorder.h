// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsPortItem;
class CUndoRecorder;

/// Records the way from a port's chain to another order of it.
class CWiringRecorder final
{
public:
    /// Makes @p order the port's chain: what differs from the end is taken out cabinet by cabinet, then put
    /// in. Either way every step works at the end of the chain, and undoing them in turn gives back the chain
    /// exactly.
    static void rechain(CUndoRecorder &recorder, CGraphicsPortItem &port,
                        const QVector<CGraphicsCabinetItem *> &order);
    /// Takes @p cabinets out; the others close up.
    static void takeOut(CUndoRecorder &recorder, CGraphicsPortItem &port,
                        const QVector<CGraphicsCabinetItem *> &cabinets);
};
