// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SEditStep.h"

#include <QHash>

#include <memory>
#include <optional>

/// How the cabinets and groups of one output port differ before and after a step. Leads from either side to
/// the other. Begins with shared records of both sides; once compacted, it holds only what differs. What
/// comes from an earlier run stays as it was kept.
class CPortDelta final
{
public:
    using Port = CabinetLayout::CabinetPort;
    using Cabinet = Port::Cabinet;
    using Groups = QVector<Port::CabinetGroup>;
    using ESide = IPortChange::ESide;
    static constexpr ESide Before = IPortChange::Before;
    static constexpr ESide After = IPortChange::After;

    explicit CPortDelta(const SEditStep::SPort &port);
    explicit CPortDelta(std::shared_ptr<const IPortChange> kept);

    int port() const { return m_port; }
    /// The groups of the port on @p side; @p other are those on the other side. Empty optional: @p other is
    /// not what the step knows.
    std::optional<Groups> groups(ESide side, const Groups &other) const;
    /// The cabinets that differ after a change of a port: those that have another place or content, or else
    /// those that have only another rank.
    static QVector<QUuid> changed(const SEditStep::SPort &port);

    bool isCompact() const { return !m_whole; }
    /// Forgets what is the same on both sides. O(cabinets of the port).
    void compact();
    /// The memory that it needs, approximately; records count in full, although they may be shared.
    qint64 bytes() const;

private:
    /// Where a cabinet stands on both sides, if nothing else of it differs.
    struct SPlace
    {
        int index; // among the port's cabinets, depth first
        int rank[2];
        QRect rect[2];
    };
    struct SContent
    {
        int index;
        Cabinet record[2];
    };
    /// A cabinet of a side: that of the other side with this index, in another place, or a record of its own.
    struct SReference
    {
        int other; // below 0: -1 - index among the records of its own
        int rank;
        QRect rect;
    };
    struct SShape
    {
        QUuid uuid;
        QString name;
        QVector<SReference> cabinets;
        QVector<SShape> groups;
    };
    struct SWhole
    {
        Groups groups[2];
    };
    struct SShapes
    {
        QVector<SShape> shape[2];
        QVector<Cabinet> own[2];
    };
    using Cabinets = QVector<const Cabinet *>;
    using Places = QHash<QUuid, int>;

    static QVector<SShape> shapeOf(const Groups &groups, const Cabinets &other, const Places &places,
                                   QVector<Cabinet> &own);
    static Groups built(const QVector<SShape> &shapes, const QVector<Cabinet> &own, const Cabinets &other);
    void compactInPlace(const Cabinets &before, const Cabinets &after);
    void compactShapes(const Cabinets &before, const Cabinets &after);

    int m_port;
    std::shared_ptr<const IPortChange> m_kept; // else null
    std::optional<SWhole> m_whole;
    std::optional<SShapes> m_shapes; // null if both sides have the same cabinets in the same groups and order
    QVector<SPlace> m_places;
    QVector<SContent> m_contents;
    int m_size[2] = {0, 0}; // cabinets on each side
    quint64 m_digest[2] = {0, 0};
};
