// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/content/ILayoutEntry.h"

class CUndoRecorder;

/// Adds new items by undo commands that belong to the running operation.
class CRecordedEntry final : public ILayoutEntry
{
public:
    explicit CRecordedEntry(CUndoRecorder &recorder)
        : m_recorder(recorder)
    {
    }

    void enterCabinet(CGraphicsCabinetItem &cabinet) override;
    QGraphicsItem &membersParent(CGraphicsGroupItem &group, CGraphicsPortItem &port) override;
    void enterGroup(CGraphicsGroupItem &group, const QVector<CGraphicsItemBase *> &members) override;
    void wire(CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets) override;

private:
    CUndoRecorder &m_recorder;
};
