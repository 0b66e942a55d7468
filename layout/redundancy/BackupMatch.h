// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/SBackupEntry.h"

#include <functional>

/// The arithmetic of a table of pairs.
namespace BackupMatch {

/// How well the second can stand in for the first: 0 not at all, more is better.
using Fitness = std::function<int(const QUuid &primary, const QUuid &redundancy)>;

/// @p rows completed by pairs of the @p free keys: whole rows stay, half-filled ones get what fits best, and
/// what then fits goes into the empty rows from the first. Among equals the order of the keys decides; a key
/// that is in a row already is not used again, and no row is added.
QList<SBackupPair> completed(const QList<SBackupPair> &rows, const QList<QUuid> &free,
                             const Fitness &fitness);

/// The whole rows in order; nothing when a row is half filled.
bool take(const QList<SBackupPair> &rows, QList<SBackupPair> &pairs);

} // namespace BackupMatch
