// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CSelectionPicks.h"

#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "platform/graphics/CGraphicsScene.h"

#include <QSignalBlocker>

#include <algorithm>

void CSelectionPicks::all()
{
    const CEditBatch batch(m_batches);
    {
        m_scene.updateViews();                 // repaints once; otherwise each item would request it
        const QSignalBlocker silent(&m_scene); // Qt would announce every single item
        for (const CGraphicsPortItem *item : m_content.portItems()) {
            for (CGraphicsItemBase *top : item->topItems())
                top->setSelected(true);
        }
    }
    m_batches.noteSelection();
}

void CSelectionPicks::port(int port, bool selected)
{
    const CEditBatch batch(m_batches);
    if (const CGraphicsPortItem *item = m_content.portItem(port)) {
        for (CGraphicsItemBase *top : item->topItems())
            top->setSelected(selected);
    }
}

bool CSelectionPicks::isWhole(int port) const
{
    const CGraphicsPortItem *item = m_content.portItem(port);
    const auto items = item ? item->topItems() : decltype(item->topItems())();
    return !items.isEmpty() && std::all_of(items.begin(), items.end(),
                                           [](const CGraphicsItemBase *top) { return top->isSelected(); });
}

void CSelectionPicks::only(const QVector<QUuid> &uuids)
{
    if (uuids == m_selection.uuids()) // as after most undo steps
        return;
    QSet<CGraphicsItemBase *> wanted;
    for (const QUuid &uuid : uuids) {
        if (CGraphicsItemBase *item = m_content.editedItem(uuid))
            wanted.insert(item);
    }
    const CEditBatch batch(m_batches);
    const QSet<CGraphicsItemBase *> before = m_selection.items();
    for (CGraphicsItemBase *item : before) {
        if (!wanted.contains(item))
            item->setSelected(false);
    }
    for (CGraphicsItemBase *item : qAsConst(wanted)) {
        if (!item->groupItem() || !item->groupItem()->isSelectedWithGroups())
            item->setSelected(true); // selecting a group deselects its members
    }
}

void CSelectionPicks::sameType(const QUuid &uuid)
{
    CGraphicsItemBase *item = m_content.editedItem(uuid);
    const QVector<CGraphicsCabinetItem *> concerned =
        item ? item->concernedCabinets() : QVector<CGraphicsCabinetItem *>();
    if (concerned.isEmpty())
        return;
    const auto model = concerned.first()->cabinet();
    QVector<QUuid> same;
    for (const CGraphicsCabinetItem *cabinet : item->portItem()->cabinets(nullptr)) {
        const auto &record = cabinet->cabinet();
        if (record.type == model.type && (!model.type.isNull() || record.rect.size() == model.rect.size()))
            same << record.uuid;
    }
    only(same);
}
