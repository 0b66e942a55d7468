// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/recording/ItemFactories.h"
#include "layout/editor/undo/CAppendCommand.h"
#include "layout/editor/undo/CBreakGroupCommand.h"
#include "layout/editor/undo/CBreakWiringCommand.h"
#include "layout/editor/undo/CChangeCabinetTypeCommand.h"
#include "layout/editor/undo/CCreateGroupCommand.h"
#include "layout/editor/undo/CCreateWiringCommand.h"
#include "layout/editor/undo/CMoveCommand.h"
#include "layout/editor/undo/CRemoveCommand.h"
#include "layout/editor/undo/CReszieCommand.h"
#include "tests/editor/SPortsScene.h"

/// A small world and commands on its items, as the editor itself makes them.
namespace CommandWorld {

using Scene = CCabinetGraphicsScene;
using Cabinet = CGraphicsCabinetItem;
using Group = CGraphicsGroupItem;
using Record = CabinetLayout::CabinetPort::Cabinet;

/// Port 0: four wired cabinets; port 1: unwired, a loose cabinet and a group around another group; port 2:
/// one wired cabinet.
struct World final : SPortsScene
{
    World()
        : SPortsScene({SmallWorlds::wiredPort(0, 4), unwiredNest(), SmallWorlds::wiredPort(2, 1)})
    {
    }

    static Cabinet &cabinet(const Scene &scene, int port, int place)
    {
        return *scene.backend().content().portItem(port)->cabinets(nullptr).at(place);
    }
    static Group &group(const Scene &scene, const char *name)
    {
        for (Group *group : scene.backend().content().portItem(1)->groups(false)) {
            if (group->name() == QLatin1String(name))
                return *group;
        }
        qFatal("no group %s", name);
    }

private:
    static CabinetLayout::CabinetPort unwiredNest()
    {
        CabinetLayout::CabinetPort port = SmallWorlds::nestedPort(1);
        auto &outer = port.groups[1];
        outer.groups[0].name = QStringLiteral("inner");
        outer.cabinets[0].rank = -1;
        for (Record &record : outer.groups[0].cabinets)
            record.rank = -1;
        return port;
    }
};

template <typename Command>
CUndoCommandBase *make(QGraphicsItem &item, const QVariant &start = {}, const QVariant &end = {})
{
    auto *command = new Command(&item);
    command->setStartValue(start);
    command->setEndValue(end);
    return command;
}

template <typename Command, typename Item>
CUndoCommandBase *makeWith(Item &item, const CUndoCommandBase::Factory &factory)
{
    auto *command = new Command(&item);
    command->setFactory(factory);
    return command;
}

inline CUndoCommandBase *move(CGraphicsItemBase &item, const QPointF &to)
{
    return make<CMoveCommand>(item, item.scenePos(), to);
}

inline CUndoCommandBase *breakWiring(Cabinet &cabinet)
{
    return make<CBreakWiringCommand>(cabinet, cabinet.chainPosition());
}

inline CUndoCommandBase *remove(Cabinet &cabinet)
{
    return makeWith<CRemoveCommand>(cabinet, ItemFactories::anew(cabinet));
}

inline CUndoCommandBase *append(Scene &scene, int port, QGraphicsItem *parent)
{
    auto *item = new Cabinet(SmallWorlds::cabinet(port, 90, -1), parent);
    item->setOrdinal(1'000'000);
    scene.backend().content().enterEdited(*item);
    return makeWith<CAppendCommand>(*item, ItemFactories::existingFirst(*item));
}

inline CUndoCommandBase *changeType(Cabinet &cabinet)
{
    Record record = cabinet.cabinet();
    record.type = SMD5::ofContent("another type");
    record.rect = QRect(record.rect.topLeft() + QPoint(5, -7), QSize(60, 90));
    record.rects = {QRect(0, 0, 30, 90), QRect(30, 0, 30, 90)};
    return make<CChangeCabinetTypeCommand>(cabinet, QVariant::fromValue(cabinet.cabinet()),
                                           QVariant::fromValue(record));
}

inline CUndoCommandBase *createGroup(Scene &scene)
{
    auto *group = new Group(QUuid(), QRectF(), scene.backend().content().portItem(1));
    group->setOrdinal(1'000'000);
    group->gather({&World::cabinet(scene, 1, 0), &World::group(scene, "outer")});
    scene.backend().content().enterEdited(*group);
    return makeWith<CCreateGroupCommand>(*group, ItemFactories::existingFirst(*group));
}

inline CUndoCommandBase *breakGroup(Group &group)
{
    return makeWith<CBreakGroupCommand>(group, ItemFactories::anew(group));
}

/// Deletes an item without a command.
inline void vanish(Scene &scene, CGraphicsItemBase &item)
{
    for (Cabinet *concerned : item.concernedCabinets())
        scene.backend().content().leaveEdited(*concerned);
    scene.backend().content().leaveEdited(item);
    scene.removeItem(&item);
    delete &item;
}

} // namespace CommandWorld
