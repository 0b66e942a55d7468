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

constexpr int FullLoad = 100;       // percent
constexpr qreal PlateGap = 4;       // device pixels
constexpr qreal FarthestPlate = 64; // beyond a port that has room for most of it, device pixels
constexpr qreal TwoPlates = 29;     // least height of a cabinet with one above the other, device pixels

const QColor OutlinedFill(31, 31, 36);

enum EDistance { Afar, Fitted, Close };

EDistance distanceOf(const QRectF &head, qreal scale)
{
    if (CLayoutPainter::isAfar(head.width(), scale))
        return Afar;
    return CLayoutPainter::isClose(head, scale) ? Close : Fitted;
}

/// A text on a plate as it lies on the screen, in device pixels relative to the origin of the canvas.
struct SPlate
{
    enum EStyle { Tinted, Overload, Outlined };

    QRectF rect;
    QString text;
    QFont font;
    EStyle style = Tinted;
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

qreal iconWidth(qreal height)
{
    return height * 0.8;
}

qreal marginOf(EDistance distance, const QRectF &onScreen)
{
    return distance == Close ? CLayoutPainter::markMargin(onScreen) : 1;
}

/// Close by each cabinet carries its own lock, unless there is no room beside label and number.
bool showsLock(const SPortLook &look, EDistance distance, qreal scale)
{
    return look.locked &&
           (distance != Close || (look.wired && !CLayoutPainter::isRoomy(look.head.width() * scale)));
}

/// A plate for @p text in the corner of @p cabinet.
SPlate plateIn(const QRectF &cabinet, qreal scale, const QString &text, QSvgRenderer *icon)
{
    const EDistance distance = distanceOf(cabinet, scale);
    const qreal height = heightOf(distance, cabinet, scale);
    SPlate plate;
    plate.text = text;
    plate.icon = icon;
    plate.font = fontOf(height);
    const qreal width = QFontMetricsF(plate.font).horizontalAdvance(text) + 2 * paddingOf(height) +
                        (icon ? iconWidth(height) : 0);
    const QRectF onScreen(cabinet.topLeft() * scale, cabinet.size() * scale);
    const qreal margin = marginOf(distance, onScreen);
    plate.rect = QRectF(onScreen.topLeft() + QPointF(margin, margin), QSizeF(width, height));
    return plate;
}

void moveLow(SPlate &plate, const QRectF &cabinet, qreal scale)
{
    const QRectF onScreen(cabinet.topLeft() * scale, cabinet.size() * scale);
    plate.style = SPlate::Outlined;
    plate.rect.moveBottom(onScreen.bottom() - marginOf(distanceOf(cabinet, scale), onScreen));
}

/// Whether there is room for it: of a port that is smaller than its label nothing else would be seen.
bool hasRoom(const QRectF &place, const SPlate &plate, qreal scale)
{
    const QSizeF size = place.size() * scale;
    return size.width() >= plate.rect.width() * 0.75 && size.height() >= plate.rect.height() * 0.75;
}

/// The name of the port; an overload has its figure below it or, where there is no room, beside it.
void addName(QVector<SPlate> &plates, const SPortLook &look, qreal scale)
{
    const EDistance distance = distanceOf(look.head, scale);
    const bool overloaded = CPortLabel::isOverloaded(look);
    const bool inOne = distance == Afar || look.head.height() * scale < TwoPlates;
    QSvgRenderer *icon = look.redundant                     ? &CSvgCache::redundancy()
                         : showsLock(look, distance, scale) ? &CSvgCache::lock()
                                                            : nullptr;
    const QString name = CPortLabel::text(look.port, overloaded && inOne ? look.load : 0);
    SPlate plate = plateIn(look.head, scale, name, icon);
    if (overloaded)
        plate.style = SPlate::Overload;
    if (look.redundant)
        moveLow(plate, look.head, scale); // its primary may have a label in the same cabinet
    if (distance == Afar)
        plate.rect.moveCenter(look.bounds.center() * scale);
    if (!hasRoom(look.bounds, plate, scale))
        return;
    plates << plate;
    if (!overloaded || inOne)
        return;
    SPlate figure = plateIn(look.head, scale, QStringLiteral("%1%").arg(look.load), nullptr);
    figure.style = SPlate::Overload;
    figure.rect.moveTop(plate.rect.bottom() + (distance == Close ? PlateGap : 1));
    if (hasRoom(look.bounds, figure, scale))
        plates << figure;
}

/// The redundancy port feeds the chain from its end.
void addBackup(QVector<SPlate> &plates, const SPortLook &look, qreal scale)
{
    const EDistance distance = distanceOf(look.tail, scale);
    if (look.backup.isEmpty() || !look.wired || distance == Afar)
        return;
    SPlate plate =
        plateIn(look.tail, scale, look.backup, distance == Close ? &CSvgCache::redundancy() : nullptr);
    moveLow(plate, look.tail, scale);
    if (hasRoom(look.tail, plate, scale))
        plates << plate;
}

QVector<SPlate> platesOf(const SPortLook &look, qreal scale)
{
    QVector<SPlate> plates;
    addName(plates, look, scale);
    addBackup(plates, look, scale);
    return plates;
}

qreal endRadius(const QRectF &head, qreal scale)
{
    return qBound(2.5, std::min(head.width(), head.height()) * scale / 11, 6.0);
}

void paintPlate(QPainter &painter, const SPortLook &look, const SPlate &plate)
{
    const bool outlined = plate.style == SPlate::Outlined;
    const QColor tint =
        plate.style == SPlate::Overload ? QColor(LayoutColors::Overload) : CPortColors::tint(look.fill);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(outlined ? tint : QColor(LayoutColors::Rim), 1));
    painter.setBrush(outlined ? OutlinedFill : tint);
    painter.drawRoundedRect(plate.rect.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    QRectF rest = plate.rect;
    if (plate.icon) {
        const qreal side = rest.height() * 0.72;
        QRectF icon(0, 0, side, side);
        icon.moveCenter(QPointF(rest.left() + 0.65 * rest.height(), rest.center().y()));
        if (!outlined) { // the picture is a light one
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor::fromRgba(LayoutColors::Plate));
            painter.drawRoundedRect(icon.adjusted(-1, -1, 1, 1), 2, 2);
        }
        plate.icon->render(&painter, icon);
        rest.setLeft(icon.right());
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setFont(plate.font);
    painter.setPen(outlined ? QColor(LayoutColors::Frame) : CPortColors::ink(tint));
    painter.drawText(rest, Qt::AlignCenter | Qt::TextDontClip, plate.text);
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
                        look.tail, look.backup, look.wired, look.single, look.entry, look.exit);
    };
    return all(a) == all(b);
}

QString CPortLabel::text(int port, qint64 load)
{
    const QString name = QStringLiteral("P%1").arg(port + 1);
    return load > FullLoad ? QStringLiteral("%1 %2%").arg(name).arg(load) : name;
}

bool CPortLabel::isOverloaded(const SPortLook &look)
{
    return look.load > FullLoad && !look.redundant;
}

QString CPortLabel::backupText(const CabinetLayout::CabinetPort &port)
{
    if (port.redundancy != CabinetLayout::CabinetPort::Primary || port.redundancyPort < 0)
        return {};
    const QString name = text(port.redundancyPort);
    return port.redundancyProcessor.isNull() ? name : QChar(0x2192) + name; // an arrow: elsewhere
}

qreal CPortLabel::widthBeforeNumber(const QString &text, bool icon)
{
    const qreal height = heightOf(Close, {}, 1);
    return QFontMetricsF(fontOf(height)).horizontalAdvance(text) + 2 * paddingOf(height) +
           (icon ? iconWidth(height) : 0);
}

void CPortLabel::paint(QPainter &painter, const SPortLook &look, qreal scale)
{
    if (look.bounds.isEmpty())
        return;
    const QTransform canvas = painter.worldTransform();
    painter.save();
    // Whole device pixels, at whatever scale.
    const QPointF origin = canvas.map(QPointF());
    painter.setWorldTransform(QTransform::fromTranslate(qRound(origin.x()), qRound(origin.y())));
    if (look.wired && distanceOf(look.head, scale) != Afar)
        paintEnds(painter, look, scale);
    for (const SPlate &plate : platesOf(look, scale))
        paintPlate(painter, look, plate);
    painter.restore();
}

bool CPortLabel::mayReach(const SPortLook &look, const QRectF &exposed, qreal scale)
{
    const qreal beyond = FarthestPlate / scale;
    return look.bounds.adjusted(-beyond, -beyond, beyond, beyond).intersects(exposed);
}

QVector<QRectF> CPortLabel::areas(const SPortLook &look, qreal scale)
{
    if (look.bounds.isEmpty())
        return {};
    constexpr qreal rounding = 2;
    QVector<QRectF> areas;
    for (const SPlate &plate : platesOf(look, scale))
        areas << plate.rect;
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
