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
#include "layout/editor/scene/SEditTargets.h"
#include "layout/editor/scene/ToolMode.h"

#include <QSet>

#include <functional>

class CGraphicsScene;
class IEditorCommands;
struct SInputTargets;

/// Decides who handles the mouse: cabinets that wait to be placed, the rubber band, a menu, or the items of
/// the scene. GUI thread.
class CSceneInput final : public ISceneInput
{
public:
    /// Handles the mouse of @p scene, which must outlive it. @p leave ends the mode that is in use.
    CSceneInput(CGraphicsScene &scene, const SInputTargets &targets, std::function<void()> leave);
    ~CSceneInput() override;

    /// Sets what the menus offer beyond edits; null: nothing. The caller keeps ownership.
    void setCommands(IEditorCommands *commands) { m_commands = commands; }

    // ISceneInput
    bool press(QGraphicsSceneMouseEvent &event) override;
    bool move(const QGraphicsSceneMouseEvent &event) override { return mouseMode().move(event); }
    bool release(const QGraphicsSceneMouseEvent &event) override { return mouseMode().release(event); }
    /// Only a left double click on a cabinet without a tool counts as one; all others are handled as presses.
    bool doubleClick(QGraphicsSceneMouseEvent &event) override;
    /// Opens the menu of the canvas; cabinets and groups open their own. Ends a pending append.
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
    CGraphicsScene &m_scene;
    const SEditTargets m_edit;
    const QSet<ToolMode> &m_toolModes;
    const std::function<void()> m_leave;
    IEditorCommands *m_commands = nullptr;
    CSceneGestures m_gestures;
    CSelectMode m_select;
    CPenMode m_pen;
    CExchangeMode m_exchange;
    CExchangeMode m_directExchange;
    CHighlightMode m_highlight;
    CAppendMode m_append;
    bool m_interrupted = false; // the last press cancelled something
};
