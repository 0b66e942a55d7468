// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFrame>
#include <QMouseEvent>
#include <QPixmap>
#include <QTimer>

class CGraphicsView;

/// A small overview of the whole content of a graphics view, with a frame around the visible part. A click or
/// a drag moves the view there. GUI thread.
class CAerialView final : public QFrame
{
    Q_OBJECT

public:
    /// @p view becomes the parent; it must show a CGraphicsScene.
    explicit CAerialView(CGraphicsView &view);

    /// Call when the content has changed; it is drawn again after a short delay, once for many changes.
    void scheduleRefresh();

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override { event->accept(); }

private:
    void refresh();
    QRectF content() const;
    QTransform toPicture() const; ///< from the scene to the widget
    void goTo(const QPoint &position);

    CGraphicsView &m_view;
    QTimer m_refresh;
    QPixmap m_picture;
};
