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

/// Brings new cabinets into the scene: pasted ones, and appended ones that wait for the press that places
/// them, shown as ghosts under the cursor until then. What is waited for stands in the scene's properties
/// "pendingAppendCabinet" (a map with the type under "rcvTypeInfo"), "pendingAppendCabinetPort" and
/// "pendingAppendCabinetSize". GUI thread.
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
    /// Keeps the selection for pasting, and offers it to other programs.
    void copy();
    /// Copies, then removes the selection; nothing when a port that holds some of it refuses edits.
    void cut(CSceneOperations &operations);
    /// Pastes into the current port, the corner of the copy at @p position; refusals are told over @p parent.
    void paste(const QPointF &position, QWidget *parent);

    /// Whether cabinets wait to be placed.
    bool isAppending() const;
    /// From now on the next press places cabinets of @p size in @p port; @p type may be empty. Does nothing
    /// for a port that takes no more, or a size that no cabinet may have.
    void beginAppend(const TypeInfo &type, int port, const QSize &size);
    /// What waits is for @p port now; nothing waits any more when that takes no more.
    void moveAppendTo(int port);
    void endAppend();   ///< nothing waits any more
    void cancelPress(); ///< the cabinets wait for another press

    // The mouse while cabinets wait. A drag places as many as fit on its way.
    void press(const QGraphicsSceneMouseEvent &event);
    void move(const QGraphicsSceneMouseEvent &event);
    /// Gives whether the cabinets were placed or refused, so that nothing waits any more.
    bool release(const QGraphicsSceneMouseEvent &event);
    /// Draws the ghosts.
    void paint(QPainter &painter) const;

    /// Why @p more cabinets cannot come into a port that holds @p count; empty when they can.
    static QString refusal(int count, int more);

private:
    int pendingPort() const;
    QRect ghostAt(const QPointF &scenePos) const;
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
    bool m_pressed = false; // the first of them stays where it is
};
