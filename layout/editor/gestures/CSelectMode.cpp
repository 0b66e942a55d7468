// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CSelectMode.h"

#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/gestures/CItemLookup.h"
#include "layout/editor/gestures/CSceneGestures.h"
#include "layout/editor/items/CGraphicsItemBase.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/items/IItemMouse.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>

#include <utility>

CGraphicsItemBase *CSelectMode::selectedItem() const
{
    return m_selection.count() == 1 ? *m_selection.items().begin() : nullptr;
}

bool CSelectMode::isOnCabinetHandle(const QPointF &scenePos) const
{
    const CGraphicsItemBase *item = selectedItem();
    return item && item->type() == CabinetItemKind &&
           m_mouse.handleAt(scenePos) != CGraphicsItemBase::NoHandle;
}

/// Handles are above all items; only those shown before the press react.
bool CSelectMode::pressHandle(const QGraphicsSceneMouseEvent &event)
{
    const int handle = m_mouse.handleAt(event.scenePos());
    if (handle == CGraphicsItemBase::NoHandle)
        return false;
    const CEditBatch batch(m_editing);
    m_mouse.beginScale(*selectedItem(), handle, event.scenePos());
    selectedItem()->resetHighlights();
    return true;
}

bool CSelectMode::press(QGraphicsSceneMouseEvent &event)
{
    m_onHandle = event.button() == Qt::LeftButton && pressHandle(event);
    if (!m_onHandle) {
        if (event.button() != Qt::LeftButton || CItemLookup::isOnItem(m_scene, event.scenePos()))
            return false;
        m_gestures.beginBand(event.scenePos(), event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier));
    }
    event.accept();
    return true;
}

bool CSelectMode::move(const QGraphicsSceneMouseEvent &event)
{
    m_onHandle = m_onHandle && event.buttons() & Qt::LeftButton;
    if (m_onHandle) {
        m_gestures.continueDrag(event.scenePos(), event.modifiers());
        return true;
    }
    if (!m_gestures.hasBand()) {
        if (CGraphicsItemBase *item = selectedItem())
            item->setHoveredHandle(m_mouse.handleAt(event.scenePos()));
        return false;
    }
    m_gestures.continueBand(event.scenePos());
    return true;
}

bool CSelectMode::release(const QGraphicsSceneMouseEvent &event)
{
    if (std::exchange(m_onHandle, false)) {
        CGraphicsItemBase *item = selectedItem();
        const bool click = !m_gestures.endDrag(event.scenePos());
        if (click && item && event.modifiers() & Qt::ControlModifier)
            item->setSelected(false);
        return true;
    }
    if (!m_gestures.hasBand())
        return false;
    m_gestures.endBand();
    return true;
}
