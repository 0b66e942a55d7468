// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QPointF>
#include <QRect>
#include <QUuid>
#include <QVector>

#include <memory>
#include <optional>

class CGraphicsCabinetItem;
class CGraphicsItemBase;
class CGraphicsScene;
class CItemDrag;
class CPenStroke;
class CRubberBand;
class CSceneContent;
class CSceneSelection;
class CUndoRecorder;
class IEditing;
class QPainter;

/// The mouse gesture in progress: a drag of items, a pen stroke or a rubber band. One at a time; any other
/// edit of the scene cancels it first. GUI thread.
class CSceneGestures final
{
public:
    CSceneGestures(CGraphicsScene &scene, IEditing &editing, CSceneContent &content,
                   const CSceneSelection &selection, CUndoRecorder &recorder);
    ~CSceneGestures();

    /// Cancels the gesture and restores everything to how it was before.
    void cancel();
    /// Called when a first button is pressed: a drag cancelled earlier no longer affects the release.
    void beginPress() { m_dragCancelled = false; }
    /// Whether items are being dragged, or a press on one may still become a drag.
    bool isDragging() const { return m_drag || m_press; }
    bool hasBand() const { return m_band != nullptr; }

    // A press becomes a drag once the mouse has moved farther than a click may.
    void beginMove(const QPointF &scenePos, const CGraphicsItemBase *joining);
    void beginScale(CGraphicsItemBase &item, int handle, const QPointF &scenePos);
    void continueDrag(const QPointF &scenePos, Qt::KeyboardModifiers keys);
    /// Returns true if the press was a drag, even a cancelled one, and false if it was a click.
    bool endDrag(const QPointF &scenePos);

    // A press wires the cabinet under it; others follow once the mouse has moved farther than a click may.
    void beginStroke(CGraphicsCabinetItem &cabinet, const QPointF &scenePos);
    void continueStroke(const QPointF &scenePos);
    void endStroke(const QPointF &scenePos);

    void beginBand(const QPointF &scenePos, bool keepSelection);
    void continueBand(const QPointF &scenePos);
    void endBand();

    /// Draws the band, the stroke, and what the drag snaps to.
    void paint(QPainter &painter) const;
    /// Draws the handles of the selected item when it can be resized.
    void paintHandles(QPainter &painter) const;

private:
    struct SPress
    {
        QPointF place;
        QUuid item; // to be resized, or to join the move; null: only the selection moves
        int handle;
    };

    /// Whether the mouse has moved farther than a click may.
    bool isBeyondClick(const QPointF &from, const QPointF &to) const;
    void beginDrag(const SPress &press);
    QVector<QRectF> dragAreas() const;                   ///< what note and guides of the drag cover
    QVector<QRectF> bandAreas(const QRectF &band) const; ///< its lines, and the handles
    QVector<QRectF> handleAreas() const;                 ///< of the selected item
    void invalidate(const QVector<QRectF> &areas);

    CGraphicsScene &m_scene;
    IEditing &m_editing;
    CSceneContent &m_content;
    const CSceneSelection &m_selection;
    CUndoRecorder &m_recorder;
    std::optional<SPress> m_press;
    Qt::KeyboardModifiers m_keys; // of the drag's last step
    QPointF m_cursor;             // there
    std::unique_ptr<CItemDrag> m_drag;
    std::unique_ptr<CPenStroke> m_stroke;
    std::optional<QPointF> m_strokePress; // while the stroke may still be a click
    std::unique_ptr<CRubberBand> m_band;
    bool m_dragCancelled = false;
};
