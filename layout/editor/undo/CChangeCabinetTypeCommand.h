// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Gives a cabinet another record; start value and end value are the records before and after.
class CChangeCabinetTypeCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CChangeCabinetTypeCommand)

public:
    explicit CChangeCabinetTypeCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

private:
    void apply(const QVariant &value);
};
