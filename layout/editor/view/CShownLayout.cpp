// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CShownLayout.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

QUndoStack &CShownLayout::enter(const QUuid &processor, const CabinetLayout &layout)
{
    leave(); // so that its edits are not recorded on the other's stack
    m_processor = processor;
    QUndoStack &stack = m_histories.enter(processor, layout);
    m_scene.setUndoStack(&stack);
    return stack;
}

void CShownLayout::show(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout, bool anew)
{
    const bool inPlace = !anew && m_scene.backend().content().canRebuild(layout);
    if (!anew && !inPlace && m_scene.backend().recorder().stack())
        m_scene.backend().recorder().stack()->clear(); // its steps belong to ports that no longer exist
    m_scene.setLayoutData(processor, layout, m_scene.backend().placing().cache(), {}, inPlace);
}

void CShownLayout::leave()
{
    CabinetLayout left;
    m_scene.getLayoutData(left, m_processor);
    m_histories.leave(m_processor, left);
    m_processor = QUuid();
    m_scene.clearLayout();
}

QVector<QUuid> CShownLayout::itemsOf(const QVector<int> &ports) const
{
    QVector<QUuid> items;
    for (const int port : ports) {
        const CGraphicsPortItem *item = m_scene.backend().content().portItem(port);
        const QVector<CGraphicsItemBase *> tops = item ? item->topItems() : QVector<CGraphicsItemBase *>();
        for (const CGraphicsItemBase *top : tops)
            items << top->uuid();
    }
    return items;
}

QList<CShownLayout::Cabinet> CShownLayout::cabinets(int port) const
{
    QList<Cabinet> cabinets;
    if (const CGraphicsPortItem *item = m_scene.backend().content().portItem(port)) {
        for (const CGraphicsCabinetItem *cabinet : item->cabinets(nullptr))
            cabinets << cabinet->cabinet();
    }
    return cabinets;
}
