// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SPortLoad.h"

#include <QStringList>
#include <QVector>

/// The sum behind the load of an output port in words, for tool tips, messages and reports; and the load of a
/// processor.
namespace LoadSum {

/// Two sentences without full stop: the figures that the load follows from, and which limit determines it.
QStringList sentences(const SPortLoad &load);

/// The load of a processor whose output ports have these loads, in percent: their mean, rounded up unless its
/// fractional part is at most 0.001; 0 without ports.
int mean(const QVector<int> &loads);

} // namespace LoadSum
