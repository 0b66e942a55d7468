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

/// Shows processors on their shared canvas and lets the user move those that are online: by the mouse, where
/// their edges catch at each other's within ten pixels of the screen unless Alt is held, and by the arrow
/// keys. A move is announced once it has ended. GUI thread.
class CSummaryGraphicsView final : public CGraphicsView
{
    Q_OBJECT

public:
    explicit CSummaryGraphicsView(QWidget *parent = nullptr);
    ~CSummaryGraphicsView() override;

    /// Shows @p processors in place of those before; what is selected stays so. Others are fitted, and the
    /// first of them selected. A move that is under way is given up, unless nothing has changed.
    void setProcessors(const QVector<SSummaryProcessor> &processors);
    const QVector<SSummaryProcessor> &processors() const { return m_processors; }
    /// Where the processors lay before a move that is under way.
    ProcessorOffsets offsets() const;
    /// Brings processors to @p offsets, without announcing a move.
    void setOffsets(const ProcessorOffsets &offsets);
    QVector<SSummaryProcessor> selection() const;
    /// Whether any of what is selected can be moved.
    bool canMove() const { return !movedItems().isEmpty(); }
    /// Lets the user look only.
    void setEditingBlocked(bool blocked);
    /// Ends a move by the keys as if they were released, and gives one by the mouse up.
    void endGesture();

Q_SIGNALS:
    /// Of what is selected; of several, the outline around all.
    void itemGeometryChanged(const QRectF &geometry);
    void itemOffsetChanged(const QPoint &offset);
    /// The processor that is selected; of several, the first; null: none.
    void selectionChanged(const QUuid &processor);
    /// The user has moved processors.
    void notifyMoved(const ProcessorOffsets &before, const ProcessorOffsets &after);

public Q_SLOTS:
    /// Moves what is selected to @p offset, as far as it can be moved.
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
    void announcePlace();
    void describeSelection();

    CGraphicsScene *m_scene;
    QVector<SSummaryProcessor> m_processors;
    Items m_items; // in the same order
    std::unique_ptr<CProcessorMove> m_move;
    CGraphicsProcessorItem *m_pressed = nullptr; // by the left button
    QPoint m_pressPosition;                      // of the view
    QPointF m_pressPlace;                        // the same in the scene
    bool m_selecting = false;
    bool m_blocked = false;
};
