// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

class CLayoutData;

/// Loads in words.
namespace LoadText {

/// The output port of the current processor with the highest load, not a redundancy port; -1 if none has any.
int worstPort(const CLayoutData &store);

/// Tells what the current processor's load @p percent is, the mean of its ports, and as ofPort() that of the
/// port with the highest load. GUI thread.
QString ofProcessor(const CLayoutData &store, int percent);

/// Tells the load of @p port of the current processor and the sum behind it, of which the host is asked.
/// O(n) in the port's cabinets. GUI thread.
QString ofPort(const CLayoutData &store, int port);

} // namespace LoadText
