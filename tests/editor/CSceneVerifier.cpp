// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/CSceneVerifier.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/geometry/CCabinetRect.h"
#include "tests/editor/SceneParts.h"

#include <QSet>

namespace {

QString faultOfChain(const CGraphicsPortItem &port)
{
    const QVector<CGraphicsCabinetItem *> chain = port.chain().order();
    int wired = 0;
    int heads = 0;
    for (const CGraphicsCabinetItem *cabinet : port.cabinets(nullptr)) {
        wired += cabinet->isInChain();
        heads += cabinet->chainRole() == CGraphicsCabinetItem::Head;
        if (cabinet->cabinet().rank != cabinet->chainPosition())
            return QStringLiteral("a record's rank is not the chain position");
        if (!cabinet->isInChain() && (cabinet->incoming() || cabinet->outgoing()))
            return QStringLiteral("an unwired cabinet has a line");
    }
    if (wired != chain.size() || heads != (wired > 0))
        return QStringLiteral("chain of %1 cabinets has %2 wired and %3 heads")
            .arg(chain.size())
            .arg(wired)
            .arg(heads);
    for (int i = 0; i < chain.size(); ++i) {
        const CGraphicsCabinetItem *cabinet = chain.at(i);
        const CGraphicsConnectionItem *line = cabinet->outgoing();
        if (cabinet->chainPosition() != i)
            return QStringLiteral("position %1 is held by the cabinet of position %2")
                .arg(i)
                .arg(cabinet->chainPosition());
        if ((i + 1 < chain.size()) != bool(line))
            return QStringLiteral("a line is missing or too many at position %1").arg(i);
        if (line && (line->to() != chain.at(i + 1) || chain.at(i + 1)->incoming() != line ||
                     line->parentItem() != &port))
            return QStringLiteral("the line at position %1 does not lead to the next cabinet").arg(i);
        if (line && line->line() != QLineF(cabinet->exitPoint(), line->to()->entryPoint()))
            return QStringLiteral("the line at position %1 is not drawn from exit to entry").arg(i);
    }
    return {};
}

QString faultOfGroup(const CGraphicsGroupItem &group)
{
    QRectF united;
    const QList<QGraphicsItem *> children = group.childItems();
    for (const QGraphicsItem *child : children)
        united |= child->mapRectToScene(static_cast<const CGraphicsItemBase *>(child)->rect());
    if (united != group.mapRectToScene(group.rect()))
        return QStringLiteral("a group's bounds are not the union of its members");
    return {};
}

QString faultOfItem(const CCabinetGraphicsScene &scene, const CGraphicsItemBase &item)
{
    if (scene.itemOf(item.uuid()) != &item)
        return QStringLiteral("the index does not find an item");
    if (!item.portItem() || item.portItem()->port() != item.port())
        return QStringLiteral("an item is not in its port");
    if (item.type() == GroupItemKind)
        return faultOfGroup(static_cast<const CGraphicsGroupItem &>(item));
    const auto &record = item.cabinet();
    if (record.uuid != item.uuid() || record.port != item.port())
        return QStringLiteral("a record names another cabinet or port");
    if (record.rect != CCabinetRect::toRecord(item.mapRectToScene(item.rect())))
        return QStringLiteral("a record's rectangle is not the item's");
    if (record.group != (item.groupItem() ? item.groupItem()->uuid() : QUuid()))
        return QStringLiteral("a record names another group");
    return {};
}

QString faultOfOverview(const CGraphicsPortItem &port)
{
    CPortOverview now;
    now.read(port);
    return now.isSameAs(port.overview())
               ? QString()
               : QStringLiteral("the overview of port %1 shows what was there before").arg(port.port());
}

QString faultOfWall(const CGraphicsPortItem &port)
{
    QRectF wall;
    for (const CGraphicsCabinetItem *cabinet : port.cabinets(nullptr))
        wall |= cabinet->mapRectToScene(cabinet->rect());
    return wall == port.wall() ? QString() : QStringLiteral("port %1 tells another extent").arg(port.port());
}

QString faultOfLine(const CGraphicsConnectionItem &line)
{
    return line.from() && line.from()->outgoing() == &line && line.to()->incoming() == &line
               ? QString()
               : QStringLiteral("a line is not known to its cabinets");
}

QString faultOfItems(const CCabinetGraphicsScene &scene)
{
    int known = 0;
    const QList<QGraphicsItem *> items = scene.items();
    for (const QGraphicsItem *item : items) {
        QString fault;
        if (item->type() == ConnectionItemKind) {
            fault = faultOfLine(static_cast<const CGraphicsConnectionItem &>(*item));
        } else if (item->type() == CabinetItemKind || item->type() == GroupItemKind) {
            ++known;
            fault = faultOfItem(scene, static_cast<const CGraphicsItemBase &>(*item));
        }
        if (!fault.isEmpty())
            return fault;
    }
    if (known != scene.knownItemCount())
        return QStringLiteral("the index holds %1 items of %2").arg(scene.knownItemCount()).arg(known);
    return {};
}

QString faultOfSelection(const CCabinetGraphicsScene &scene)
{
    const QList<QGraphicsItem *> selected = scene.selectedItems();
    const QSet<CGraphicsItemBase *> kept = scene.selection().items();
    if (kept.size() != selected.size() || kept.size() != scene.selection().count())
        return QStringLiteral("the selection is not Qt's");
    for (QGraphicsItem *item : selected) {
        auto *base = static_cast<CGraphicsItemBase *>(item);
        if (!kept.contains(base))
            return QStringLiteral("a selected item is not in the selection");
        const CGraphicsGroupItem *group = base->groupItem();
        if (group && group->isSelectedWithGroups())
            return QStringLiteral("a member is selected beside its group");
    }
    const SSelectionFigures told = scene.selection().figures();
    const SSelectionFigures counted = SSelectionFigures::of(scene.selection().records());
    QRectF extent;
    for (const CGraphicsItemBase *item : kept)
        extent |= item->placement();
    if (told.count != counted.count || told.pixels != counted.pixels || told.width != counted.width ||
        told.height != counted.height || told.arranged.size() != kept.size() ||
        scene.selection().extent() != CCabinetRect::toRecord(extent))
        return QStringLiteral("the selection's figures are not those of its records");
    return {};
}

} // namespace

QString CSceneVerifier::faultIn(const CCabinetGraphicsScene &scene)
{
    for (const CGraphicsPortItem *port : scene.backend().content().portItems()) {
        const QString fault = faultOfChain(*port);
        if (!fault.isEmpty())
            return fault;
        if (port->boundingRect() != port->childrenBoundingRect())
            return QStringLiteral("port %1 has other bounds than its children").arg(port->port());
        for (const QString &another : {faultOfOverview(*port), faultOfWall(*port)}) {
            if (!another.isEmpty())
                return another;
        }
    }
    const QString fault = faultOfSelection(scene);
    return fault.isEmpty() ? faultOfItems(scene) : fault;
}
