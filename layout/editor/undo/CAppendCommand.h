// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Adds a cabinet, at its recorded position.
class CAppendCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CAppendCommand)

public:
    explicit CAppendCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;
};
