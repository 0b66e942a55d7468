// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Removes a cabinet; undo re-creates it at its recorded scene position.
class CRemoveCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CRemoveCommand)

public:
    explicit CRemoveCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;
};
