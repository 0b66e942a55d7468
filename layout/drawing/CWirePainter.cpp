// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CWirePainter.h"

#include "layout/drawing/CosmeticPen.h"
#include "layout/drawing/LayoutColors.h"

#include <QMap>
#include <QPainter>

#include <algorithm>

namespace {

// Lengths in device pixels.
constexpr qreal ShortestWire = 2; // shorter ones would cover the cabinets that they join
constexpr qreal ShortestDashed = 10;
constexpr qreal ShortestWithArrow = 16;
constexpr qreal ShortestWithHalo = 64;
constexpr qreal HaloWidth = 3;

constexpr qreal ArrowLength = 8; // on a line of the usual length
constexpr qreal ArrowHalfWidth = 5.5;
constexpr qreal ArrowPlace = 0.25; // of the way from the exit to the entry point
constexpr qreal UsualLength = 64;
constexpr qreal SmallestArrow = 0.6; // of the usual size
constexpr qreal LargestArrow = 1.25;

const QColor WireColor = LayoutColors::Wire;
const QColor HaloColor(8, 8, 12, 102);

/// For lines of which dashes could not be told apart, so many whole device pixels long. Fades with them: of
/// ten thousand lines nothing else would be seen.
QPen plainPen(int length)
{
    const qreal share = (length - ShortestWire) / (ShortestDashed - ShortestWire);
    QColor color = WireColor;
    color.setAlphaF(0.25 + 0.55 * qBound(0.0, share, 1.0));
    QPen pen = cosmeticPen(color, 1);
    pen.setCapStyle(Qt::FlatCap); // so that no pixel between two lines is drawn twice
    return pen;
}

/// Of an arrow head, relative to the usual size.
qreal arrowSize(qreal length, qreal scale)
{
    return qBound(SmallestArrow, length * scale / UsualLength, LargestArrow);
}

/// The largest share of a line's length that a unit of its arrow head has at any scale.
constexpr qreal LargestArrowShare = SmallestArrow / ShortestWithArrow;

std::array<QPointF, 3> headOn(const QLineF &line, qreal unit, qreal grown = 0)
{
    const QPointF along = QPointF(line.dx(), line.dy()) / line.length();
    const QPointF foot = line.pointAt(ArrowPlace) - along * grown;
    return CWirePainter::arrowHead(foot, along, unit * ArrowLength + 3 * grown,
                                   unit * ArrowHalfWidth + 1.5 * grown);
}

void paintHalo(QPainter &painter, const QLineF &line, qreal scale)
{
    const qreal half = HaloWidth / 2 / scale;
    if (qFuzzyIsNull(line.dx()) || qFuzzyIsNull(line.dy())) { // nearly all of them, and much cheaper so
        const QRectF rect = QRectF(line.p1(), line.p2()).normalized();
        painter.fillRect(rect.adjusted(-half, -half, half, half), HaloColor);
        return;
    }
    painter.setPen(cosmeticPen(HaloColor, HaloWidth));
    painter.drawLine(line);
}

void paintArrow(QPainter &painter, const QLineF &line, qreal scale)
{
    const qreal unit = arrowSize(line.length(), scale) / scale;
    const bool smooth = painter.testRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (line.length() * scale >= ShortestWithHalo) {
        const auto halo = headOn(line, unit, 1 / scale);
        painter.setBrush(HaloColor);
        painter.drawConvexPolygon(halo.data(), int(halo.size()));
    }
    const auto head = headOn(line, unit);
    static const QBrush fill(WireColor);
    painter.setBrush(fill);
    painter.drawConvexPolygon(head.data(), int(head.size()));
    painter.setRenderHint(QPainter::Antialiasing, smooth);
}

/// Whether @p next goes straight on, along an axis, from where @p line ends.
bool goesOn(const QLineF &line, const QLineF &next)
{
    if (line.p2() != next.p1())
        return false;
    return (line.dx() == 0 && next.dx() == 0 && line.dy() * next.dy() > 0) ||
           (line.dy() == 0 && next.dy() == 0 && line.dx() * next.dx() > 0);
}

/// Of straight runs a single line: to begin one takes longer than to draw it.
void addPlain(QVector<QLineF> &lines, const QLineF &line)
{
    if (!lines.isEmpty() && goesOn(lines.last(), line))
        lines.last().setP2(line.p2());
    else
        lines << line;
}

} // namespace

const QPen &CWirePainter::pen()
{
    // The style's own pattern is 4, 2; setting it by hand would make it another style.
    static const QPen shared(QBrush(WireColor), 0, Qt::DashLine, Qt::SquareCap, Qt::MiterJoin);
    return shared;
}

bool CWirePainter::isPlain(qreal length, qreal scale)
{
    return length * scale < ShortestDashed;
}

void CWirePainter::paint(QPainter &painter, const QLineF &line, qreal scale)
{
    const qreal length = line.length();
    if (length * scale < ShortestWire)
        return;
    if (isPlain(length, scale)) {
        painter.setPen(plainPen(int(length * scale)));
        painter.drawLine(line);
        return;
    }
    if (length * scale >= ShortestWithHalo)
        paintHalo(painter, line, scale);
    painter.setPen(pen());
    painter.drawLine(line);
    if (length * scale >= ShortestWithArrow)
        paintArrow(painter, line, scale);
}

void CWirePainter::paint(QPainter &painter, const QVector<QLineF> &lines, qreal scale)
{
    QMap<int, QVector<QLineF>> plain; // by device pixels
    for (const QLineF &line : lines) {
        const qreal length = line.length();
        if (!isPlain(length, scale))
            paint(painter, line, scale);
        else if (length * scale >= ShortestWire)
            addPlain(plain[int(length * scale)], line);
    }
    for (auto same = plain.cbegin(); same != plain.cend(); ++same) {
        painter.setPen(plainPen(same.key()));
        painter.drawLines(same.value());
    }
}

std::array<QPointF, 3> CWirePainter::arrowHead(const QPointF &foot, const QPointF &direction, qreal length,
                                               qreal halfWidth)
{
    const QPointF side = QPointF(-direction.y(), direction.x()) * halfWidth;
    return {foot + direction * length, foot - side, foot + side};
}

QRectF CWirePainter::bounds(const QLineF &line)
{
    const qreal length = line.length();
    const qreal beside = std::max(1.0, length * HaloWidth / ShortestWithHalo);
    QRectF bounds = QRectF(line.p1(), line.p2()).normalized().adjusted(-beside, -beside, beside, beside);
    if (length > 0) {
        const auto head = headOn(line, length * LargestArrowShare);
        const auto across = std::minmax({head[0].x(), head[1].x(), head[2].x()});
        const auto down = std::minmax({head[0].y(), head[1].y(), head[2].y()});
        bounds |= QRectF(QPointF(across.first, down.first), QPointF(across.second, down.second));
    }
    return bounds;
}
