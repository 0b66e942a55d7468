// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QGraphicsView>

class CAerialView;
class CZoomStrip;

/// The widget library's graphics view: zooms at the cursor with the wheel, pans with the middle button, and
/// has a tool bar above the scene, an aerial view, and a strip with the scale and zoom buttons. A scale of 1
/// shows one scene unit as one screen pixel.
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
    /// Fits @p content into the view; it stays fitted when the view is resized, until the user zooms or pans.
    void fit(const QRectF &content);
    bool isFitted() const { return m_fitted; }
    /// Centres the view on the scene position @p place.
    void showPlace(const QPointF &place);
    QPointF middle() const; ///< of what is visible, scene position

    /// Puts @p toolBar above the scene; the view takes ownership.
    void setToolBar(QWidget *toolBar);
    /// Shows or hides the aerial view.
    void SetAerialViewVisible(bool visible);
    CAerialView &aerialView() { return *m_aerialView; }

public Q_SLOTS:
    void fitContent();     ///< fits the scene's content rectangle
    void showActualSize(); ///< scale 1
    void zoomIn();
    void zoomOut();

Q_SIGNALS:
    void notifyScaleChanged(qreal factor);

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
    void setFitted(bool fitted);

    CZoomStrip *m_strip;
    CAerialView *m_aerialView;
    QWidget *m_toolBar = nullptr;
    QRectF m_fitRect;
    bool m_fitted = false;
    bool m_panning = false;
    QCursor m_cursorBefore; // before the pan
    QPoint m_panPosition;   // cursor position at the last step of the pan
};
