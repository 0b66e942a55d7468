// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/summary/SSummaryProcessor.h"
#include "platform/graphics/CGraphicsView.h"

#include <QVector>

#include <memory>

class CGraphicsProcessorItem;
class CGraphicsScene;
class CProcessorMove;

/// Shows processors on their shared canvas and lets the user move those that are online, with the mouse or
/// the arrow keys. With the mouse, edges snap to each other within ten screen pixels unless Alt is held. A
/// move is announced once it has ended. GUI thread.
class CSummaryGraphicsView final : public CGraphicsView
{
    Q_OBJECT

public:
    explicit CSummaryGraphicsView(QWidget *parent = nullptr);
    ~CSummaryGraphicsView() override;

    /// Shows @p processors. If they are the same as before, the selection stays; otherwise they are fitted to
    /// the view, and the first one is selected. A move in progress is cancelled, unless nothing has changed.
    void setProcessors(const QVector<SSummaryProcessor> &processors);
    const QVector<SSummaryProcessor> &processors() const { return m_processors; }
    /// The offsets of the processors, without a move in progress.
    ProcessorOffsets offsets() const;
    /// Sets the processors' offsets, without announcing a move.
    void setOffsets(const ProcessorOffsets &offsets);
    QVector<SSummaryProcessor> selection() const;
    /// Whether any selected processor can be moved.
    bool canMove() const { return !movedItems().isEmpty(); }
    /// With @p blocked, the user cannot move processors.
    void setEditingBlocked(bool blocked);
    /// Ends a move by keys as if they were released; cancels a move by the mouse.
    void endGesture();

Q_SIGNALS:
    /// Sent for the selected processor; for several, with their common outline.
    void itemGeometryChanged(const QRectF &geometry);
    void itemOffsetChanged(const QPoint &offset);
    /// Sent with the selected processor; of several, the first; null: none.
    void selectionChanged(const QUuid &processor);
    /// The user has moved processors.
    void notifyMoved(const ProcessorOffsets &before, const ProcessorOffsets &after);

public Q_SLOTS:
    /// Moves the selected processors that can be moved to @p offset.
    void onItemOffsetChanged(const QPoint &offset);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void drawBackground(QPainter *painter, const QRectF &rect) override;
    void drawForeground(QPainter *painter, const QRectF &rect) override;

private:
    using Items = QVector<CGraphicsProcessorItem *>;

    void fill(const QList<QUuid> &selected);
    void addItem(const SSummaryProcessor &processor);
    void updateContent();
    Items selectedItems() const; ///< in the order of the processors
    Items movedItems() const;    ///< those of them that can be moved
    void select(const QList<QUuid> &processors);
    CGraphicsProcessorItem *itemUnder(const QPoint &position) const;
    bool beginMove();
    void dragTo(const QPoint &position, bool catching);
    bool stepBy(const QKeyEvent &event);
    void endMove();
    void cancelMove();
    void announceSelection();
    void announceGeometry();
    void announceOffset();
    void describeSelection();

    CGraphicsScene *m_scene;
    QVector<SSummaryProcessor> m_processors;
    Items m_items; // in the same order
    std::unique_ptr<CProcessorMove> m_move;
    CGraphicsProcessorItem *m_pressed = nullptr; // by the left button
    QPoint m_pressPosition;                      // in view coordinates
    QPointF m_pressPlace;                        // the same in the scene
    bool m_selecting = false;
    bool m_blocked = false;
};
