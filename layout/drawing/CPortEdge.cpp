// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CPortEdge.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CPortColors.h"
#include "layout/drawing/CPortLabel.h"
#include "layout/drawing/CosmeticPen.h"
#include "layout/drawing/LayoutColors.h"

#include <QPainter>

#include <algorithm>

namespace {

// Lengths in device pixels.
constexpr qreal TintShare = 0.7;
constexpr qreal OverloadWidth = 2;
constexpr qreal OverloadRim = 1;   // on both sides
constexpr qreal SmallestEdged = 8; // port: of a smaller one nothing else would be seen
constexpr int MostFarPieces =
    1024; // cabinets apart from each other have four each, which cover them from afar
constexpr int MostCabinets = 4096; // of a port in damaged data, each of which might overlap all others

/// The area that a line of @p width takes, @p inset inside the side; @p trim from its ends, so that lines of
/// two sides meet in the corner.
QRectF areaOf(const COutline::SPiece &piece, qreal inset, qreal width, qreal trim)
{
    const bool far = piece.side == COutline::Bottom || piece.side == COutline::Right;
    const qreal at = far ? piece.at - inset - width : piece.at + inset;
    const qreal from = piece.from + trim;
    const qreal length = piece.to - trim - from;
    return piece.side == COutline::Top || piece.side == COutline::Bottom ? QRectF(from, at, length, width)
                                                                         : QRectF(at, from, width, length);
}

/// Pieces that go on in each other as one; those within @p exposed, as wide as @p width.
QVector<COutline::SPiece> joined(const QVector<COutline::SPiece> &pieces, const QRectF &exposed, qreal width)
{
    QVector<COutline::SPiece> lines;
    for (const COutline::SPiece &piece : pieces) {
        if (!lines.isEmpty() && lines.last().goesOn(piece))
            lines.last().to = piece.to;
        else
            lines << piece;
    }
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [&](const COutline::SPiece &line) {
                                   return !areaOf(line, 0, width, 0).intersects(exposed);
                               }),
                lines.end());
    return lines;
}

} // namespace

QVector<COutline::SPiece> CPortEdge::of(const QVector<QRectF> &cabinets)
{
    return cabinets.size() > MostCabinets ? QVector<COutline::SPiece>() : COutline::of(cabinets);
}

void CPortEdge::paint(QPainter &painter, const QVector<COutline::SPiece> &pieces, const SPortLook &look,
                      qreal width, qreal scale, const QRectF &exposed)
{
    if (look.redundant || std::min(look.bounds.width(), look.bounds.height()) * scale < SmallestEdged)
        return;
    if (pieces.size() > MostFarPieces && CLayoutPainter::isAfar(width, scale))
        return;
    const qreal pixel = hairline(painter, scale);
    const QVector<COutline::SPiece> lines =
        joined(pieces, exposed, (OverloadWidth + 2 * OverloadRim) * pixel);
    if (!CPortLabel::isOverloaded(look)) {
        const QColor color = CPortColors::blended(look.fill, CPortColors::tint(look.fill), TintShare);
        // Beside the cabinets' own borders, which they have on the left and above.
        const qreal inset = CLayoutPainter::isAfar(width, scale) ? 0 : pixel;
        for (const COutline::SPiece &line : lines) {
            const bool beside = line.side == COutline::Top || line.side == COutline::Left;
            painter.fillRect(areaOf(line, beside ? inset : 0, pixel, inset), color);
        }
        return;
    }
    const qreal rim = CLayoutPainter::isAfar(width, scale) ? 0 : OverloadRim * pixel;
    const qreal red = OverloadWidth * pixel;
    for (const COutline::SPiece &line : lines) {
        if (rim > 0)
            painter.fillRect(areaOf(line, 0, red + 2 * rim, 0), LayoutColors::Rim);
    }
    for (const COutline::SPiece &line : lines)
        painter.fillRect(areaOf(line, rim, red, rim), LayoutColors::Fault);
}
