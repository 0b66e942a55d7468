// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QUuid>
#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;
class IMouseMode;
class QWidget;

/// What the items ask of the scene that they are edited in. GUI thread.
class IEditorScene
{
public:
    /// The tools that change what a press on a cabinet does.
    enum EToolMode { ManualWiring = 0, HeadToTailExchange = 1, DirectExchange = 2, Highlighting = 3 };

    virtual ~IEditorScene() = default;

    /// Between the two, what items note is collected and acted on once, at the end of the outermost pair.
    virtual void beginBatch() = 0;
    virtual void endBatch() = 0;

    /// In ascending index.
    virtual const QVector<CGraphicsPortItem *> &portItems() const = 0;
    /// The port item with that index, or null.
    virtual CGraphicsPortItem *portItem(int port) const = 0;
    /// The cabinet or group with that identity, or null. O(1).
    virtual CGraphicsItemBase *editedItem(const QUuid &uuid) const = 0;
    /// Makes an item that was put into the scene known by its identity, or forgets one that is about to leave
    /// it.
    virtual void enterEdited(CGraphicsItemBase &item) = 0;
    virtual void leaveEdited(CGraphicsItemBase &item) = 0;

    /// What the mouse does now.
    virtual IMouseMode &mouseMode() = 0;
    /// Whether exactly one item is selected.
    virtual bool isSingleSelection() const = 0;
    /// Whether the selected item is offered to be resized: it is the only one, and no tool is in use.
    virtual bool offersHandles() const = 0;
    /// Whether the user is drawing a rubber band.
    virtual bool hasRubberBand() const = 0;

    /// Begins, continues and ends the pending operation "Move" of the selection or "Scale" of one item.
    /// Refused silently where a port is locked.
    virtual void beginMove(const QPointF &scenePos) = 0;
    virtual void beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos) = 0;
    virtual void continueDrag(const QPointF &scenePos) = 0;
    /// Gives whether the press was a drag, cancelled or not, and no click.
    virtual bool endDrag(const QPointF &scenePos) = 0;

    /// Opens the menu of a cabinet or a group, unless a tool is in use.
    virtual void showCabinetMenu(CGraphicsItemBase &item, QWidget *widget, const QPoint &screenPos) = 0;

    /// What an item reports of itself; acted on at the end of the running batch, without one at once.
    virtual void noteCabinetMoved(CGraphicsCabinetItem &cabinet) = 0;
    virtual void noteMembersChanged(CGraphicsGroupItem &group) = 0;
    virtual void notePortChanged(CGraphicsPortItem &port) = 0;
    /// The chain of a port changed: what depends on wiring is told as for a change of the selection.
    virtual void noteWiringChanged(CGraphicsPortItem &port) = 0;
    virtual void noteSelected(CGraphicsItemBase &item, bool selected) = 0;
    virtual void noteHighlighted(CGraphicsCabinetItem &cabinet, bool highlighted) = 0;
};

/// Makes one batch of all that happens while it lives.
class CEditBatch final
{
public:
    explicit CEditBatch(IEditorScene &scene)
        : m_scene(scene)
    {
        m_scene.beginBatch();
    }
    ~CEditBatch() { m_scene.endBatch(); }
    CEditBatch(const CEditBatch &) = delete;
    CEditBatch &operator=(const CEditBatch &) = delete;

private:
    IEditorScene &m_scene;
};
