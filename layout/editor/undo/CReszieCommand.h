// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Gives an item another size: the start value and the end value are QSizeF.
class CReszieCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CReszieCommand)

public:
    explicit CReszieCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

private:
    void resize(const QVariant &value);
};
