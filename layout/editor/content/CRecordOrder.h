// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QUuid>
#include <QVector>

class CGraphicsPortItem;

/// Keeps the ordinals of the items of processors that are out of view, because the undo commands of these
/// processors re-create items with them. GUI thread.
class CRecordOrder final
{
public:
    using Ordinals = QHash<QUuid, qint64>; // by item

    /// The ordinals of all items of @p ports.
    static Ordinals of(const QVector<CGraphicsPortItem *> &ports);
    /// Gives the items of @p ports these ordinals; a port keeps its own if its records are in another order.
    static void apply(const Ordinals &ordinals, const QVector<CGraphicsPortItem *> &ports);

    /// Call before the items of @p ports are deleted.
    void remember(const QUuid &processor, const QVector<CGraphicsPortItem *> &ports);
    /// Gives newly built items the ordinals that they had before; a port whose records are now in another
    /// order keeps its new ones.
    void restore(const QUuid &processor, const QVector<CGraphicsPortItem *> &ports);

private:
    QHash<QUuid, Ordinals> m_ordinals; // by processor
};
