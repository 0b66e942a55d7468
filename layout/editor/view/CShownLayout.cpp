// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/view/CShownLayout.h"

#include "layout/editor/content/CEditBatches.h"
#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/placing/CScenePlacing.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"

CShownLayout::CShownLayout(CCabinetGraphicsScene &scene, Tell tell)
    : m_scene(scene)
    , m_tell(std::move(tell))
    , m_histories(scene.backend().content())
{
}

CEditHistory &CShownLayout::enter(const CabinetLayout &layout, const SKeptHistory &kept)
{
    leave(); // so that its edits are not recorded in the other's history
    m_processor = layout.processor;
    CEditHistories::EState state = CEditHistories::Fits;
    const int steps = m_scene.backend().recorder().stepCount();
    CEditHistory &history = m_histories.enter(layout, kept.history, kept.edits, steps, state);
    m_history = &history;
    history.setLimit(kept.limit);
    m_scene.setUndoStack(&history.stack());
    if (state != CEditHistories::Fits)
        m_tell(history.clearedRecord());
    if (state == CEditHistories::Unfit)
        m_scene.backend().batches().tell(
            tr("The history of earlier does not fit this layout and was dropped."));
    return history;
}

void CShownLayout::show(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout, bool anew,
                        const SUnsavedEdits &edits)
{
    const bool inPlace = !anew && m_scene.backend().content().canRebuild(layout);
    if (!anew && !inPlace && m_history) {
        m_history->clear(); // its steps belong to ports that no longer exist
        m_history->setUnsavedEdits(edits);
        m_history->enter(layout.layout, m_scene.backend().recorder().stepCount());
        m_tell(m_history->clearedRecord());
    }
    m_scene.setLayoutData(processor, layout, m_scene.backend().placing().cache(), {}, inPlace);
    if (m_history)
        m_history->setUnsavedEdits(edits);
}

void CShownLayout::note(const SComparedEdit &edit)
{
    if (!m_history)
        return;
    const QVector<SEditRecord> records = m_history->note(edit, m_scene.backend().recorder().stepCount());
    for (const SEditRecord &record : records)
        m_tell(record);
}

void CShownLayout::leave()
{
    CabinetLayout left;
    m_scene.getLayoutData(left, m_processor);
    m_histories.leave(left);
    m_processor = QUuid();
    m_history = nullptr;
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
