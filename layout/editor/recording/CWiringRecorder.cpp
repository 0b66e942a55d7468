// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/recording/CWiringRecorder.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/undo/CBreakWiringCommand.h"
#include "layout/editor/undo/CCreateWiringCommand.h"

#include <QSet>

#include <algorithm>

void CWiringRecorder::rechain(CUndoRecorder &recorder, CGraphicsPortItem &port,
                              const QVector<CGraphicsCabinetItem *> &order)
{
    const QVector<CGraphicsCabinetItem *> before = port.chain().order();
    const auto differ = std::mismatch(before.begin(), before.end(), order.begin(), order.end());
    const int common = int(differ.first - before.begin());
    for (int i = before.size() - 1; i >= common; --i)
        recorder.record<CBreakWiringCommand>(*before.at(i), i);
    for (int i = common; i < order.size(); ++i)
        recorder.record<CCreateWiringCommand>(*order.at(i));
}

void CWiringRecorder::takeOut(CUndoRecorder &recorder, CGraphicsPortItem &port,
                              const QVector<CGraphicsCabinetItem *> &cabinets)
{
    const QSet<CGraphicsCabinetItem *> leaving(cabinets.begin(), cabinets.end());
    QVector<CGraphicsCabinetItem *> order = port.chain().order();
    order.erase(std::remove_if(order.begin(), order.end(),
                               [&leaving](CGraphicsCabinetItem *c) { return leaving.contains(c); }),
                order.end());
    rechain(recorder, port, order);
}
