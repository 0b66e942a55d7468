// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Appends a cabinet to its port's chain.
class CCreateWiringCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CCreateWiringCommand)

public:
    explicit CCreateWiringCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;
};
