// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/gestures/CAppendMode.h"
#include "layout/editor/gestures/CExchangeMode.h"
#include "layout/editor/gestures/CHighlightMode.h"
#include "layout/editor/gestures/CPenMode.h"
#include "layout/editor/gestures/CSceneGestures.h"
#include "layout/editor/gestures/CSelectMode.h"
#include "layout/editor/scene/ISceneInput.h"

class CCabinetGraphicsScene;
class CSceneBackend;
class IEditorCommands;

/// Decides who takes the mouse: cabinets that wait to be placed, the rubber band, a menu, or the items of the
/// scene. GUI thread.
class CSceneInput final : public ISceneInput
{
public:
    /// Installs itself in @p scene, for as long as it lives; it must go before the scene.
    explicit CSceneInput(CCabinetGraphicsScene &scene);
    ~CSceneInput() override;

    /// What the menus offer beyond edits; null: nothing. @p commands stays owned by the caller.
    void setCommands(IEditorCommands *commands) { m_commands = commands; }

    // ISceneInput
    bool press(QGraphicsSceneMouseEvent &event) override;
    bool move(const QGraphicsSceneMouseEvent &event) override { return mouseMode().move(event); }
    bool release(const QGraphicsSceneMouseEvent &event) override { return mouseMode().release(event); }
    /// Only a double click with the left button on a cabinet, without a tool, is one; others are presses.
    bool doubleClick(QGraphicsSceneMouseEvent &event) override;
    /// Opens the menu of the canvas; a cabinet or a group opens its own. Ends an append that waits.
    bool openMenu(QGraphicsSceneContextMenuEvent &event) override;
    void cancel() override;
    bool isDragging() const override { return m_gestures.isDragging(); }
    void paint(QPainter &painter) const override;

    // IItemMouse
    IMouseMode &mouseMode() override;
    bool isSingleSelection() const override;
    bool offersHandles() const override;
    int handleAt(const QPointF &scenePos) const override;
    bool hasRubberBand() const override { return m_gestures.hasBand(); }
    void beginMove(const QPointF &scenePos, CGraphicsItemBase *joining = nullptr) override;
    void beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos) override;
    void continueDrag(const QPointF &scenePos, Qt::KeyboardModifiers keys = {}) override
    {
        m_gestures.continueDrag(scenePos, keys);
    }
    bool endDrag(const QPointF &scenePos) override { return m_gestures.endDrag(scenePos); }
    void openCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos) override;

private:
    CCabinetGraphicsScene &m_scene;
    CSceneBackend &m_backend;
    IEditorCommands *m_commands = nullptr;
    CSceneGestures m_gestures;
    CSelectMode m_select;
    CPenMode m_pen;
    CExchangeMode m_exchange;
    CExchangeMode m_directExchange;
    CHighlightMode m_highlight;
    CAppendMode m_append;
    bool m_interrupted = false; // by the last press
};
