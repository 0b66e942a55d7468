// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Takes a cabinet out of its port's chain; the start value is its chain position before.
class CBreakWiringCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CBreakWiringCommand)

public:
    explicit CBreakWiringCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;
};
