// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsView>

class CAerialView;
class CZoomStrip;

/// The widget library's graphics view: zooms at the cursor with the wheel, pans with the middle button, and
/// carries a tool bar above the scene, an aerial view, and a strip with the scale and the buttons that change
/// it. A scale of 1 shows one scene unit as one pixel of the screen.
class CGraphicsView : public QGraphicsView
{
    Q_OBJECT

public:
    static constexpr qreal SmallestScale = 0.005;
    static constexpr qreal LargestScale = 32;

    explicit CGraphicsView(QWidget *parent = nullptr);

    qreal scaleFactor() const { return transform().m11(); }
    /// Zooms about the middle of the view; @p factor is kept within the limits.
    void setScaleFactor(qreal factor);
    /// Shows @p content whole; it is then kept whole when the view changes its size, until the user zooms or
    /// pans.
    void fit(const QRectF &content);
    bool isFitted() const { return m_fitted; }
    /// Brings @p place of the scene into the middle.
    void showPlace(const QPointF &place);

    /// Puts @p toolBar, which the view then owns, above the scene.
    void setToolBar(QWidget *toolBar);
    /// Shows or hides the whole scene in small.
    void SetAerialViewVisible(bool visible);
    CAerialView &aerialView() { return *m_aerialView; }

public Q_SLOTS:
    void fitContent();     ///< the scene's content rectangle
    void showActualSize(); ///< scale 1
    void zoomIn();
    void zoomOut();

Q_SIGNALS:
    void scaleChanged(qreal factor);

protected:
    bool viewportEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void createActions();
    void placeChildren();
    void zoomBy(qreal factor, const QPoint &fixedPoint);
    void scrollBy(const QPoint &step);
    void applyFit();

    CZoomStrip *m_strip;
    CAerialView *m_aerialView;
    QWidget *m_toolBar = nullptr;
    QRectF m_fitRect;
    bool m_fitted = false;
    bool m_panning = false;
    QCursor m_cursorBefore; // the pan
    QPoint m_panPosition;   // of the cursor at the last step of the pan
};
