// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/graphics/CGraphicsView.h"

#include "platform/graphics/CAerialView.h"
#include "platform/graphics/CGraphicsScene.h"
#include "platform/graphics/CZoomStrip.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QtMath>

namespace {
constexpr qreal ZoomStep = 1.25;
constexpr int StripMargin = 8;
constexpr qreal FitMargin = 16; // pixels of the view around what is fitted
constexpr qreal FitBelow = 44;  // the same below it, where the strip is
} // namespace

CGraphicsView::CGraphicsView(QWidget *parent)
    : QGraphicsView(parent)
    , m_strip(new CZoomStrip(this))
    , m_aerialView(new CAerialView(*this))
{
    setFrameShape(QFrame::NoFrame);
    setTransformationAnchor(NoAnchor); // zoomBy() itself keeps a point fixed
    setResizeAnchor(AnchorViewCenter);
    setOptimizationFlags(DontSavePainterState); // cosmetic pens reach a little beyond their items
    m_aerialView->hide();
    createActions();
}

void CGraphicsView::createActions()
{
    const auto add = [this](const QKeySequence &key, void (CGraphicsView::*slot)()) {
        auto *action = new QAction(this);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        connect(action, &QAction::triggered, this, slot);
        addAction(action);
    };
    add(Qt::CTRL | Qt::Key_0, &CGraphicsView::fitContent);
    add(Qt::CTRL | Qt::Key_1, &CGraphicsView::showActualSize);
    add(QKeySequence::ZoomIn, &CGraphicsView::zoomIn);
    add(QKeySequence::ZoomOut, &CGraphicsView::zoomOut);
    connect(m_strip, &CZoomStrip::notifyFitClicked, this, &CGraphicsView::fitContent);
    connect(m_strip, &CZoomStrip::notifyActualSizeClicked, this, &CGraphicsView::showActualSize);
    connect(m_strip, &CZoomStrip::notifyZoomInClicked, this, &CGraphicsView::zoomIn);
    connect(m_strip, &CZoomStrip::notifyZoomOutClicked, this, &CGraphicsView::zoomOut);
    connect(this, &CGraphicsView::notifyScaleChanged, m_strip, &CZoomStrip::showScale);
    connect(this, &CGraphicsView::notifyScaleChanged, m_aerialView, QOverload<>::of(&QWidget::update));
}

void CGraphicsView::setScaleFactor(qreal factor)
{
    zoomBy(factor / scaleFactor(), viewport()->rect().center());
}

void CGraphicsView::zoomBy(qreal factor, const QPoint &fixedPoint)
{
    const qreal wanted = qBound(SmallestScale, scaleFactor() * factor, LargestScale);
    const QPointF underPoint = mapToScene(fixedPoint);
    setFitted(false);
    if (qFuzzyCompare(wanted, scaleFactor()))
        return;
    setTransform(QTransform::fromScale(wanted, wanted));
    scrollBy(mapFromScene(underPoint) - fixedPoint);
    Q_EMIT notifyScaleChanged(wanted);
}

void CGraphicsView::scrollBy(const QPoint &step)
{
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + step.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + step.y());
}

void CGraphicsView::fit(const QRectF &content)
{
    m_fitRect = content;
    setFitted(true);
    applyFit();
}

/// What is fitted needs no scroll bars. Bars that come as needed would not settle either: a bar takes room
/// from the view, which then fits its content at a smaller scale, at which no bar is needed.
void CGraphicsView::setFitted(bool fitted)
{
    m_fitted = fitted;
    const Qt::ScrollBarPolicy bars = fitted ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    setHorizontalScrollBarPolicy(bars);
    setVerticalScrollBarPolicy(bars);
}

void CGraphicsView::applyFit()
{
    const QSizeF room = QSizeF(viewport()->size()) - QSizeF(2 * FitMargin, FitMargin + FitBelow);
    if (m_fitRect.isEmpty() || room.isEmpty())
        return;
    const qreal factor = qMin(room.width() / m_fitRect.width(), room.height() / m_fitRect.height());
    const qreal wanted = qBound(SmallestScale, factor, LargestScale);
    setTransform(QTransform::fromScale(wanted, wanted));
    centerOn(m_fitRect.center() + QPointF(0, (FitBelow - FitMargin) / (2 * wanted)));
    Q_EMIT notifyScaleChanged(wanted);
}

void CGraphicsView::fitContent()
{
    if (const auto *content = qobject_cast<const CGraphicsScene *>(scene()))
        fit(content->contentRect());
}

void CGraphicsView::showActualSize()
{
    setScaleFactor(1);
}

void CGraphicsView::zoomIn()
{
    zoomBy(ZoomStep, viewport()->rect().center());
}

void CGraphicsView::zoomOut()
{
    zoomBy(1 / ZoomStep, viewport()->rect().center());
}

void CGraphicsView::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() & (Qt::ShiftModifier | Qt::AltModifier)) {
        QGraphicsView::wheelEvent(event); // scrolls
        return;
    }
    constexpr qreal notch = 120; // eighths of a degree
    zoomBy(qPow(ZoomStep, event->angleDelta().y() / notch), event->position().toPoint());
    event->accept();
}

void CGraphicsView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::MiddleButton) {
        QGraphicsView::mousePressEvent(event);
        return;
    }
    m_panning = true;
    m_cursorBefore = viewport()->cursor();
    m_panPosition = event->pos();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void CGraphicsView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_panning) {
        QGraphicsView::mouseMoveEvent(event);
        if (dragMode() == ScrollHandDrag && (event->buttons() & Qt::LeftButton))
            setFitted(false);
        return;
    }
    const QPoint step = event->pos() - m_panPosition;
    m_panPosition = event->pos();
    setFitted(false);
    scrollBy(-step);
}

void CGraphicsView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_panning || event->button() != Qt::MiddleButton) {
        QGraphicsView::mouseReleaseEvent(event);
        return;
    }
    m_panning = false;
    viewport()->setCursor(m_cursorBefore);
}

bool CGraphicsView::viewportEvent(QEvent *event)
{
    // The view under the mouse gets the keys, unless text is being typed.
    const QWidget *focus = QApplication::focusWidget();
    if (event->type() == QEvent::Enter && isActiveWindow() && QApplication::mouseButtons() == Qt::NoButton &&
        !qobject_cast<const QLineEdit *>(focus) && !qobject_cast<const QAbstractSpinBox *>(focus))
        setFocus(Qt::OtherFocusReason);
    return QGraphicsView::viewportEvent(event);
}

void CGraphicsView::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    placeChildren();
    if (m_fitted)
        applyFit();
}

void CGraphicsView::showEvent(QShowEvent *event)
{
    QGraphicsView::showEvent(event);
    placeChildren();
    if (m_fitted)
        applyFit();
}

void CGraphicsView::scrollContentsBy(int dx, int dy)
{
    QGraphicsView::scrollContentsBy(dx, dy);
    m_aerialView->update();
}

void CGraphicsView::showPlace(const QPointF &place)
{
    setFitted(false);
    centerOn(place);
}

QPointF CGraphicsView::middle() const
{
    return mapToScene(viewport()->rect()).boundingRect().center();
}

void CGraphicsView::setToolBar(QWidget *toolBar)
{
    m_toolBar = toolBar;
    m_toolBar->setParent(this);
    setViewportMargins(0, m_toolBar->sizeHint().height(), 0, 0);
    placeChildren();
}

void CGraphicsView::SetAerialViewVisible(bool visible)
{
    m_aerialView->setVisible(visible);
    placeChildren();
}

void CGraphicsView::placeChildren()
{
    const QRect room = viewport()->geometry();
    if (m_toolBar)
        m_toolBar->setGeometry(0, 0, width(), m_toolBar->sizeHint().height());
    m_strip->adjustSize();
    m_strip->move(qMax(room.right() - m_strip->width() - StripMargin, room.left()),
                  room.bottom() - m_strip->height() - StripMargin);
    m_aerialView->move(room.left() + StripMargin, room.bottom() - m_aerialView->height() - StripMargin);
}
