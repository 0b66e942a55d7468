// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Dissolves a group; undo re-creates it with the members that it had when the command was made.
class CBreakGroupCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CBreakGroupCommand)

public:
    explicit CBreakGroupCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

private:
    QVector<QUuid> m_members;
};
