// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Resizes an item; start value and end value are its sizes (QSizeF).
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
