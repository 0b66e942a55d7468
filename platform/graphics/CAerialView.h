// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFrame>
#include <QMouseEvent>
#include <QPixmap>
#include <QTimer>

class CGraphicsView;

/// The whole content of a graphics view in small, with a frame around the part that the view shows. A click
/// or a drag takes the view there. GUI thread.
class CAerialView final : public QFrame
{
    Q_OBJECT

public:
    /// @p view is its parent and must show a CGraphicsScene.
    explicit CAerialView(CGraphicsView &view);

    /// Tells that the content has changed: it is drawn again in a moment, once for many changes.
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
