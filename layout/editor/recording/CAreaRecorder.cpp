// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/recording/CAreaRecorder.h"

#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/undo/CChangeReceiversCommand.h"
#include "layout/geometry/CReceiverAreas.h"

void CAreaRecorder::scale(CUndoRecorder &recorder, CGraphicsItemBase &item, const QSizeF &from,
                          const QSizeF &to)
{
    auto scaled = item.cabinet();
    CReceiverAreas::resize(scaled, from.toSize(), to.toSize());
    if (scaled == item.cabinet())
        return;
    recorder.record<CChangeReceiversCommand>(item, QVariant::fromValue(item.cabinet()),
                                             QVariant::fromValue(scaled));
}
