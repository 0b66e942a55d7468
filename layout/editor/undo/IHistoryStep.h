// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QUuid>
#include <QVector>

/// A step on the undo stack that is not made of the editor's own commands. GUI thread.
class IHistoryStep
{
public:
    virtual ~IHistoryStep() = default;

    /// The output ports that the step changes.
    virtual QVector<int> ports() const = 0;
    /// What is to be selected after the step was undone or redone just now.
    virtual QVector<QUuid> selection() const = 0;
};
