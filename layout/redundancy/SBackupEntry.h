// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QUuid>

/// A processor or an output port that can be primary or redundancy of a pair.
struct SBackupEntry
{
    QUuid key;
    QString text;    ///< shown to the user
    QString icon;    ///< resource path
    QString refusal; ///< why it cannot be in a pair, for the user; empty: it can
};

/// (primary, redundancy); a null key is an empty cell.
using SBackupPair = QPair<QUuid, QUuid>;
