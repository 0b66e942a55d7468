// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PasteCache.h"
#include "layout/api/records/SSettings.h"

#include <QCoreApplication>
#include <QPointF>

class CGraphicsPortItem;
class CSceneContent;
class CSceneOperations;
class CSceneSelection;
class CUndoRecorder;
class CGraphicsScene;
class IEditing;
class IPortStates;
class QGraphicsSceneMouseEvent;
class QPainter;
class QWidget;

/// Adds new cabinets to the scene: pasted ones, and appended ones, which are shown as ghosts under the cursor
/// until a press places them. The pending append is stored in the scene's properties "pendingAppendCabinet"
/// (a map with the type under "rcvTypeInfo"), "pendingAppendCabinetPort" and "pendingAppendCabinetSize". GUI
/// thread.
class CScenePlacing final
{
    Q_DECLARE_TR_FUNCTIONS(CScenePlacing)

public:
    using Port = CabinetLayout::CabinetPort;
    using TypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    CScenePlacing(CGraphicsScene &scene, IEditing &editing, const IPortStates &states, CSceneContent &content,
                  const CSceneSelection &selection, CUndoRecorder &recorder);

    const PasteCache &cache() const { return m_cache; }
    void setCache(const PasteCache &cache) { m_cache = cache; }
    /// Copies the selection into the cache, and to the clipboard for other programs.
    void copy();
    /// Copies, then removes the selection. Does nothing if a port that holds some of it refuses edits.
    void cut(CSceneOperations &operations);
    /// Pastes into the current port, with the upper left corner at @p position; if that is null, under the
    /// cursor, or as pasteAtLast() does while the mouse is elsewhere. A refusal is shown in a message box
    /// over @p parent.
    void paste(const QPointF &position, QWidget *parent);
    /// Pastes beside the last cabinet of the current port, and brings that into view.
    void pasteAtLast(QWidget *parent);

    /// Whether cabinets wait to be placed.
    bool isAppending() const;
    /// The reason why nothing can be appended to @p port; empty if something can.
    QString appendRefusal(int port) const;
    /// Makes the next press place cabinets of @p size in @p port; @p type may be empty. If the port accepts
    /// no more cabinets, the status bar says why; a size that is not allowed changes nothing.
    void beginAppend(const TypeInfo &type, int port, const QSize &size);
    /// Changes the port of the pending append to @p port. If that port accepts no more cabinets, the append
    /// ends, and the status bar says why.
    void moveAppendTo(int port);
    void endAppend();   ///< no cabinets wait any more
    void cancelPress(); ///< undoes a press; the cabinets wait for the next one

    // Mouse events while cabinets wait. A drag places as many as fit into the area between press and release.
    void press(const QGraphicsSceneMouseEvent &event);
    void move(const QGraphicsSceneMouseEvent &event);
    /// Returns whether the cabinets were placed or refused, so that none wait any more.
    bool release(const QGraphicsSceneMouseEvent &event);

    // By keys, while cabinets wait.
    /// Moves the ghosts by one place in @p direction (-1, 0 or 1 on each axis), in a grid that continues from
    /// the port's last cabinet. With @p grows, the first one stays, and a row or column is added or taken
    /// away.
    void step(const QPoint &direction, bool grows);
    /// Places the cabinets where the ghosts are, and ends the append. A refusal is shown over @p parent.
    void placeHere(QWidget *parent);
    QRect block() const; ///< around all ghosts

    /// Draws the ghosts, the edges that they snap to, and their number.
    void paint(QPainter &painter) const;

private:
    bool pasteAt(const QPointF &corner, QWidget *parent);
    int pendingPort() const;
    QRect ghostAt(const QPointF &scenePos) const;
    QVector<QRect> neighboursOf(const QRect &rect, int reach) const;
    QRect lastCabinet(int port) const; ///< of the port's chain or else of the port; empty if there is none
    QRect placeAtLast(int port, const QSize &size) const; ///< beside it
    QVector<QRect> cellsTo(const QPoint &corner) const;
    void showCells(const QVector<QRect> &cells);
    Port recordOf(const QVector<QRect> &cells, const CGraphicsPortItem &port) const;
    void place(CGraphicsPortItem &port, const Port &record, const QString &text);

    CGraphicsScene &m_scene;
    IEditing &m_editing;
    const IPortStates &m_states;
    CSceneContent &m_content;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
    PasteCache m_cache;
    QVector<QRect> m_cells; // the ghosts
    QPointF m_cursor;
    bool m_pressed = false; // the first of them is fixed
    bool m_byKeys = false;  // moved by keys since the mouse was
};
