// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QUuid>
#include <QVector>

class CGraphicsPortItem;

/// Keeps the ordinals of processors that are out of view, as commands that are kept with them bring items
/// back under these. GUI thread.
class CRecordOrder final
{
public:
    /// The items of @p ports are about to go.
    void remember(const QUuid &processor, const QVector<CGraphicsPortItem *> &ports);
    /// Gives items that have just been built the ordinals that they had; a port whose records stand in
    /// another order now keeps its new ones.
    void restore(const QUuid &processor, const QVector<CGraphicsPortItem *> &ports);

private:
    QHash<QUuid, QHash<QUuid, qint64>> m_ordinals; // by processor and item
};
