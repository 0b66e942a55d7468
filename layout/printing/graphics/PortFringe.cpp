// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/PortFringe.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <QCoreApplication>
#include <QMap>

#include <algorithm>
#include <tuple>

namespace {

using SheetMarks::CaptionPoints;
using SheetMarks::TablePoints;

const QColor FringeFill(0xee, 0xee, 0xee);
const QColor FringeBorder(0x70, 0x70, 0x70);
constexpr double BorderWidth = 0.18; // millimetres
constexpr double EdgeWidth = 1.4;
constexpr double PaperTolerance = 0.05;
constexpr double Plate = 0.6;

/// A piece of a neighbour beside one of the port's cabinets.
struct SPiece
{
    int port;
    Qt::Edge side;
    QRectF rect;
};

/// At which side of @p own the other cabinet is.
Qt::Edge sideOf(const QRectF &own, const QRectF &other, double tolerance)
{
    if (other.left() >= own.right() - tolerance)
        return Qt::RightEdge;
    if (other.right() <= own.left() + tolerance)
        return Qt::LeftEdge;
    return other.top() >= own.bottom() - tolerance ? Qt::BottomEdge : Qt::TopEdge;
}

bool isUpright(Qt::Edge side)
{
    return side == Qt::LeftEdge || side == Qt::RightEdge;
}

SPiece pieceOf(int port, const QRectF &own, const QRectF &other)
{
    using PortFringe::Width;
    const Qt::Edge side = sideOf(own, other, PaperTolerance);
    QRectF strip = own;
    if (side == Qt::RightEdge)
        strip = QRectF(own.right(), own.top(), Width, own.height());
    else if (side == Qt::LeftEdge)
        strip = QRectF(own.left() - Width, own.top(), Width, own.height());
    else if (side == Qt::BottomEdge)
        strip = QRectF(own.left(), own.bottom(), own.width(), Width);
    else
        strip = QRectF(own.left(), own.top() - Width, own.width(), Width);
    return {port, side, strip.intersected(other)};
}

/// The pieces side by side, joined; the longest run first.
QVector<SPiece> runs(QVector<SPiece> pieces)
{
    const auto key = [](const SPiece &piece) {
        const bool upright = isUpright(piece.side);
        return std::make_tuple(int(piece.side), upright ? piece.rect.x() : piece.rect.y(),
                               upright ? piece.rect.y() : piece.rect.x());
    };
    std::sort(pieces.begin(), pieces.end(),
              [&](const SPiece &a, const SPiece &b) { return key(a) < key(b); });
    QVector<SPiece> joined;
    for (const SPiece &piece : qAsConst(pieces)) {
        const QRectF grown =
            piece.rect.adjusted(-PaperTolerance, -PaperTolerance, PaperTolerance, PaperTolerance);
        if (!joined.isEmpty() && joined.last().side == piece.side && joined.last().rect.intersects(grown))
            joined.last().rect |= piece.rect;
        else
            joined << piece;
    }
    const auto length = [](const SPiece &piece) {
        return isUpright(piece.side) ? piece.rect.height() : piece.rect.width();
    };
    std::stable_sort(joined.begin(), joined.end(),
                     [&](const SPiece &a, const SPiece &b) { return length(a) > length(b); });
    return joined;
}

/// The lines of a name, centred above each other.
struct SName
{
    QStringList lines;
    QVector<double> points;

    QSizeF size() const
    {
        QSizeF size(0, 0);
        for (int i = 0; i < lines.size(); ++i) {
            const QRectF line = DrawnMarks::room(lines[i], points[i], true);
            size = QSizeF(std::max(size.width(), line.width()), size.height() + line.height());
        }
        return size;
    }
};

void drawName(SSheet &sheet, const SName &name, const QRectF &box)
{
    SheetMarks::fill(sheet, box.adjusted(-Plate, 0, Plate, 0), FringeFill);
    double top = box.top();
    for (int i = 0; i < name.lines.size(); ++i) {
        const double height = DrawnMarks::room(name.lines[i], name.points[i], true).height();
        // The word alone is not a name.
        const EMark mark = i + 1 < name.lines.size() ? EMark::Caption : EMark::PortName;
        DrawnMarks::centred(sheet, QPointF(box.center().x(), top + height / 2), name.lines[i], name.points[i],
                            true, mark);
        top += height;
    }
}

/// Names a neighbour where there is room.
void placeName(SSheet &sheet, int port, const QVector<SPiece> &where, QVector<QRectF> &taken)
{
    const QString number = QString::number(port + 1);
    const QString whole = QCoreApplication::translate("PortFringe", "Port %1").arg(number);
    const QString word = QCoreApplication::translate("PortFringe", "Port");
    const SName wordings[] = {{{whole}, {TablePoints}},
                              {{word, number}, {CaptionPoints, TablePoints}},
                              {{whole}, {CaptionPoints}},
                              {{word, number}, {CaptionPoints, CaptionPoints}}};
    for (const SPiece &run : where) {
        for (const SName &name : wordings) {
            const QSizeF size = name.size();
            if (size.width() > run.rect.width() || size.height() > run.rect.height())
                continue;
            const QSizeF slack = run.rect.size() - size;
            for (double share : {0.5, 0.25, 0.75, 0.12, 0.88}) {
                const bool upright = isUpright(run.side);
                const QRectF box(run.rect.topLeft() + QPointF(slack.width() * (upright ? 0.5 : share),
                                                              slack.height() * (upright ? share : 0.5)),
                                 size);
                if (std::any_of(taken.begin(), taken.end(),
                                [&](const QRectF &other) { return other.intersects(box); }))
                    continue;
                drawName(sheet, name, box);
                taken << box;
                return;
            }
        }
    }
}

/// What of level and upright lines lies in @p rect.
QVector<QLineF> clipped(const QVector<QLineF> &lines, const QRectF &rect)
{
    QVector<QLineF> inside;
    const QRectF grown = rect.adjusted(-PaperTolerance, -PaperTolerance, PaperTolerance, PaperTolerance);
    for (const QLineF &line : lines) {
        const QRectF hull = QRectF(line.p1(), line.p2()).normalized();
        const QPointF from(std::max(hull.left(), grown.left()), std::max(hull.top(), grown.top()));
        const QPointF to(std::min(hull.right(), grown.right()), std::min(hull.bottom(), grown.bottom()));
        if (from.x() <= to.x() && from.y() <= to.y() && QLineF(from, to).length() > 3 * PaperTolerance)
            inside << QLineF(from, to);
    }
    return inside;
}

} // namespace

Qt::Edges PortFringe::sides(const CWall &wall, const SPlanPort &port, const SWallPart &part)
{
    const QRectF all = wall.bounds(part.owned + part.sharedCabinets());
    Qt::Edges edges;
    for (int own : part.owned) {
        for (int other : wall.touching(own)) {
            const SPlanCabinet &neighbour = wall.cabinets().at(other);
            if (neighbour.port == port.index || !wall.adjoin(own, other))
                continue;
            const QRectF &rect = neighbour.millimetres;
            edges.setFlag(Qt::LeftEdge,
                          edges.testFlag(Qt::LeftEdge) || rect.left() < all.left() - CWall::Tolerance);
            edges.setFlag(Qt::RightEdge,
                          edges.testFlag(Qt::RightEdge) || rect.right() > all.right() + CWall::Tolerance);
            edges.setFlag(Qt::TopEdge,
                          edges.testFlag(Qt::TopEdge) || rect.top() < all.top() - CWall::Tolerance);
            edges.setFlag(Qt::BottomEdge,
                          edges.testFlag(Qt::BottomEdge) || rect.bottom() > all.bottom() + CWall::Tolerance);
        }
    }
    return edges;
}

void PortFringe::draw(SSheet &sheet, const SPartView &view, const QVector<QRectF> &obstacles)
{
    QMap<int, QVector<SPiece>> pieces;
    QVector<QLineF> edges;
    for (int own : view.part.owned) {
        edges += view.placing.map(view.wall.borders(own, true));
        for (int other : view.wall.touching(own)) {
            const SPlanCabinet &neighbour = view.wall.cabinets().at(other);
            if (neighbour.port == view.port.index || !view.wall.adjoin(own, other))
                continue;
            const SPiece piece = pieceOf(neighbour.port, view.rect(own), view.rect(other));
            if (piece.rect.isEmpty())
                continue; // the two lie over each other
            DrawnMarks::box(sheet, piece.rect, FringeFill, BorderWidth, FringeBorder);
            pieces[neighbour.port] << piece;
            edges += clipped(view.placing.map(view.wall.borders(other, true)), piece.rect);
        }
    }
    QVector<QRectF> taken = obstacles;
    for (auto port = pieces.cbegin(); port != pieces.cend(); ++port)
        placeName(sheet, port.key(), runs(*port), taken);
    DrawnMarks::lines(sheet, edges, EdgeWidth);
}
