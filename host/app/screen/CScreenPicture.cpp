// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/screen/CScreenPicture.h"

#include "layout/drawing/CLayoutPicture.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int FlashMilliseconds = 400;
constexpr qreal SmallestLedCabinet = 6; // device pixels; below, a lit LED would hide its cabinet
const QColor wallColor(8, 8, 8);        // the colour of a dark wall
const QColor statusLedColor(64, 224, 96);
const QColor indicatorColor(255, 176, 32);

/// The position of a cabinet's status LED: its lower right corner.
QRectF ledRect(const QRectF &cabinet)
{
    const qreal diameter = std::min(cabinet.width(), cabinet.height()) / 8;
    return {cabinet.right() - 2 * diameter, cabinet.bottom() - 2 * diameter, diameter, diameter};
}

} // namespace

CScreenPicture::CScreenPicture(QObject *parent)
    : QObject(parent)
{
    m_flashTimer.setInterval(FlashMilliseconds);
    connect(&m_flashTimer, &QTimer::timeout, this, &CScreenPicture::onFlash);
}

void CScreenPicture::setWall(const LayoutData &data, const SBackgroundInfo &background)
{
    m_data = data;
    m_fill.set(background);
    placeHighlight();
    invalidate();
}

void CScreenPicture::setStatusLed(bool on)
{
    if (on == m_statusLed)
        return;
    m_statusLed = on;
    invalidate();
}

void CScreenPicture::setNumbersShown(bool shown)
{
    if (shown == m_numbersShown)
        return;
    m_numbersShown = shown;
    invalidate();
}

void CScreenPicture::setHighlight(const QVector<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                                  CabinetHighlight highlight)
{
    m_highlighted.clear();
    if (highlight != CabinetHighlight::Off) {
        for (const CabinetLayout::CabinetPort::Cabinet &cabinet : cabinets)
            m_highlighted << cabinet.uuid;
    }
    placeHighlight();
    m_highlight = highlight;
    m_flash = !m_highlighted.isEmpty();
    if (m_flash)
        m_flashTimer.start();
    else
        m_flashTimer.stop();
    Q_EMIT notifyChanged();
}

void CScreenPicture::placeHighlight()
{
    m_highlightRects.clear();
    if (m_highlighted.isEmpty())
        return;
    for (const CabinetLayout::CabinetPort &port : qAsConst(m_data.layout.ports)) {
        for (const CabinetLayout::CabinetPort::Cabinet &cabinet : port.getAllCabinets()) {
            if (m_highlighted.contains(cabinet.uuid))
                m_highlightRects << cabinet.rect;
        }
    }
}

QRect CScreenPicture::extent() const
{
    return m_data.processor.isNull() ? QRect() : CLayoutPicture::extent(m_data);
}

void CScreenPicture::paint(QPainter &painter, const QRect &target)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QSize pixels = target.size() * ratio;
    if (m_wall.size() != pixels) {
        m_wall = QPixmap(pixels);
        m_wall.setDevicePixelRatio(ratio);
        QPainter wallPainter(&m_wall);
        paintWall(wallPainter, QRectF(QPointF(), target.size()));
    }
    painter.drawPixmap(target.topLeft(), m_wall);
    if (m_flash) {
        painter.setTransform(transformTo(target), true);
        paintHighlight(painter);
    }
}

void CScreenPicture::invalidate()
{
    m_wall = QPixmap();
    Q_EMIT notifyChanged();
}

void CScreenPicture::onFlash()
{
    m_flash = !m_flash;
    Q_EMIT notifyChanged();
}

QTransform CScreenPicture::transformTo(const QRectF &target) const
{
    const QRectF shown = extent();
    if (shown.isEmpty())
        return {};
    const qreal scale = std::min(target.width() / shown.width(), target.height() / shown.height());
    QTransform transform;
    transform.translate(target.center().x(), target.center().y());
    transform.scale(scale, scale);
    transform.translate(-shown.center().x(), -shown.center().y());
    return transform;
}

void CScreenPicture::paintWall(QPainter &painter, const QRectF &target)
{
    painter.fillRect(target, wallColor);
    if (extent().isEmpty())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QTransform canvas = transformTo(target);

    painter.save();
    painter.setTransform(canvas, true);
    m_fill.paint(painter, QRectF(QPointF(0, 0), QSizeF(m_data.canvas)));
    painter.restore();

    SLayoutDrawOptions options;
    options.customMarks = false; // the wall shows none
    options.canvas = false;
    options.wires = false;
    options.groups = false;
    options.labels = false;
    options.numbers = m_numbersShown;
    CLayoutPicture::paint(painter, m_data, target, options);

    if (m_statusLed) {
        painter.setTransform(canvas, true);
        paintStatusLeds(painter);
    }
}

void CScreenPicture::paintStatusLeds(QPainter &painter) const
{
    const qreal scale = painter.combinedTransform().m11();
    painter.setPen(Qt::NoPen);
    painter.setBrush(statusLedColor);
    for (const CabinetLayout::CabinetPort &port : m_data.layout.ports) {
        for (const CabinetLayout::CabinetPort::Cabinet &cabinet : port.getAllCabinets()) {
            if (std::min(cabinet.rect.width(), cabinet.rect.height()) * scale >= SmallestLedCabinet)
                painter.drawEllipse(ledRect(cabinet.rect));
        }
    }
}

void CScreenPicture::paintHighlight(QPainter &painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QRect &cabinet : m_highlightRects) {
        if (m_highlight == CabinetHighlight::LedIndicator) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(indicatorColor);
            painter.drawEllipse(ledRect(cabinet));
        } else {
            const qreal width = std::min(cabinet.width(), cabinet.height()) / 16.0;
            painter.setPen(QPen(Qt::white, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(QRectF(cabinet).adjusted(width / 2, width / 2, -width / 2, -width / 2));
        }
    }
}
