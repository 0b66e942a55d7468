// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/graphics/CAerialView.h"

#include "platform/graphics/CGraphicsScene.h"
#include "platform/graphics/CGraphicsView.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int AerialWidth = 220;
constexpr int AerialHeight = 150;
constexpr int AerialMargin = 4;
constexpr int AerialDelay = 150; // ms; a burst of edits is drawn once

} // namespace

CAerialView::CAerialView(CGraphicsView &view)
    : QFrame(&view)
    , m_view(view)
{
    setObjectName(QStringLiteral("AerialView"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(tr("Navigator"));
    setFixedSize(AerialWidth, AerialHeight);
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(AerialDelay);
    connect(&m_refresh, &QTimer::timeout, this, &CAerialView::refresh);
}

void CAerialView::scheduleRefresh()
{
    if (isVisible() && !m_refresh.isActive())
        m_refresh.start();
}

QRectF CAerialView::content() const
{
    const auto *scene = qobject_cast<const CGraphicsScene *>(m_view.scene());
    return scene ? scene->contentRect() : QRectF();
}

QTransform CAerialView::toPicture() const
{
    const QRectF source = content();
    const QRectF target = QRectF(rect()).adjusted(AerialMargin, AerialMargin, -AerialMargin, -AerialMargin);
    if (source.isEmpty())
        return {};
    const qreal scale = std::min(target.width() / source.width(), target.height() / source.height());
    return QTransform::fromTranslate(-source.center().x(), -source.center().y()) *
           QTransform::fromScale(scale, scale) *
           QTransform::fromTranslate(target.center().x(), target.center().y());
}

void CAerialView::refresh()
{
    m_picture = QPixmap(size() * devicePixelRatioF());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(Qt::transparent);
    const QRectF source = content();
    if (!source.isEmpty()) {
        QPainter painter(&m_picture);
        auto *scene = qobject_cast<CGraphicsScene *>(m_view.scene());
        scene->renderPicture(painter, toPicture().mapRect(source), source);
    }
    update();
}

void CAerialView::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_picture);
    if (!content().isEmpty()) {
        const QRectF shown = m_view.mapToScene(m_view.viewport()->rect()).boundingRect();
        const QRectF frame = toPicture().mapRect(shown).intersected(QRectF(rect()).adjusted(2, 2, -2, -2));
        painter.setPen(QPen(Qt::black, 4)); // visible on any colour
        painter.drawRect(frame);
        painter.setPen(QPen(Qt::white, 2));
        painter.drawRect(frame);
    }
    painter.end();
    QFrame::paintEvent(event);
}

void CAerialView::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    refresh();
}

void CAerialView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        goTo(event->pos());
}

void CAerialView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        goTo(event->pos());
}

void CAerialView::goTo(const QPoint &position)
{
    if (!content().isEmpty())
        m_view.showPlace(toPicture().inverted().map(QPointF(position)));
}
