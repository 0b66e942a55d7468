// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "tests/editor/random/CPlainStroke.h"

#include <QMap>
#include <QSet>
#include <QStringList>

/// A layout as plain maps and lists: no items, no undo, nothing shared with the editor.
class CReferenceLayout
{
public:
    CReferenceLayout() = default;
    explicit CReferenceLayout(const CabinetLayout &layout);

    /// Whether @p actual has the same content; identities of new items may differ. The order of records is
    /// ignored.
    bool matches(const CReferenceLayout &actual) const;

    bool isEmpty() const { return m_cabinets.isEmpty(); }
    bool isCabinet(const QUuid &item) const { return m_cabinets.contains(item); }
    bool isGroup(const QUuid &item) const { return m_groups.contains(item); }
    int portOf(const QUuid &item) const;
    QUuid groupOf(const QUuid &cabinet) const { return m_cabinets.value(cabinet).group; }
    QRect rectOf(const QUuid &item) const; ///< of a group: the union of its cabinets
    QVector<QUuid> chain(int port) const { return m_chains.value(port); }
    QVector<QUuid> cabinetsIn(int port) const;
    QSet<QUuid> cabinetsBelow(const QSet<QUuid> &items) const;
    CPlainStroke::Cells cellsOf(const QVector<QUuid> &cabinets) const;
    QSet<QUuid> topItems() const; ///< those in no group
    /// The cabinets in its port with the same type as @p cabinet, or, if it has none, those without type and
    /// of the same size.
    QSet<QUuid> sameType(const QUuid &cabinet) const;

protected:
    struct SCabinet
    {
        int port = 0;
        QRect rect;
        QUuid group;
        SMD5 type;
        CabinetLayout::CabinetPort::Cabinet areas; // its receivers, and the original ones
        bool fixed = false;
        bool operator==(const SCabinet &o) const
        {
            return port == o.port && rect == o.rect && group == o.group && type == o.type &&
                   areas == o.areas && fixed == o.fixed;
        }
    };
    struct SGroup
    {
        int port = 0;
        QUuid parent;
        bool operator==(const SGroup &o) const { return port == o.port && parent == o.parent; }
    };

    QMap<QUuid, SCabinet> m_cabinets;
    QMap<QUuid, SGroup> m_groups;
    QMap<int, QVector<QUuid>> m_chains;
    QSet<QUuid> m_invented; // stand for identities chosen by the editor

private:
    void read(int port, const CabinetLayout::CabinetPort::CabinetGroup &group, const QUuid &parent);
    QStringList described(const CReferenceLayout &model, const QUuid &parent = {}) const;
};
