// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

#include <QList>
#include <QString>

class IPortStates;

/// What units offer depends on the output ports that hold the selection.
namespace SelectedPorts {

/// The reason why nothing of @p processor, the one in view, can be edited; empty if something can. @p block:
/// see EditRefusal::of().
QString refusal(const ProcessorTree::ProcessorNode &processor, const QString &block);
/// The same of what is selected in @p ports.
QString refusal(const ProcessorTree::ProcessorNode &processor, const QString &block,
                const IPortStates &states, const QList<int> &ports);

} // namespace SelectedPorts
