// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/printing/SheetChecks.h"

#include "layout/printing/graphics/COverviewSheets.h"
#include "layout/printing/graphics/CPortSheets.h"
#include "tests/printing/SheetTexts.h"

#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace SheetChecks;

namespace {

QRectF areaOf(const SSheetText &text)
{
    QTransform turn;
    turn.translate(text.box.center().x(), text.box.center().y());
    turn.rotate(text.turned);
    return turn.mapRect(text.box.translated(-text.box.center()));
}

QRectF areaOf(const SSheetFill &fill)
{
    return fill.path.boundingRect();
}

QRectF areaOf(const SSheetStroke &stroke)
{
    const double half = stroke.width / 2;
    return stroke.path.boundingRect().adjusted(-half, -half, half, half);
}

/// The straight pieces of the hops, feed and loop of a port sheet.
QVector<QRectF> hopsOf(const SSheet &sheet)
{
    QVector<QRectF> pieces;
    for (const SSheetMark &mark : sheet.marks) {
        const auto *stroke = std::get_if<SSheetStroke>(&mark);
        const bool wire = stroke && (!stroke->dashes.isEmpty() || qFuzzyCompare(stroke->width, 0.8) ||
                                     qFuzzyCompare(stroke->width, 0.5) || qFuzzyCompare(stroke->width, 1.4));
        if (!wire)
            continue;
        const double half = stroke->width / 2;
        for (const QPolygonF &line : stroke->path.toSubpathPolygons()) {
            for (int i = 0; i + 1 < line.size() && !line.isClosed(); ++i)
                pieces << QRectF(line[i], line[i + 1]).normalized().adjusted(-half, -half, half, half);
        }
    }
    return pieces;
}

} // namespace

PrintConfig SheetChecks::configOf(PrintConfig::Paper paper, bool landscape)
{
    PrintConfig config;
    config.paper = paper;
    config.landscape = landscape;
    config.farEnd = QStringLiteral("Spare (192.168.10.32)");
    return config;
}

QVector<SSheet> SheetChecks::drawings(const SPrintPlan &plan)
{
    QVector<SSheet> sheets;
    for (int i = 0; i < plan.processors.size(); ++i) {
        const SSheetArea area = SSheetArea::of(plan.processors[i].config);
        const CWall wall(plan, i);
        const auto overview = COverviewSheets(wall, area).sheets(1, 2);
        const auto ports = CPortSheets(wall, area).sheets(2);
        if (!overview || !ports)
            return {};
        sheets += overview.value() + ports.value();
    }
    return sheets;
}

QStringList SheetChecks::textsOf(const SSheet &sheet, EMark mark)
{
    QStringList texts;
    for (const SSheetText &text : SheetTexts::of(sheet)) {
        if (text.mark == mark)
            texts << text.text;
    }
    return texts;
}

QString SheetChecks::faultOf(const SSheet &sheet)
{
    const QRectF frame = sheet.frame.adjusted(-Hair, -Hair, Hair, Hair);
    for (const SSheetMark &mark : sheet.marks) {
        const QRectF area = std::visit([](const auto &known) { return areaOf(known); }, mark);
        if (!frame.contains(area))
            return QStringLiteral("outside the frame: %1, %2, %3 x %4")
                .arg(area.left())
                .arg(area.top())
                .arg(area.width())
                .arg(area.height());
    }
    const QVector<SSheetText> texts = SheetTexts::of(sheet);
    const QVector<QRectF> hops = hopsOf(sheet);
    for (int i = 0; i < texts.size(); ++i) {
        const bool label = sheet.port >= 0 && texts[i].mark >= EMark::CabinetNumber &&
                           (texts[i].mark <= EMark::Tag || texts[i].mark == EMark::Ruler);
        if (label && std::any_of(hops.begin(), hops.end(),
                                 [&](const QRectF &hop) { return hop.intersects(texts[i].box); }))
            return texts[i].text + QStringLiteral(" over a hop");
        if (texts[i].points < Smallest)
            return QStringLiteral("too small: ") + texts[i].text;
        const QRectF area = areaOf(texts[i]).adjusted(Hair, Hair, -Hair, -Hair);
        for (int j = 0; j < i; ++j) {
            if (areaOf(texts[j]).intersects(area))
                return texts[i].text + QStringLiteral(" over ") + texts[j].text;
        }
    }
    return {};
}

QVector<int> SheetChecks::numbersOf(const QVector<SSheet> &sheets, const QString &processor, int port)
{
    QVector<int> numbers;
    for (const SSheet &sheet : sheets) {
        if (sheet.port != port || sheet.processor != processor)
            continue;
        for (const QString &text : textsOf(sheet, EMark::CabinetNumber))
            numbers << text.toInt();
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QVector<int> SheetChecks::upTo(int last)
{
    QVector<int> numbers(last);
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

GraphicsWalls::SWallKind SheetChecks::onePort(int columns, int rows)
{
    return {{columns, rows}, {128, 128}, {500, 500}, {columns, rows}};
}

QVector<QRectF> SheetChecks::cabinetsOf(const SSheet &sheet)
{
    QVector<QRectF> rects;
    for (const SSheetMark &mark : sheet.marks) {
        const auto *stroke = std::get_if<SSheetStroke>(&mark);
        if (stroke && qFuzzyCompare(stroke->width, 0.35))
            rects << stroke->path.boundingRect();
    }
    return rects;
}
