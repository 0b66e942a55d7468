// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// Why the layout of a processor cannot be edited, for the user. Host and module give the same reasons.
namespace EditRefusal {

/// The processor follows a primary, which unlocking does not change.
QString redundancy();
/// Empty if it can be edited. @p locked: the user has locked the editor; @p isRedundancy: see redundancy().
QString of(bool locked, bool isRedundancy);

} // namespace EditRefusal
