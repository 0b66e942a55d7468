// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/SBackupEntry.h"

#include <functional>

/// The arithmetic of a table of pairs.
namespace BackupMatch {

/// How well the second can replace the first; 0: not at all.
using Fitness = std::function<int(const QUuid &primary, const QUuid &redundancy)>;

/// Returns @p rows completed with the @p free keys: complete rows stay, half-filled rows get the best fitting
/// key, and further fitting pairs go into empty rows, from the first. Among equally good keys the first one
/// wins. A key that is already in a row is not used again; no row is added.
QList<SBackupPair> completed(const QList<SBackupPair> &rows, const QList<QUuid> &free,
                             const Fitness &fitness);

/// Puts the complete rows into @p pairs, in order. Returns false if a row is half filled.
bool take(const QList<SBackupPair> &rows, QList<SBackupPair> &pairs);

} // namespace BackupMatch
