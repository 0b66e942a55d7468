// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CItemLookup.h"

#include "layout/editor/items/ItemKinds.h"

#include <QGraphicsScene>

#include <algorithm>

namespace {

bool isOnKind(const QGraphicsScene &scene, const QPointF &scenePos, int kind)
{
    const QList<QGraphicsItem *> under = scene.items(scenePos, Qt::IntersectsItemBoundingRect);
    return std::any_of(under.begin(), under.end(),
                       [kind](const QGraphicsItem *item) { return item->type() == kind; });
}

} // namespace

bool CItemLookup::isOnCabinet(const QGraphicsScene &scene, const QPointF &scenePos)
{
    return isOnKind(scene, scenePos, CabinetItemKind);
}

bool CItemLookup::isOnItem(const QGraphicsScene &scene, const QPointF &scenePos)
{
    return isOnKind(scene, scenePos, CabinetItemKind) || isOnKind(scene, scenePos, GroupItemKind);
}
