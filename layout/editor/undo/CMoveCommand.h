// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Moves an item; start value and end value are its scene positions (QPointF).
class CMoveCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CMoveCommand)

public:
    explicit CMoveCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;
    /// Merges a move that begins exactly where this one ended, so that one drag is one step.
    bool mergeWith(const QUndoCommand *other) override;

private:
    void place(const QPointF &scenePlace);
};
