// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// Why a layout cannot be edited, for the user. Host and module give the same reasons.
namespace EditRefusal {

/// The processor follows a primary, which unlocking does not change.
QString redundancy();
/// Empty if a processor's layout can be edited. @p locked: the user has locked the editor; @p isRedundancy:
/// see redundancy().
QString of(bool locked, bool isRedundancy);
/// Empty if the cabinets of an output port can be edited; @p port is its index.
QString ofPort(int port, bool locked, bool isRedundancy);
QString nothingSelected();
QString offline();
/// Empty if a port that holds @p held cabinets can take @p more.
QString fullPort(int held, int more = 1);

} // namespace EditRefusal
