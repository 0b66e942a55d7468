// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CLayoutPainter.h"

#include "layout/drawing/CFaultPainter.h"
#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CPortLabel.h"
#include "layout/drawing/CReceiverBorders.h"
#include "layout/drawing/CSvgCache.h"
#include "layout/drawing/CosmeticPen.h"
#include "layout/drawing/LayoutColors.h"
#include "platform/common/CCustomPaint.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace {

// Lengths in device pixels.
constexpr qreal AfarWidth = 10;
constexpr qreal CloseSide = 64;
constexpr qreal SmallestNumbered = 28; // cabinet
constexpr qreal NumberShare = 3.5;     // of the cabinet's side
constexpr qreal SmallestNumber = 8;
constexpr qreal LargestNumber = 22;
constexpr qreal MarkSize = 20; // of the lock and redundancy marks
constexpr qreal PlateSize = 26;
constexpr qreal NextMark = 33; // from mark to mark
constexpr qreal MarkMargin = 8;
constexpr qreal RoomyWidth = 110; // of a cabinet that has room for label, number and mark in a row
constexpr qreal SmallestCustomMark = 2.5;
constexpr qreal HighlightWidth = 3;
constexpr qreal SmallestWideFrame = 16; // cabinet with the frame of the selection in full
constexpr qreal SelectionWidth = 2;
constexpr qreal SelectionRim = 1; // on both sides
constexpr qreal SelectionFrame = SelectionWidth + 2 * SelectionRim;
constexpr qreal Rounding = 1e-6;    // more than what arithmetic loses
constexpr qreal SmallestBorder = 3; // of a smaller cabinet it would be all that is seen

/// How far @p pixels has come from @p none to what is drawn whole.
qreal shareOfFull(qreal pixels, qreal none)
{
    return qBound(0.0, (pixels - none) / (AfarWidth - none), 1.0);
}

qreal sideOf(const QRectF &rect)
{
    return std::min(rect.width(), rect.height());
}

void paintNumber(QPainter &painter, const SCabinetLook &look, const QRectF &onScreen, const QColor &fill)
{
    // In the upper left corner, where no wire runs that leads from centre to centre.
    const qreal side = sideOf(onScreen);
    const bool close = side >= CloseSide;
    if (look.number.isEmpty() || side < SmallestNumbered || (!close && !look.label.isEmpty()))
        return;
    QFont font = painter.font();
    const int size = qRound(qBound(SmallestNumber, side / NumberShare, LargestNumber));
    font.setPixelSize(size);
    qreal margin = std::max(size / NumberShare, SelectionFrame);
    QRectF place = onScreen.adjusted(margin, margin, 0, 0);
    if (close) { // in one row with the label
        margin = CLayoutPainter::markMargin(onScreen);
        qreal before = 0;
        if (!look.label.isEmpty()) {
            const bool icon = look.locked && !CLayoutPainter::isRoomy(onScreen.width());
            before = CPortLabel::widthBeforeNumber(look.label, icon) + margin;
            if (margin + before + QFontMetricsF(font).horizontalAdvance(look.number) > onScreen.width())
                return; // the label says that it is the first one
        }
        place =
            QRectF(onScreen.left() + margin + before, onScreen.top() + margin, onScreen.width(), PlateSize);
    }
    const QTransform canvas = painter.worldTransform();
    painter.setWorldTransform(QTransform());
    painter.setFont(font);
    painter.setPen(look.wired ? CPortColors::ink(fill) : CPortColors::tint(look.fill));
    const Qt::Alignment alignment = Qt::AlignLeft | (close ? Qt::AlignVCenter : Qt::AlignTop);
    painter.drawText(place, int(alignment) | int(Qt::TextDontClip), look.number);
    painter.setWorldTransform(canvas);
}

/// On a dark plate: a port may have the colour of the mark.
void paintMark(QPainter &painter, QSvgRenderer &picture, const QRectF &onScreen, int place)
{
    const qreal margin = CLayoutPainter::markMargin(onScreen);
    const QRectF plate(onScreen.right() - margin - PlateSize - place * NextMark, onScreen.top() + margin,
                       PlateSize, PlateSize);
    QRectF mark(0, 0, MarkSize, MarkSize);
    mark.moveCenter(plate.center());
    const QTransform canvas = painter.worldTransform();
    painter.setWorldTransform(QTransform());
    painter.fillRect(plate, QColor::fromRgba(LayoutColors::Plate));
    picture.render(&painter, mark);
    painter.setWorldTransform(canvas);
}

void paintMarks(QPainter &painter, const SCabinetLook &look, const QRectF &onScreen)
{
    if (sideOf(onScreen) < CloseSide || (!CLayoutPainter::isRoomy(onScreen.width()) && !look.label.isEmpty()))
        return;
    if (look.locked)
        paintMark(painter, CSvgCache::lock(), onScreen, 0);
    if (look.redundant)
        paintMark(painter, CSvgCache::redundancy(), onScreen, 1);
}

/// The lower right corner, where neither the number nor the other marks are; of a small cabinet as much as is
/// needed to see it.
void paintCustomMark(QPainter &painter, const QRectF &cabinet, qreal scale)
{
    const qreal side = sideOf(cabinet);
    const qreal size = std::max(side / 4, std::min(side / 2, SmallestCustomMark / scale));
    const QPointF corner = cabinet.bottomRight();
    const QColor color = LayoutColors::Custom;
    if (CLayoutPainter::isAfar(cabinet.width(), scale)) { // a triangle could not be told from a square
        painter.fillRect(QRectF(corner - QPointF(size, size), corner), color);
        return;
    }
    const QPointF triangle[] = {corner, corner - QPointF(size, 0), corner - QPointF(0, size)};
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawConvexPolygon(triangle, 3);
}

void paintInnerLines(QPainter &painter, const SCabinetLook &look, const QColor &fill, const QRectF &onScreen)
{
    if (look.innerLines.isEmpty() ||
        !CReceiverBorders::canBeToldApart(look.innerLines.size(), onScreen.width() * onScreen.height()))
        return;
    painter.setPen(cosmeticPen(fill.darker(150), 1, Qt::DotLine));
    painter.translate(look.rect.topLeft());
    painter.drawLines(look.innerLines);
    painter.translate(-look.rect.topLeft());
}

void paintFrame(QPainter &painter, const QRectF &rect, const QPen &pen)
{
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
}

/// All edges are rounded alike, also those that lie between two pixels.
QRectF rounded(const QRectF &rect, qreal scale)
{
    return rect.translated(Rounding / scale, Rounding / scale);
}

QRectF withinBorder(const QRectF &rect, const SCabinetColors &colors, qreal border, qreal scale)
{
    const qreal far = colors.framed ? border : 0;
    return rounded(rect.adjusted(border, border, -far, -far), scale);
}

/// The border is what the fill leaves of a rectangle behind it: a pen would be walked pixel by pixel. It
/// stays inside, as what an item draws outside its bounds is not repainted with it; left and top are enough
/// between neighbours, a frame has all sides.
void paintArea(QPainter &painter, const QRectF &rect, const SCabinetColors &colors, qreal scale)
{
    if (!colors.fill.isValid()) {
        const qreal half = 0.5 / scale;
        paintFrame(painter, rect.adjusted(half, half, -half, -half), cosmeticPen(colors.border, 1));
        return;
    }
    if (!colors.border.isValid()) {
        painter.fillRect(rounded(rect, scale), colors.fill);
        return;
    }
    painter.fillRect(rounded(rect, scale), colors.border);
    painter.fillRect(withinBorder(rect, colors, hairline(painter, scale), scale), colors.fill);
}

/// A pen of @p width device pixels, @p inset device pixels inside @p rect.
void paintFrameWithin(QPainter &painter, const QRectF &rect, qreal inset, qreal width, const QColor &color,
                      qreal scale)
{
    const qreal middle = (inset + width / 2) / scale;
    paintFrame(painter, rect.adjusted(middle, middle, -middle, -middle), cosmeticPen(color, width));
}

/// White, with dark rims so that it is seen on any fill and any canvas.
void paintSelection(QPainter &painter, const QRectF &rect, qreal scale)
{
    paintFrameWithin(painter, rect, 0, SelectionFrame, LayoutColors::Rim, scale);
    paintFrameWithin(painter, rect, SelectionRim, SelectionWidth, LayoutColors::Selection, scale);
}

/// The same together with the fill, as areas inside each other, which takes less time.
void paintSelectedArea(QPainter &painter, const QRectF &rect, const QColor &fill, qreal scale)
{
    qreal inset = 0;
    const auto within = [&rect, &inset, scale](qreal width) {
        const qreal now = inset / scale;
        inset += width;
        return rect.adjusted(now, now, -now, -now);
    };
    painter.fillRect(within(SelectionRim), LayoutColors::Rim);
    painter.fillRect(within(SelectionWidth), LayoutColors::Selection);
    painter.fillRect(within(SelectionRim), LayoutColors::Rim);
    painter.fillRect(within(0), fill);
}

/// Whether the selection's frame leaves enough of a cabinet.
bool hasWideFrame(const SCabinetColors &colors, const QRectF &rect, qreal scale)
{
    return colors.framed && sideOf(rect) * scale >= SmallestWideFrame;
}

} // namespace

SCabinetColors SCabinetColors::of(const SCabinetState &state, qreal width)
{
    SCabinetColors colors;
    colors.framed = state.selected;
    if (state.redundant && !state.highlighted) {
        colors.border = state.selected ? QColor(LayoutColors::Selection) : CPortColors::tint(state.fill);
        return colors;
    }
    // A colour of another kind would be converted at each use.
    const QColor base = state.wired ? state.fill.toRgb() : CPortColors::faded(state.fill);
    colors.fill = state.selected ? CPortColors::selected(base) : base;
    if (state.highlighted && width < AfarWidth)
        colors.fill = LayoutColors::Highlight; // a frame would leave nothing to be framed
    const qreal share = shareOfFull(width, SmallestBorder);
    if (share > 0)
        colors.border = CPortColors::blended(
            colors.fill, state.selected ? LayoutColors::Selection : LayoutColors::Border, share);
    return colors;
}

void CLayoutPainter::paintCabinet(QPainter &painter, const SCabinetLook &look, qreal scale)
{
    const SCabinetColors colors = SCabinetColors::of(look, look.rect.width() * scale);
    if (isAfar(look.rect.width(), scale)) {
        paintCabinetFromAfar(painter, look.rect, colors, look.custom, look.fault, scale);
        return;
    }
    const QRectF onScreen = painter.worldTransform().mapRect(look.rect);
    const bool wideFrame = hasWideFrame(colors, look.rect, scale);
    if (wideFrame && colors.fill.isValid())
        paintSelectedArea(painter, look.rect, colors.fill, scale);
    else
        paintArea(painter, look.rect, colors, scale);
    if (look.custom)
        paintCustomMark(painter, look.rect, scale);
    paintInnerLines(painter, look, colors.fill.isValid() ? colors.fill : look.fill, onScreen);
    CFaultPainter::paint(painter, look, scale);
    paintNumber(painter, look, onScreen, colors.fill.isValid() ? colors.fill : surroundings());
    paintMarks(painter, look, onScreen);
    if (look.highlighted)
        paintFrameWithin(painter, look.rect, wideFrame ? SelectionFrame : 0, HighlightWidth,
                         LayoutColors::Highlight, scale);
    if (wideFrame && (look.custom || look.fault != CabinetFault::None || !colors.fill.isValid()))
        paintSelection(painter, look.rect, scale); // what was drawn since reaches over it
}

void CLayoutPainter::paintCabinetFromAfar(QPainter &painter, const QRectF &rect, const SCabinetColors &colors,
                                          bool custom, CabinetFault fault, qreal scale)
{
    paintArea(painter, rect, colors, scale);
    if (custom)
        paintCustomMark(painter, rect, scale);
    if (fault != CabinetFault::None)
        CFaultPainter::paintFromAfar(painter, rect, fault, scale);
}

void CLayoutPainter::paintRowFromAfar(QPainter &painter, const QVector<QRectF> &row,
                                      const SCabinetColors &colors, qreal scale)
{
    if (row.size() == 1 || !colors.fill.isValid()) {
        for (const QRectF &rect : row)
            paintArea(painter, rect, colors, scale);
        return;
    }
    const QRectF all = rounded(row.first() | row.last(), scale);
    if (!colors.border.isValid()) {
        painter.fillRect(all, colors.fill);
        return;
    }
    painter.fillRect(all, colors.border);
    const qreal border = hairline(painter, scale);
    for (const QRectF &rect : row)
        painter.fillRect(withinBorder(rect, colors, border, scale), colors.fill);
}

void CLayoutPainter::paintGroup(QPainter &painter, const QRectF &rect, bool selected, qreal scale)
{
    if (isAfar(rect.width(), scale))
        return;
    if (selected) {
        paintSelection(painter, rect, scale);
        return;
    }
    const qreal half = 0.5 / scale;
    paintFrame(painter, rect.adjusted(half, half, -half, -half),
               cosmeticPen(LayoutColors::Frame, 1, Qt::DashLine));
}

void CLayoutPainter::paintCanvas(QPainter &painter, const QRectF &canvas, const CCanvasFill &fill)
{
    // In screen pixels: squares of the canvas would melt into grey from afar.
    const QRect onScreen = painter.worldTransform().mapRect(canvas).toAlignedRect();
    painter.save();
    painter.resetTransform();
    CCustomPaint::paintCheckerBoard(painter, onScreen);
    painter.restore();
    fill.paint(painter, canvas);
    paintFrame(painter, canvas, cosmeticPen(LayoutColors::CanvasEdge, 1));
}

bool CLayoutPainter::isAfar(qreal width, qreal scale)
{
    return width * scale < AfarWidth;
}

bool CLayoutPainter::isClose(const QRectF &cabinet, qreal scale)
{
    return sideOf(cabinet) * scale >= CloseSide;
}

bool CLayoutPainter::isRoomy(qreal width)
{
    return width >= RoomyWidth;
}

qreal CLayoutPainter::markMargin(const QRectF &onScreen)
{
    return sideOf(onScreen) < RoomyWidth ? MarkMargin / 2 : MarkMargin;
}

QColor CLayoutPainter::surroundings()
{
    return LayoutColors::Surroundings;
}
