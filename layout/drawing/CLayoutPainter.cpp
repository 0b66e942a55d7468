// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CLayoutPainter.h"

#include "layout/drawing/CSvgCache.h"
#include "platform/common/CCustomPaint.h"

#include <QFont>
#include <QMap>
#include <QPainter>
#include <QSvgRenderer>
#include <QtMath>

#include <algorithm>
#include <array>

namespace {

constexpr qreal SmallestText = 7; // device pixels
constexpr qreal MarkSize = 20;    // of the lock and redundancy marks, in canvas pixels
constexpr qreal MarkMargin = 8;
constexpr qreal SmallestCustomMark = 2.5; // device pixels
constexpr qreal AfarWidth = 10;           // device pixels
constexpr qreal HighlightWidth = 3;       // device pixels
constexpr qreal SmallestBorder = 3;       // device pixels; a smaller cabinet would be nothing but border
constexpr qreal ShortestWire = 2;         // device pixels; shorter ones would cover their cabinets
constexpr qreal ArrowLength = 8;
constexpr qreal ArrowHalfWidth = 5.5;
constexpr qreal ArrowPlace = 0.25; // of the way from the exit to the entry point

const QString LockPicture = QStringLiteral(":/Image/Layout/PortList/lock_checked.svg");
const QString RedundancyPicture = QStringLiteral(":/Image/Layout/PortList/Menu/backup.svg");

const QColor WireColor(255, 252, 225);
const QColor BorderColor(8, 8, 8);
const QColor MarkPlate(22, 22, 26, 200);
const QColor FrameColor(202, 202, 210);
const QColor HighlightColor(255, 214, 64);
const QColor CustomColor(190, 163, 25);

/// How strongly to draw something of @p pixels: from 0 at @p none to 1 at full strength.
qreal shareOfFull(qreal pixels, qreal none)
{
    return qBound(0.0, (pixels - none) / (AfarWidth - none), 1.0);
}

QPen cosmetic(const QColor &color, qreal width, Qt::PenStyle style = Qt::SolidLine)
{
    QPen pen(color, width, style, Qt::SquareCap, Qt::MiterJoin);
    pen.setCosmetic(true);
    return pen;
}

/// Black or white, whichever is easier to read on @p fill.
QColor textOn(const QColor &fill)
{
    return qGray(fill.rgb()) > 140 ? QColor(31, 31, 36) : QColor(240, 240, 246);
}

void paintNumber(QPainter &painter, const SCabinetLook &look, const QColor &fill, qreal scale)
{
    // In the upper left corner, where wires from centre to centre do not pass.
    const qreal size = std::min(look.rect.height(), look.rect.width()) / 3.5;
    if (look.number.isEmpty() || size * scale < SmallestText)
        return;
    QFont font = painter.font();
    font.setPixelSize(qMax(1, qRound(size)));
    painter.setFont(font);
    painter.setPen(textOn(fill));
    const qreal margin = size / 3.5;
    painter.drawText(look.rect.adjusted(margin, margin, 0, 0),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip, look.number);
}

void paintMark(QPainter &painter, const QString &resource, const QRectF &cabinet, int place, qreal scale)
{
    const qreal size = std::min({MarkSize, cabinet.width() / 4, cabinet.height() / 4});
    if (size * scale < SmallestText)
        return;
    const qreal margin = size * MarkMargin / MarkSize / 2;
    const QPointF corner(cabinet.right() - (place + 1) * (size + margin), cabinet.top() + margin);
    CSvgCache::renderer(resource).render(&painter, QRectF(corner, QSizeF(size, size)));
}

/// On a dark background: a port may have the colour of the mark.
void paintBackedMark(QPainter &painter, const QString &resource, const QRectF &place)
{
    const qreal margin = place.width() / 5;
    painter.fillRect(place.adjusted(-margin, -margin, margin, margin), MarkPlate);
    CSvgCache::renderer(resource).render(&painter, place);
}

/// In the lower right corner, away from the number and other marks; on a small cabinet large enough to be
/// seen.
void paintCustomMark(QPainter &painter, const QRectF &cabinet, qreal scale)
{
    const qreal side = std::min(cabinet.width(), cabinet.height());
    const qreal size = std::max(side / 4, std::min(side / 2, SmallestCustomMark / scale));
    const QPointF corner = cabinet.bottomRight();
    if (CLayoutPainter::isAfar(cabinet.width(), scale)) { // a triangle would look like a square
        painter.fillRect(QRectF(corner - QPointF(size, size), corner), CustomColor);
        return;
    }
    const QPointF triangle[] = {corner, corner - QPointF(size, 0), corner - QPointF(0, size)};
    painter.setPen(Qt::NoPen);
    painter.setBrush(CustomColor);
    painter.drawConvexPolygon(triangle, 3);
}

/// For lines too short for visible dashes, @p length whole device pixels long. Fades with the length:
/// otherwise ten thousand lines would hide everything else.
QPen shortWirePen(int length)
{
    QColor color = WireColor;
    color.setAlphaF(0.25 + 0.55 * shareOfFull(length, ShortestWire));
    return cosmetic(color, 1);
}

/// The unit of length for the arrow head, at its largest size, on a line of that length.
qreal largestArrowUnit(qreal length)
{
    return length * ArrowPlace / ArrowLength;
}

std::array<QPointF, 3> arrowHead(const QLineF &line, qreal unit)
{
    const QPointF along = QPointF(line.dx(), line.dy()) / line.length();
    const QPointF foot = line.pointAt(ArrowPlace);
    const QPointF side = QPointF(-along.y(), along.x()) * (unit * ArrowHalfWidth);
    return {foot + along * (unit * ArrowLength), foot - side, foot + side};
}

/// The border is drawn as a rectangle below the fill, because a pen would be drawn pixel by pixel. It stays
/// inside, because what an item draws outside its bounds is not repainted. Left and top sides suffice between
/// neighbours; a frame has all sides.
void paintArea(QPainter &painter, const QRectF &rect, const SCabinetColors &colors, qreal scale)
{
    if (!colors.border.isValid()) {
        painter.fillRect(rect, colors.fill);
        return;
    }
    const qreal hairline = 1 / scale;
    const qreal far = colors.framed ? hairline : 0;
    painter.fillRect(rect, colors.border);
    painter.fillRect(rect.adjusted(hairline, hairline, -far, -far), colors.fill);
}

/// @p share of @p over, the rest of @p under.
QColor blended(const QColor &under, const QColor &over, qreal share)
{
    const auto mix = [share](qreal a, qreal b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(under.redF(), over.redF()), mix(under.greenF(), over.greenF()),
                            mix(under.blueF(), over.blueF()));
}

void paintFrame(QPainter &painter, const QRectF &rect, const QPen &pen)
{
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
}

} // namespace

SCabinetColors SCabinetColors::of(const QColor &fill, bool selected, bool highlighted, qreal width)
{
    SCabinetColors colors;
    colors.fill = selected ? CLayoutPainter::selectedFill(fill) : fill;
    colors.framed = selected;
    if (highlighted && width < AfarWidth)
        colors.fill = HighlightColor; // a frame would cover the whole cabinet
    const qreal share = shareOfFull(width, SmallestBorder);
    if (share > 0)
        colors.border = blended(colors.fill, selected ? FrameColor : BorderColor, share);
    return colors;
}

void CLayoutPainter::paintCabinet(QPainter &painter, const SCabinetLook &look, qreal scale)
{
    const SCabinetColors colors =
        SCabinetColors::of(look.fill, look.selected, look.highlighted, look.rect.width() * scale);
    if (isAfar(look.rect.width(), scale)) {
        paintCabinetFromAfar(painter, look.rect, colors, look.custom, scale);
        return;
    }

    paintArea(painter, look.rect, colors, scale);
    if (look.custom)
        paintCustomMark(painter, look.rect, scale);
    if (!look.innerLines.isEmpty()) {
        painter.setPen(cosmetic(colors.fill.darker(150), 1, Qt::DotLine));
        painter.translate(look.rect.topLeft());
        painter.drawLines(look.innerLines);
        painter.translate(-look.rect.topLeft());
    }
    paintNumber(painter, look, colors.fill, scale);
    if (look.locked)
        paintMark(painter, LockPicture, look.rect, 0, scale);
    if (look.redundant)
        paintMark(painter, RedundancyPicture, look.rect, 1, scale);
    if (look.highlighted) {
        const qreal half = HighlightWidth / 2 / scale;
        paintFrame(painter, look.rect.adjusted(half, half, -half, -half),
                   cosmetic(HighlightColor, HighlightWidth));
    }
}

void CLayoutPainter::paintCabinetFromAfar(QPainter &painter, const QRectF &rect, const SCabinetColors &colors,
                                          bool custom, qreal scale)
{
    paintArea(painter, rect, colors, scale);
    if (custom)
        paintCustomMark(painter, rect, scale);
}

const QPen &CLayoutPainter::wirePen()
{
    // The style's own pattern is 4, 2; setting it explicitly would change the style.
    static const QPen shared(QBrush(WireColor), 0, Qt::DashLine, Qt::SquareCap, Qt::MiterJoin);
    return shared;
}

void CLayoutPainter::paintWire(QPainter &painter, const QLineF &line, qreal scale)
{
    const qreal length = line.length();
    if (length * scale < ShortestWire)
        return;
    painter.setPen(isAfar(length, scale) ? shortWirePen(int(length * scale)) : wirePen());
    painter.drawLine(line);
    if (length * scale < 2 * ArrowLength)
        return;

    // The head keeps its size on the screen but never outgrows a quarter of the line.
    const auto head = arrowHead(line, std::min(1 / scale, largestArrowUnit(length)));
    static const QBrush fill(WireColor);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawConvexPolygon(head.data(), int(head.size()));
}

void CLayoutPainter::paintWires(QPainter &painter, const QVector<QLineF> &lines, qreal scale)
{
    QMap<int, QVector<QLineF>> shortLines; // by device pixels; they have no arrow head
    for (const QLineF &line : lines) {
        const qreal length = line.length();
        if (!isAfar(length, scale))
            paintWire(painter, line, scale);
        else if (length * scale >= ShortestWire)
            shortLines[int(length * scale)] << line;
    }
    for (auto same = shortLines.cbegin(); same != shortLines.cend(); ++same) {
        painter.setPen(shortWirePen(same.key()));
        painter.drawLines(same.value());
    }
}

void CLayoutPainter::paintPortMarks(QPainter &painter, const QRectF &bounds, qreal cabinetSide, bool locked,
                                    bool redundant, qreal scale)
{
    if (std::min(MarkSize, cabinetSide / 4) * scale >= SmallestText)
        return; // each cabinet carries its own
    const bool both = locked && redundant;
    const qreal room = std::min(bounds.width() / (both ? 4 : 2), bounds.height() / 2);
    const qreal size = std::min(MarkSize / scale, room);
    QRectF place(QPointF(), QSizeF(size, size));
    place.moveCenter(bounds.center() - QPointF(both ? size : 0, 0));
    if (size * scale < SmallestText)
        return;
    if (locked) {
        paintBackedMark(painter, LockPicture, place);
        place.translate(2 * size, 0);
    }
    if (redundant)
        paintBackedMark(painter, RedundancyPicture, place);
}

QRectF CLayoutPainter::wireBounds(const QLineF &line)
{
    QRectF bounds = QRectF(line.p1(), line.p2()).normalized().adjusted(-1, -1, 1, 1); // the pen's width
    if (line.length() > 0) {
        const auto head = arrowHead(line, largestArrowUnit(line.length()));
        bounds |= QPolygonF({head[0], head[1], head[2]}).boundingRect();
    }
    return bounds;
}

void CLayoutPainter::paintGroup(QPainter &painter, const QRectF &rect, bool selected, qreal scale)
{
    if (isAfar(rect.width(), scale))
        return;
    paintFrame(painter, rect,
               cosmetic(FrameColor, selected ? 2 : 1, selected ? Qt::SolidLine : Qt::DashLine));
}

void CLayoutPainter::paintCanvas(QPainter &painter, const QRectF &canvas, const CCanvasFill &fill)
{
    // In screen pixels: squares in canvas pixels would become plain grey from afar.
    const QRect onScreen = painter.worldTransform().mapRect(canvas).toAlignedRect();
    painter.save();
    painter.resetTransform();
    CCustomPaint::paintCheckerBoard(painter, onScreen);
    painter.restore();
    fill.paint(painter, canvas);
    paintFrame(painter, canvas, cosmetic(QColor(136, 136, 146), 1));
}

bool CLayoutPainter::isAfar(qreal width, qreal scale)
{
    return width * scale < AfarWidth;
}

QColor CLayoutPainter::defaultPortColor(int port)
{
    // Neighbouring ports are a golden angle apart on the colour wheel.
    constexpr qreal goldenAngle = 137.508;
    return QColor::fromHsv(int(std::fmod(212 + port * goldenAngle, 360.0)), 150, port % 2 ? 128 : 148);
}

QColor CLayoutPainter::selectedFill(const QColor &fill)
{
    return fill.lighter(150);
}

QColor CLayoutPainter::surroundings()
{
    return QColor(22, 22, 26);
}
