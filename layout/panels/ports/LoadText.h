// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class CLayoutData;

/// Loads in words.
namespace LoadText {

/// Tells what a processor's load @p percent is: the mean of its ports.
QString ofProcessor(int percent, int ports);

/// Tells the load of @p port of the current processor and the sum behind it, of which the host is asked.
/// O(n) in the port's cabinets. GUI thread.
QString ofPort(const CLayoutData &store, int port);

} // namespace LoadText
