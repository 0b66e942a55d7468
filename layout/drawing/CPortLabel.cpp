// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CPortLabel.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CSvgCache.h"
#include "layout/drawing/LayoutColors.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <tuple>

namespace {

constexpr int FullLoad = 100; // percent

const QColor OutlinedFill(31, 31, 36);

enum EDistance { Afar, Fitted, Close };

EDistance distanceOf(const QRectF &head, qreal scale)
{
    if (CLayoutPainter::isAfar(head.width(), scale))
        return Afar;
    return CLayoutPainter::isClose(head, scale) ? Close : Fitted;
}

bool isOverloaded(const SPortLook &look)
{
    return look.load > FullLoad && !look.redundant;
}

QString textOf(const SPortLook &look)
{
    return CPortLabel::text(look.port, look.redundant ? 0 : look.load);
}

/// A label as it lies on the screen, in device pixels relative to the origin of the canvas.
struct SPlate
{
    QRectF rect;
    QFont font;
    QSvgRenderer *icon = nullptr; // null: none
};

qreal heightOf(EDistance distance, const QRectF &head, qreal scale)
{
    constexpr qreal least = 14;
    constexpr qreal most = 26;
    return distance == Close ? most
                             : qBound(least, std::min(head.width(), head.height()) * scale * 0.42, 20.0);
}

QFont fontOf(qreal height)
{
    QFont font;
    font.setPixelSize(qRound(height * (height > 20 ? 0.58 : 0.72)));
    font.setBold(true);
    return font;
}

qreal paddingOf(qreal height)
{
    return height / 4;
}

SPlate plateOf(const SPortLook &look, qreal scale)
{
    const EDistance distance = distanceOf(look.head, scale);
    const qreal height = heightOf(distance, look.head, scale);
    SPlate plate;
    plate.font = fontOf(height);
    if (look.redundant)
        plate.icon = &CSvgCache::redundancy();
    else if (look.locked && distance != Close) // close by each cabinet carries its own
        plate.icon = &CSvgCache::lock();
    const qreal width = QFontMetricsF(plate.font).horizontalAdvance(textOf(look)) + 2 * paddingOf(height) +
                        (!plate.icon ? 0 : height * 0.8);
    const QRectF head(look.head.topLeft() * scale, look.head.size() * scale);
    const qreal margin = distance == Close ? CLayoutPainter::markMargin(head) : 1;
    plate.rect = QRectF(head.topLeft() + QPointF(margin, margin), QSizeF(width, height));
    if (distance == Afar)
        plate.rect.moveCenter(look.bounds.center() * scale);
    else if (look.redundant) // its primary may have a label in the same cabinet
        plate.rect.moveBottom(head.bottom() - margin);
    return plate;
}

/// Whether there is room for it: of a port that is smaller than its label nothing else would be seen.
bool hasRoom(const SPortLook &look, const SPlate &plate, qreal scale)
{
    const QSizeF port = look.bounds.size() * scale;
    return !look.bounds.isEmpty() && port.width() >= plate.rect.width() * 0.75 &&
           port.height() >= plate.rect.height() * 0.75;
}

qreal endRadius(const QRectF &head, qreal scale)
{
    return qBound(2.5, std::min(head.width(), head.height()) * scale / 11, 6.0);
}

void paintPlate(QPainter &painter, const SPortLook &look, const SPlate &plate)
{
    const QColor tint = isOverloaded(look) ? QColor(LayoutColors::Overload) : CPortColors::tint(look.fill);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look.redundant ? tint : QColor(LayoutColors::Rim), 1));
    painter.setBrush(look.redundant ? OutlinedFill : tint);
    painter.drawRoundedRect(plate.rect.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    QRectF rest = plate.rect;
    if (plate.icon) {
        const qreal side = rest.height() * 0.72;
        QRectF icon(0, 0, side, side);
        icon.moveCenter(QPointF(rest.left() + 0.65 * rest.height(), rest.center().y()));
        if (!look.redundant) { // the picture is a light one
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor::fromRgba(LayoutColors::Plate));
            painter.drawRoundedRect(icon.adjusted(-1, -1, 1, 1), 2, 2);
        }
        plate.icon->render(&painter, icon);
        rest.setLeft(icon.right());
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(plate.font);
    painter.setPen(look.redundant ? QColor(LayoutColors::Frame) : CPortColors::ink(tint));
    painter.drawText(rest, Qt::AlignCenter | Qt::TextDontClip, textOf(look));
}

/// A dot where the cable enters, a ring where the chain ends.
void paintEnds(QPainter &painter, const SPortLook &look, qreal scale)
{
    const qreal radius = endRadius(look.head, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(LayoutColors::Rim), 1));
    painter.setBrush(QColor(LayoutColors::Wire));
    painter.drawEllipse(look.entry * scale, radius, radius);
    if (!look.single) {
        painter.drawEllipse(look.exit * scale, radius, radius);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(LayoutColors::Rim));
        painter.drawEllipse(look.exit * scale, radius * 0.55, radius * 0.55);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

} // namespace

bool operator==(const SPortLook &a, const SPortLook &b)
{
    const auto all = [](const SPortLook &look) {
        return std::tie(look.port, look.fill, look.locked, look.redundant, look.load, look.bounds, look.head,
                        look.wired, look.single, look.entry, look.exit);
    };
    return all(a) == all(b);
}

QString CPortLabel::text(int port, qint64 load)
{
    const QString name = QStringLiteral("P%1").arg(port + 1);
    return load > FullLoad ? QStringLiteral("%1 %2%").arg(name).arg(load) : name;
}

qreal CPortLabel::widthBeforeNumber(const QString &text)
{
    const qreal height = heightOf(Close, {}, 1);
    return QFontMetricsF(fontOf(height)).horizontalAdvance(text) + 2 * paddingOf(height);
}

void CPortLabel::paint(QPainter &painter, const SPortLook &look, qreal scale)
{
    if (look.bounds.isEmpty())
        return;
    const SPlate plate = plateOf(look, scale);
    const QTransform canvas = painter.worldTransform();
    painter.save();
    // Whole device pixels, at whatever scale.
    const QPointF origin = canvas.map(QPointF());
    painter.setWorldTransform(QTransform::fromTranslate(qRound(origin.x()), qRound(origin.y())));
    if (look.wired && distanceOf(look.head, scale) != Afar)
        paintEnds(painter, look, scale);
    if (hasRoom(look, plate, scale))
        paintPlate(painter, look, plate);
    painter.restore();
}

QVector<QRectF> CPortLabel::areas(const SPortLook &look, qreal scale)
{
    if (look.bounds.isEmpty())
        return {};
    constexpr qreal rounding = 2;
    QVector<QRectF> areas = {plateOf(look, scale).rect};
    if (look.wired) {
        const qreal side = 2 * endRadius(look.head, scale);
        for (const QPointF &end : {look.entry, look.exit}) {
            QRectF area(0, 0, side, side);
            area.moveCenter(end * scale);
            areas << area;
        }
    }
    for (QRectF &area : areas)
        area = QRectF(area.topLeft() / scale, area.size() / scale)
                   .adjusted(-rounding / scale, -rounding / scale, rounding / scale, rounding / scale);
    return areas;
}
