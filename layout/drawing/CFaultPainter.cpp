// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CFaultPainter.h"

#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CosmeticPen.h"
#include "layout/drawing/LayoutColors.h"

#include <QBrush>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace {

// Lengths in device pixels.
constexpr int StripePitch = 12;
constexpr qreal StripeWidth = 4;
constexpr qreal LeastAfarMark = 3;
constexpr qreal FrameInset = 5; // of a close cabinet that is not wired

QColor colorOf(CabinetFault fault)
{
    return fault == CabinetFault::Overlapping ? LayoutColors::Fault : LayoutColors::Warning;
}

/// A picture of diagonal stripes that can be set side by side.
QImage stripes(const QColor &color)
{
    QImage image(StripePitch, StripePitch, QImage::Format_ARGB32_Premultiplied);
    QColor shade = LayoutColors::Rim;
    shade.setAlpha(150);
    image.fill(shade);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, StripeWidth));
    for (const int shift : {-StripePitch, 0, StripePitch})
        painter.drawLine(QPointF(shift - StripePitch, 2 * StripePitch),
                         QPointF(shift + 2 * StripePitch, -StripePitch));
    return image;
}

const QBrush &hatching(CabinetFault fault)
{
    static const QBrush overlap(stripes(LayoutColors::Fault));
    static const QBrush outside(stripes(LayoutColors::Warning));
    return fault == CabinetFault::Overlapping ? overlap : outside;
}

/// Stripes of the same size at every scale, which stay where they are while the canvas is moved.
void paintHatched(QPainter &painter, const QVector<QRectF> &areas, const QPointF &corner, CabinetFault fault)
{
    if (areas.isEmpty())
        return;
    const QTransform canvas = painter.worldTransform();
    const QPointF origin = canvas.map(QPointF());
    painter.save();
    painter.setWorldTransform(QTransform());
    painter.setBrushOrigin(origin);
    for (const QRectF &area : areas) {
        const QRectF onScreen = canvas.mapRect(area.translated(corner));
        painter.fillRect(onScreen, hatching(fault));
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colorOf(fault), 1));
        painter.drawRect(onScreen.adjusted(0.5, 0.5, -0.5, -0.5));
    }
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
