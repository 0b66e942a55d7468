// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/gestures/CAppendMode.h"
#include "layout/editor/gestures/CExchangeMode.h"
#include "layout/editor/gestures/CHighlightMode.h"
#include "layout/editor/gestures/CPenMode.h"
#include "layout/editor/gestures/CSelectMode.h"

#include <QPoint>

class CCabinetGraphicsScene;
class CGraphicsItemBase;
class CSceneGestures;
class CScenePlacing;
class QGraphicsSceneContextMenuEvent;
class QGraphicsSceneMouseEvent;
class QPointF;
class QWidget;

/// Decides who takes the mouse: cabinets that wait to be placed, the rubber band, a menu, or the items of the
/// scene. Each event is taken, or handed on to the items by the caller. GUI thread.
class CSceneInput final
{
public:
    CSceneInput(CCabinetGraphicsScene &scene, CSceneGestures &gestures, CScenePlacing &placing);

    /// Of the tool that is in use.
    IMouseMode &mode();

    // Each gives whether the event is taken.
    bool press(QGraphicsSceneMouseEvent &event);
    bool move(const QGraphicsSceneMouseEvent &event) { return mode().move(event); }
    bool release(const QGraphicsSceneMouseEvent &event) { return mode().release(event); }
    /// Only a double click with the left button on a cabinet, without a tool, is one; others are presses.
    bool doubleClick(QGraphicsSceneMouseEvent &event);
    /// Opens the menu of the canvas; a cabinet or a group opens its own. While cabinets wait to be placed
    /// they do so no longer.
    bool openMenu(QGraphicsSceneContextMenuEvent &event);
    /// Opens the menu of a cabinet or a group, unless a tool is in use.
    void openCabinetMenu(const CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos);

private:
    CCabinetGraphicsScene &m_scene;
    CSceneGestures &m_gestures;
    CSelectMode m_select;
    CPenMode m_pen;
    CExchangeMode m_exchange;
    CExchangeMode m_directExchange;
    CHighlightMode m_highlight;
    CAppendMode m_append;
    bool m_interrupted = false; // by the last press
};
