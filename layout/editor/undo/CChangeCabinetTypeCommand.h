// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Gives a cabinet another record; start value and end value are the records before and after. Ends its
/// highlight where the user wants that of edits.
class CChangeCabinetTypeCommand : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CChangeCabinetTypeCommand)

public:
    explicit CChangeCabinetTypeCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

protected:
    virtual bool endsHighlight() const { return true; }

private:
    void apply(const QVariant &value);
};
