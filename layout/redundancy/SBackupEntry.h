// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QUuid>

/// What can be made primary or redundancy of a pair: a processor or an output port.
struct SBackupEntry
{
    QUuid key;
    QString text;    ///< how the user knows it
    QString icon;    ///< resource
    QString refusal; ///< why it can be in no pair, for the user; empty: it can
};

/// (primary, redundancy); a null key is an empty cell.
using SBackupPair = QPair<QUuid, QUuid>;
