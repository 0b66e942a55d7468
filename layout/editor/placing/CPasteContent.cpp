// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/placing/CPasteContent.h"

#include "layout/editor/content/CLayoutReader.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"

#include <algorithm>
#include <functional>
#include <tuple>

namespace {

using Port = CabinetLayout::CabinetPort;

void forEachCopied(QVector<Port::CabinetGroup> &groups, const std::function<void(Port::Cabinet &)> &act)
{
    for (Port::CabinetGroup &group : groups) {
        for (Port::Cabinet &cabinet : group.cabinets)
            act(cabinet);
        forEachCopied(group.groups, act);
    }
}

void forgetIdentities(QVector<Port::CabinetGroup> &groups)
{
    for (Port::CabinetGroup &group : groups) {
        forgetIdentities(group.groups);
        if (!group.isLoose())
            group.uuid = QUuid::createUuid(); // a null one would make it the loose group
    }
}

} // namespace

PasteCache CPasteContent::copyOf(const CSceneSelection &selection)
{
    PasteCache cache;
    Port::CabinetGroup loose;
    for (CGraphicsItemBase *item : selection.sorted()) {
        const CGraphicsGroupItem *around = item->groupItem();
        if (around && around->isSelectedWithGroups())
            continue; // copied with its group
        if (item->type() == GroupItemKind)
            cache.groups << CLayoutReader::read(static_cast<const CGraphicsGroupItem &>(*item));
        else
            loose.cabinets << item->cabinet();
    }
    if (!loose.cabinets.isEmpty())
        cache.groups.prepend(loose);
    return cache;
}

int CPasteContent::cabinetCount(const PasteCache &cache)
{
    int count = 0;
    for (const Port::CabinetGroup &group : cache.groups)
        count += group.cabinetCount();
    return count;
}

QRect CPasteContent::extent(const PasteCache &cache)
{
    QRect extent;
    for (const Port::CabinetGroup &group : cache.groups) {
        for (const Port::Cabinet &cabinet : group.allCabinets())
            extent |= cabinet.rect;
    }
    return extent;
}

CabinetLayout::CabinetPort CPasteContent::placed(const PasteCache &cache, const QPoint &corner)
{
    Port port;
    port.groups = cache.groups;
    forgetIdentities(port.groups);
    const QPoint shift = corner - extent(cache).topLeft();
    QVector<Port::Cabinet *> wired;
    forEachCopied(port.groups, [&](Port::Cabinet &cabinet) {
        cabinet.uuid = cabinet.group = QUuid();
        cabinet.rect.translate(shift);
        cabinet.calibrationIndex = -1;
        cabinet.receivers.clear();
        if (cabinet.rank >= 0)
            wired << &cabinet;
    });
    std::sort(wired.begin(), wired.end(), [](const Port::Cabinet *a, const Port::Cabinet *b) {
        return std::tie(a->port, a->rank) < std::tie(b->port, b->rank);
    });
    for (int i = 0; i < wired.size(); ++i)
        wired.at(i)->rank = i;
    return port;
}
