// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/EditSides.h"

#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

#include <QCoreApplication>
#include <QGraphicsItem>

#include <malloc.h>
#include <memory>

namespace {

/// Between two turns the scene paints and brings its index up to date.
void settle(QGraphicsScene &scene)
{
    scene.items(QPointF());
    QCoreApplication::processEvents();
}

QVector<QGraphicsItem *> bareChildren(const CBareScene &scene)
{
    QVector<QGraphicsItem *> children;
    const QList<QGraphicsItem *> items = scene.items();
    for (QGraphicsItem *item : items) {
        if (item->parentItem())
            children << item;
    }
    return children;
}

SWork onBareChildren(CBareSide &side, void (*change)(QGraphicsItem &))
{
    SWork work;
    work.run = [children = bareChildren(side.scene()), change] {
        for (QGraphicsItem *item : children)
            change(*item);
    };
    work.finish = [&side] {
        side.scene().clearSelection();
        settle(side.scene());
    };
    return work;
}

} // namespace

void EditSides::selectPort(CCabinetGraphicsScene &scene, int port)
{
    const CEditBatch batch(scene.backend().batches());
    for (CGraphicsItemBase *item : scene.backend().content().portItem(port)->topItems())
        item->setSelected(true);
}

void EditSides::selectAll(CCabinetGraphicsScene &scene)
{
    scene.selectAllItem();
}

SWork EditSides::work(CEditorSide &side, const Edit &select, const Edit &edit, EStep step)
{
    CCabinetGraphicsScene &scene = side.scene();
    SWork work;
    work.prepare = [&scene, select, edit, step] {
        {
            const CEditBatch batch(scene.backend().batches());
            scene.clearSelection();
            select(scene);
        }
        if (step != Do)
            edit(scene);
        if (step == Redo)
            scene.undo(nullptr);
        settle(scene);
    };
    work.run = [&scene, edit, step] {
        if (step == Do)
            edit(scene);
        else if (step == Undo)
            scene.undo(nullptr);
        else
            scene.redo(nullptr);
    };
    work.finish = [&scene, step] {
        if (step != Undo)
            scene.undo(nullptr);
        scene.backend().recorder().stack()->clear();
        settle(scene);
    };
    return work;
}

SWork EditSides::load(const LayoutData &data)
{
    const auto side = std::make_shared<std::unique_ptr<CEditorSide>>();
    SWork work;
    work.prepare = [side] {
        *side = std::make_unique<CEditorSide>();
        malloc_trim(0); // a program that loads its first layout has no memory left from another
    };
    work.run = [side, &data] { (*side)->load(data); };
    work.finish = [side] { side->reset(); };
    return work;
}

SWork EditSides::moveBare(CBareSide &side)
{
    return onBareChildren(side, [](QGraphicsItem &item) { item.moveBy(1, 0); });
}

SWork EditSides::selectBare(CBareSide &side)
{
    return onBareChildren(side, [](QGraphicsItem &item) {
        if (item.flags() & QGraphicsItem::ItemIsSelectable)
            item.setSelected(true);
    });
}

SWork EditSides::buildBare(CBareSide &side, const CabinetLayout &layout)
{
    SWork work;
    work.prepare = [&side] {
        side.scene().clear();
        settle(side.scene());
    };
    work.run = [&side, &layout] { side.scene().build(layout); };
    work.finish = [&side] { settle(side.scene()); };
    return work;
}
