// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SPortLoad.h"

#include <QStringList>

/// The sum behind the load of an output port in words, for tool tips, messages and reports.
namespace LoadSum {

/// Two sentences without full stop: the figures that the load follows from, and which limit determines it.
QStringList sentences(const SPortLoad &load);

} // namespace LoadSum
