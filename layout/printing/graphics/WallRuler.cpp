// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/WallRuler.h"

#include "layout/printing/graphics/DrawnMarks.h"
#include "layout/printing/sheets/SheetMarks.h"

#include <QCoreApplication>
#include <QMap>

#include <algorithm>
#include <cmath>

namespace {

constexpr double ColumnPoints = 8.5;
constexpr double MillimetrePoints = 7.5;
constexpr double NamePoints = 8;
// Millimetres above the lower end.
constexpr double ColumnMiddle = 3;
constexpr double TickEnd = 4.5;
constexpr double NumberMiddle = 6.3;
constexpr double TickWidth = 0.25;
constexpr double RulerGap = 1;

/// Every how many-th of @p texts, @p pitch apart, can be shown without touching the next.
int stepFor(double widest, double pitch)
{
    return std::max(1, int(std::ceil((widest + RulerGap) / std::max(pitch, 0.01))));
}

double shortest(const QVector<WallRuler::SStretch> &stretches)
{
    double pitch = stretches.isEmpty() ? 0 : stretches.first().to - stretches.first().from;
    for (const WallRuler::SStretch &stretch : stretches)
        pitch = std::min(pitch, stretch.to - stretch.from);
    return pitch;
}

void drawDistances(SSheet &sheet, const SPartView &view, const QVector<WallRuler::SStretch> &columns,
                   double bottom)
{
    QMap<int, double> places; // millimetres of the wall → of the paper
    const auto add = [&](double paper) {
        const QPointF wall = view.placing.transform().inverted().map(QPointF(paper, 0));
        places.insert(qRound(wall.x()), paper);
    };
    for (const WallRuler::SStretch &column : columns) {
        add(column.from);
        add(column.to);
    }
    QVector<QLineF> ticks;
    double last = -1e9; // end of the last text
    double first = 1e9;
    for (auto place = places.cbegin(); place != places.cend(); ++place) {
        ticks << QLineF(*place, bottom - TickEnd, *place, bottom);
        const QString text = place.key() == places.firstKey()
                                 ? QCoreApplication::translate("WallRuler", "%1 mm").arg(place.key())
                                 : QString::number(place.key());
        QRectF box = DrawnMarks::room(text, MillimetrePoints, false);
        box.moveCenter(QPointF(*place, bottom - NumberMiddle));
        if (box.left() < last + RulerGap && box.right() > first - RulerGap)
            continue;
        last = std::max(last, box.right());
        first = std::min(first, box.left());
        DrawnMarks::text(sheet, box, text, MillimetrePoints, false, EMark::Ruler);
    }
    DrawnMarks::lines(sheet, ticks, TickWidth);
}

} // namespace

QVector<WallRuler::SStretch> WallRuler::stretches(const CWall &wall, const QVector<int> &cabinets,
                                                  const SPlacing &placing, bool columns)
{
    // From where the first of a column begins to where the next one begins, or the last one ends.
    QMap<int, QPair<double, double>> spans;
    for (int index : cabinets) {
        const SPlanCabinet &cabinet = wall.cabinets().at(index);
        const QRectF rect = placing.map(cabinet.millimetres);
        const double from = columns ? rect.left() : rect.top();
        const double to = columns ? rect.right() : rect.bottom();
        const auto known = spans.constFind(columns ? cabinet.column : cabinet.row);
        if (known == spans.constEnd())
            spans.insert(columns ? cabinet.column : cabinet.row, qMakePair(from, to));
        else // the shortest: a wider one reaches into the next
            spans[known.key()] = qMakePair(std::max(from, known->first), std::min(to, known->second));
    }
    QVector<SStretch> result;
    for (auto span = spans.cbegin(); span != spans.cend(); ++span) {
        if (span->second > span->first)
            result << SStretch{span.key(), span->first, span->second};
    }
    return result;
}

void WallRuler::drawNames(SSheet &sheet, const QVector<SStretch> &stretches, bool columns, double middle)
{
    const QString form = columns ? QStringLiteral("c%1") : QStringLiteral("r%1");
    QRectF widest;
    for (const SStretch &stretch : stretches)
        widest |= DrawnMarks::room(form.arg(stretch.ordinal), NamePoints, false);
    const int step = stepFor(columns ? widest.width() : widest.height(), shortest(stretches));
    for (const SStretch &stretch : stretches) {
        if ((stretch.ordinal - 1) % step != 0)
            continue;
        const double along = (stretch.from + stretch.to) / 2;
        DrawnMarks::centred(sheet, columns ? QPointF(along, middle) : QPointF(middle, along),
                            form.arg(stretch.ordinal), NamePoints, false, EMark::Ruler);
    }
}

void WallRuler::drawColumns(SSheet &sheet, const SPartView &view, double bottom)
{
    const QVector<SStretch> columns = stretches(view.wall, view.part.owned, view.placing, true);
    const QString form = QCoreApplication::translate("WallRuler", "column %1");
    double widest = 0;
    for (const SStretch &column : columns)
        widest = std::max(widest, DrawnMarks::room(form.arg(column.ordinal), ColumnPoints, true).width());
    if (widest + RulerGap > shortest(columns)) {
        drawNames(sheet, columns, true, bottom - ColumnMiddle);
    } else {
        for (const SStretch &column : columns)
            DrawnMarks::centred(sheet, QPointF((column.from + column.to) / 2, bottom - ColumnMiddle),
                                form.arg(column.ordinal), ColumnPoints, true, EMark::Ruler);
    }
    drawDistances(sheet, view, columns, bottom);
}
