// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/recording/CAreaRecorder.h"

#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/undo/CChangeCabinetTypeCommand.h"
#include "layout/geometry/CResizeHandles.h"

void CAreaRecorder::scale(CUndoRecorder &recorder, CGraphicsItemBase &item, const QSizeF &from,
                          const QSizeF &to)
{
    auto scaled = item.cabinet();
    if (from == to || (scaled.rects.isEmpty() && scaled.blanks.isEmpty()))
        return;
    for (QVector<QRect> *areas : {&scaled.rects, &scaled.blanks}) {
        for (QRect &area : *areas)
            area = CResizeHandles::mapped(area, QRectF(QPointF(), from), QRectF(QPointF(), to)).toRect();
    }
    recorder.record<CChangeCabinetTypeCommand>(item, QVariant::fromValue(item.cabinet()),
                                               QVariant::fromValue(scaled));
}
