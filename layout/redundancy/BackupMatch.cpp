// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/BackupMatch.h"

#include <algorithm>

namespace {

/// The free key that fits @p known best, as its redundancy or as its primary; null: none.
QUuid bestFor(const QUuid &known, bool asRedundancy, const QList<QUuid> &free,
              const BackupMatch::Fitness &fitness)
{
    QUuid best;
    int bestFitness = 0;
    for (const QUuid &key : free) {
        const int fits = asRedundancy ? fitness(known, key) : fitness(key, known);
        if (fits > bestFitness) {
            best = key;
            bestFitness = fits;
        }
    }
    return best;
}

} // namespace

QList<SBackupPair> BackupMatch::completed(const QList<SBackupPair> &rows, const QList<QUuid> &free,
                                          const Fitness &fitness)
{
    QList<SBackupPair> completed = rows;
    QList<QUuid> left = free;
    for (const SBackupPair &row : rows) {
        left.removeAll(row.first);
        left.removeAll(row.second);
    }
    for (SBackupPair &row : completed) {
        if (row.first.isNull() == row.second.isNull())
            continue;
        QUuid &empty = row.first.isNull() ? row.first : row.second;
        const bool asRedundancy = row.second.isNull();
        empty = bestFor(asRedundancy ? row.first : row.second, asRedundancy, left, fitness);
        left.removeAll(empty);
    }
    for (SBackupPair &row : completed) {
        if (!row.first.isNull() || !row.second.isNull())
            continue;
        while (!left.isEmpty() && row.first.isNull()) {
            const QUuid primary = left.takeFirst();
            const QUuid redundancy = bestFor(primary, true, left, fitness);
            if (redundancy.isNull())
                continue;
            left.removeAll(redundancy);
            row = SBackupPair(primary, redundancy);
        }
    }
    return completed;
}

bool BackupMatch::take(const QList<SBackupPair> &rows, QList<SBackupPair> &pairs)
{
    pairs.clear();
    for (const SBackupPair &row : rows) {
        if (row.first.isNull() != row.second.isNull()) {
            pairs.clear();
            return false;
        }
        if (!row.first.isNull())
            pairs << row;
    }
    return true;
}
