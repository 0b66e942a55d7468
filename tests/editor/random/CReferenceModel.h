// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SSettings.h"
#include "tests/editor/random/CReferenceLayout.h"

/// The effect of edits, in the simplest possible way.
class CReferenceModel final : public CReferenceLayout
{
public:
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;
    using CReferenceLayout::CReferenceLayout;

    void translate(const QSet<QUuid> &items, const QPoint &step);
    void nudge(const QSet<QUuid> &items, const QPoint &step);
    /// Moves the lower right corner of a cabinet or a group by @p step; no cabinet's side grows beyond @p
    /// largest or below a pixel.
    void resize(const QUuid &item, const QPoint &step, int largest);
    /// Returns false, without a change, if two items share a corner: their order is not defined.
    [[nodiscard]] bool arrange(const QSet<QUuid> &items, const QSize &rank);
    void moveTo(const QSet<QUuid> &items, const QPoint &corner);
    void resizeTo(const QSet<QUuid> &items, const QSize &size);
    void setType(const QSet<QUuid> &cabinets, const TypeInfo &type);
    /// Returns whether there is an order that may be reversed.
    bool exchangeReceivers(const QUuid &cabinet);

    void wireByPattern(const QSet<QUuid> &cabinets, int pattern);
    void unwire(const QSet<QUuid> &cabinets);
    /// A stroke from @p first along the lines of @p way.
    void drawStroke(int port, const QUuid &first, const QVector<QPointF> &way);

    void group(const QSet<QUuid> &items, const QUuid &newGroup);
    void ungroup(const QUuid &group);
    void remove(const QSet<QUuid> &cabinets);
    void prepareBackup(int port);

    /// The content of a copy of @p items.
    CReferenceModel part(const QSet<QUuid> &items) const;
    void paste(const CReferenceModel &copy, int port, const QPoint &corner);
    /// @p cells in the order in which a drag reaches them.
    void append(int port, const QVector<QRect> &cells, const TypeInfo &type);

private:
    void dropEmptyGroups(const QSet<QUuid> &candidates);
    static void giveSize(SCabinet &cabinet, const QSize &size);
    QUuid invent();
};
