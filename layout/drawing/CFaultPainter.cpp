// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CFaultPainter.h"

#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CosmeticPen.h"
#include "layout/drawing/LayoutColors.h"

#include <QBrush>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPair>

#include <algorithm>
#include <mutex>

namespace {

// Lengths in device pixels.
constexpr int StripePitch = 12;
constexpr qreal StripeWidth = 4;
constexpr qreal LeastAfarMark = 3;
constexpr qreal PlateSide = 26;
constexpr qreal SignShare = 0.6; // of the shared area's side, where it has no room for the plate
constexpr qreal SmallestSign = 8;
constexpr qreal LargestSign = 16;
constexpr qreal FrameInset = 5; // of a close cabinet that is not wired

QColor colorOf(CabinetFault fault)
{
    return fault == CabinetFault::Overlapping ? LayoutColors::Fault : LayoutColors::Warning;
}

/// A picture of diagonal stripes that can be set side by side, for @p ratio device pixels a pixel.
QImage stripes(const QColor &color, qreal ratio)
{
    const int side = qMax(1, qRound(StripePitch * ratio)); // whole pixels: others would be seen twice, or not
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    QColor shade = LayoutColors::Rim;
    shade.setAlpha(150);
    image.fill(shade);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, StripeWidth * ratio));
    for (const int shift : {-side, 0, side})
        painter.drawLine(QPointF(shift - side, 2 * side), QPointF(shift + 2 * side, -side));
    return image;
}

QBrush hatching(CabinetFault fault, qreal ratio)
{
    // Pictures are drawn on several threads; thread_local would keep the module in memory with each of them.
    static std::mutex mutex;
    static QHash<QPair<int, int>, QBrush> known;
    const std::lock_guard<std::mutex> lock(mutex);
    QBrush &brush = known[{int(fault), qRound(ratio * 1000)}];
    if (brush.style() != Qt::NoBrush)
        return brush;
    const QImage rising = stripes(colorOf(fault), ratio);
    brush = QBrush(fault == CabinetFault::Overlapping ? rising : rising.mirrored(true, false));
    brush.setTransform(QTransform::fromScale(1 / ratio, 1 / ratio)); // to device pixels
    return brush;
}

/// Stripes of the same size at every scale, which stay where they are while the canvas is moved.
void paintHatched(QPainter &painter, const QVector<QRectF> &areas, const QPointF &corner, CabinetFault fault)
{
    if (areas.isEmpty())
        return;
    const QTransform canvas = painter.worldTransform();
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QPoint origin = (canvas.map(QPointF()) * ratio).toPoint(); // between pixels edges would tremble
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setBrushOrigin(QPointF(origin) / ratio);
    const QBrush brush = hatching(fault, ratio);
    for (const QRectF &area : areas) {
        const QRectF onScreen = canvas.mapRect(area.translated(corner));
        painter.fillRect(onScreen, brush);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colorOf(fault), 1));
        painter.drawRect(onScreen.adjusted(0.5, 0.5, -0.5, -0.5));
    }
    painter.restore();
}

/// A triangle with an exclamation mark, so that it is not the colour alone that tells.
void paintSign(QPainter &painter, const QPointF &middle, qreal side)
{
    const QPointF top = middle - QPointF(0, side / 2);
    const QPointF triangle[] = {top, top + QPointF(side / 2, side * 0.9),
                                top + QPointF(-side / 2, side * 0.9)};
    painter.setPen(QPen(QColor(LayoutColors::Fault), 1, Qt::SolidLine, Qt::SquareCap, Qt::RoundJoin));
    painter.setBrush(QColor(LayoutColors::Fault));
    painter.drawConvexPolygon(triangle, 3);
    const qreal width = std::max(1.0, side / 9);
    painter.setPen(QPen(QColor(LayoutColors::Rim), width));
    painter.drawLine(top + QPointF(0, side * 0.33), top + QPointF(0, side * 0.58));
    painter.drawPoint(top + QPointF(0, side * 0.76));
}

/// In the middle of the largest area that is shared with others.
void paintOverlapSign(QPainter &painter, const SCabinetLook &look)
{
    const auto smaller = [](const QRectF &a, const QRectF &b) {
        return a.width() * a.height() < b.width() * b.height();
    };
    const auto largest = std::max_element(look.overlaps.begin(), look.overlaps.end(), smaller);
    if (largest == look.overlaps.end())
        return;
    const QTransform canvas = painter.worldTransform();
    const QRectF onScreen = canvas.mapRect(largest->translated(look.rect.topLeft()));
    const qreal room = std::min(onScreen.width(), onScreen.height());
    if (room * SignShare < SmallestSign)
        return;
    const QPointF middle(qRound(onScreen.center().x()), qRound(onScreen.center().y()));
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setRenderHint(QPainter::Antialiasing);
    if (room >= PlateSide) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromRgba(LayoutColors::Plate));
        painter.drawRoundedRect(
            QRectF(middle - QPointF(PlateSide, PlateSide) / 2, QSizeF(PlateSide, PlateSide)), 4, 4);
    }
    paintSign(painter, middle, std::min(LargestSign, room * SignShare));
    painter.restore();
}

void paintUnwired(QPainter &painter, const SCabinetLook &look, qreal scale)
{
    const bool close = CLayoutPainter::isClose(look.rect, scale);
    const qreal inset = (close ? FrameInset : 1.5) / scale;
    painter.setPen(cosmeticPen(CPortColors::tint(look.fill), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(look.rect.adjusted(inset, inset, -inset, -inset));

    const qreal radius = qBound(2.5, std::min(look.rect.width(), look.rect.height()) * scale / 10, 7.0);
    const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(cosmeticPen(LayoutColors::Rim, radius * 0.75 + 1.5));
    painter.drawEllipse(look.rect.center(), radius / scale, radius / scale);
    painter.setPen(cosmeticPen(LayoutColors::Warning, std::max(1.5, radius * 0.35)));
    painter.drawEllipse(look.rect.center(), radius / scale, radius / scale);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
}

} // namespace

void CFaultPainter::paint(QPainter &painter, const SCabinetLook &look, qreal scale)
{
    paintHatched(painter, look.outside, look.rect.topLeft(), CabinetFault::Outside);
    paintHatched(painter, look.overlaps, look.rect.topLeft(), CabinetFault::Overlapping);
    paintOverlapSign(painter, look);
    if (!look.wired && !look.redundant)
        paintUnwired(painter, look, scale);
}

void CFaultPainter::paintFromAfar(QPainter &painter, const QRectF &rect, CabinetFault fault, qreal scale)
{
    const qreal side = std::max(LeastAfarMark / scale, std::min(rect.width(), rect.height()) * 0.4);
    QRectF mark(0, 0, side, side);
    mark.moveCenter(rect.center());
    const qreal rim = 1 / scale;
    painter.fillRect(mark.adjusted(-rim, -rim, rim, rim) & rect.united(mark), LayoutColors::Rim);
    painter.fillRect(mark, colorOf(fault));
}
