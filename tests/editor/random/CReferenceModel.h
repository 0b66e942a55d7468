// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/CabinetLayout.h"

#include <QMap>
#include <QPointF>
#include <QSet>

/// What edits mean, written plainly on maps and lists: no items, no undo, nothing shared with the editor.
class CReferenceModel final
{
public:
    CReferenceModel() = default;
    explicit CReferenceModel(const CabinetLayout &layout);

    /// In what they hold; the order of records does not count.
    friend bool operator==(const CReferenceModel &a, const CReferenceModel &b)
    {
        return a.m_cabinets == b.m_cabinets && a.m_groups == b.m_groups && a.m_chains == b.m_chains;
    }

    bool isGroup(const QUuid &item) const { return m_groups.contains(item); }
    int portOf(const QUuid &item) const;
    QUuid groupOf(const QUuid &cabinet) const { return m_cabinets.value(cabinet).group; }
    QRect rectOf(const QUuid &item) const; ///< of a group: the union of its cabinets
    QVector<QUuid> chain(int port) const { return m_chains.value(port); }
    QSet<QUuid> cabinetsBelow(const QSet<QUuid> &items) const;

    void translate(const QSet<QUuid> &items, const QPoint &step);
    void nudge(const QSet<QUuid> &items, const QPoint &step);
    /// Moves the lower right corner of a cabinet or a group by @p step; no cabinet's side grows beyond @p
    /// largest or below a pixel.
    void resize(const QUuid &item, const QPoint &step, int largest);
    void wireByPattern(const QSet<QUuid> &cabinets, int pattern);
    void unwire(const QSet<QUuid> &cabinets);
    /// A stroke from @p first along the straight lines of @p way.
    void drawStroke(int port, const QUuid &first, const QVector<QPointF> &way);
    void group(const QSet<QUuid> &items, const QUuid &newGroup);
    void ungroup(const QUuid &group);
    void remove(const QSet<QUuid> &cabinets);
    void prepareBackup(int port);

private:
    struct SCabinet
    {
        int port = 0;
        QRect rect;
        QUuid group;
        bool operator==(const SCabinet &o) const
        {
            return port == o.port && rect == o.rect && group == o.group;
        }
    };
    struct SGroup
    {
        int port = 0;
        QUuid parent;
        bool operator==(const SGroup &o) const { return port == o.port && parent == o.parent; }
    };

    void read(int port, const CabinetLayout::CabinetPort::CabinetGroup &group, const QUuid &parent);
    QVector<QUuid> crossedBy(int port, const QPointF &from, const QPointF &to) const;
    QVector<QUuid> snake(const QVector<QUuid> &cabinets, int pattern) const;
    void dropEmptyGroups(const QSet<QUuid> &candidates);

    QMap<QUuid, SCabinet> m_cabinets;
    QMap<QUuid, SGroup> m_groups;
    QMap<int, QVector<QUuid>> m_chains;
};
