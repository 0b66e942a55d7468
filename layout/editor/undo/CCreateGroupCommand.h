// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/undo/CUndoCommandBase.h"

#include <QCoreApplication>

/// Forms a group of the members that its item has when the command is made.
class CCreateGroupCommand final : public CUndoCommandBase
{
    Q_DECLARE_TR_FUNCTIONS(CCreateGroupCommand)

public:
    explicit CCreateGroupCommand(QGraphicsItem *item, QUndoCommand *parent = nullptr);

    void undo() override;
    void redo() override;

private:
    QVector<QUuid> m_members;
};
