// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QPointF>
#include <QUuid>

class CGraphicsView;

/// Keeps what was visible of each processor's wall, so that it is visible again when the processor comes
/// back. GUI thread.
class CWallSights final
{
public:
    /// @p view must outlive it.
    explicit CWallSights(CGraphicsView &view)
        : m_view(view)
    {
    }

    /// Notes what is visible now, of @p processor; null: of none.
    void keep(const QUuid &processor);
    /// Shows what was visible of @p processor, or all of its wall if that was fitted or never shown.
    void restore(const QUuid &processor);

private:
    struct SSight
    {
        qreal scale;
        QPointF middle;
    };

    CGraphicsView &m_view;
    QHash<QUuid, SSight> m_sights; // of walls that were not fitted
};
