// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Removes a cabinet from its port's chain; the start value is its previous chain position.
class CBreakWiringCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CBreakWiringCommand)

public:
    explicit CBreakWiringCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;
};
