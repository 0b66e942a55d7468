// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/lists/CCoverTotals.h"

#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>

namespace {

using SheetNumbers::decimal;
using SheetNumbers::whole;

constexpr double TotalsTitle = 6.4; // millimetres
constexpr double TotalsBase = 4.4;
constexpr double LineHeight = 6.5;
constexpr double NoteLine = 3.8; ///< of each further line of a note
constexpr double ValueEnd = 56;  ///< where the values of the totals end, from the left
constexpr double NoteLeft = ValueEnd + 3;
constexpr int MostProcessors = 4; ///< that are named one by one

} // namespace

CCoverTotals::CCoverTotals(const SPrintPlan &plan, CTableFlow &flow)
    : m_plan(plan)
    , m_flow(flow)
{
}

void CCoverTotals::addLine(const QString &name, const QString &value, const QString &note)
{
    const double width = m_flow.room().width() - NoteLeft;
    double points = SheetMarks::TablePoints; // smaller rather than on two lines
    while (points > SheetMarks::CaptionPoints && CSheetFont::width(note, points, false) > width)
        points -= 0.5;
    QStringList lines = CSheetFont::lines(note, points, false, width);
    if (lines.size() > 1) {
        points = SheetMarks::TablePoints;
        lines = CSheetFont::lines(note, points, false, width);
    }
    const double height = LineHeight + (lines.size() - 1) * NoteLine;
    if (m_flow.room().height() < height)
        m_flow.nextColumn();
    const QRectF room = m_flow.room();
    SSheet &sheet = m_flow.sheet();
    const double base = room.top() + 4.5;
    SheetMarks::textAt(sheet, room.left() + 1, base, name, SheetMarks::FactPoints, false, EMark::Fact);
    const double valueWidth = CSheetFont::width(value, 10.5, true);
    SheetMarks::textAt(sheet, room.left() + ValueEnd - valueWidth, base, value, 10.5, true, EMark::Fact);
    const double left = room.left() + NoteLeft;
    for (int i = 0; i < lines.size(); ++i)
        SheetMarks::textAt(sheet, left, base + i * NoteLine, lines.at(i), points, false, EMark::Fact);
    m_flow.setTop(room.top() + height);
}

void CCoverTotals::endLines(double width)
{
    const QRectF room = m_flow.room();
    SheetMarks::line(m_flow.sheet(), room.topLeft(), room.topRight(), width);
}

void CCoverTotals::addProcessors()
{
    const int count = m_plan.processors.size();
    for (int i = 0; i < std::min(count, MostProcessors); ++i) {
        const SPlanProcessor &processor = m_plan.processors.at(i);
        const QString kind =
            processor.source.kind.isEmpty() ? QString() : tr(", kind %1").arg(processor.source.kind);
        const QString role =
            processor.primary.isEmpty() ? QString() : tr(", redundancy of %1").arg(processor.primary);
        addLine(i == 0 ? tr("Processors") : QString(), i == 0 ? whole(count) : QString(),
                processor.name + kind + role);
    }
    if (count > MostProcessors)
        addLine({}, {}, tr("and %1 more").arg(count - MostProcessors));
    QStringList ends;
    for (const SPlanProcessor &processor : m_plan.processors)
        ends << processor.farEnd;
    for (const SPlanProcessor &processor : m_plan.processors)
        ends.removeAll(processor.name); // is counted already
    ends.removeAll(QString());
    ends.removeDuplicates();
    for (int i = 0; i < std::min(ends.size(), MostProcessors); ++i)
        addLine({}, i == 0 ? tr("+ %1").arg(ends.size()) : QString(), tr("redundancy: %1").arg(ends.at(i)));
    endLines(0.18);
}

void CCoverTotals::addPower(const QString &name, qint64 watts, bool complete)
{
    if (watts == 0 && !complete) {
        addLine(name, tr("unknown"), tr("no type of the cabinets tells it"));
        return;
    }
    const PrintConfig::SSupply &supply = m_plan.config.supply;
    QString note =
        tr("%1 A at %2 V").arg(decimal(SPlanTotals::amperes(watts, supply.volts), 1)).arg(supply.volts);
    if (supply.phases > 1)
        note += tr("; %1 A on each of %2 phases")
                    .arg(decimal(SPlanTotals::amperes(watts, supply.volts * supply.phases), 1))
                    .arg(supply.phases);
    if (!complete)
        note = tr("some unknown; %1").arg(note);
    addLine(name, tr("%1 W").arg(whole(watts)), note);
}

void CCoverTotals::addLoad()
{
    int most = 0;
    const SPlanPort *fullest = nullptr;
    const SPlanProcessor *of = nullptr;
    for (const SPlanProcessor &processor : m_plan.processors) {
        for (const SPlanPort &port : processor.ports) {
            if (!port.isUsed() || (fullest && port.load <= most))
                continue;
            most = port.load;
            fullest = &port;
            of = &processor;
        }
    }
    if (!fullest)
        return;
    const QString where =
        m_plan.processors.size() > 1
            ? tr("%1, port %2").arg(of->source.node.name, QString::number(fullest->index + 1))
            : tr("port %1").arg(fullest->index + 1);
    addLine(tr("Load at most"), tr("%1 %").arg(most),
            tr("%1: %2 of %3 pixels").arg(where, whole(fullest->charged), whole(fullest->capacity)));
}

void CCoverTotals::add()
{
    const SPlanTotals &totals = m_plan.totals;
    const QRectF room = m_flow.room();
    SheetMarks::textAt(m_flow.sheet(), room.left(), room.top() + TotalsBase, tr("Totals"),
                       SheetMarks::TitleBlockPoints, true, EMark::Title);
    m_flow.setTop(room.top() + TotalsTitle);
    endLines(0.5);
    addProcessors();
    int ports = 0;
    for (const SPlanProcessor &processor : m_plan.processors)
        ports += processor.ports.size();
    const int free = ports - totals.ports;
    const QString rest = free == 0   ? tr("none is free")
                         : free == 1 ? tr("1 is free")
                                     : tr("%1 are free").arg(free);
    addLine(tr("Output ports"), whole(totals.ports), tr("of %1, %2").arg(ports).arg(rest));
    endLines(0.18);
    const bool one = m_plan.processors.size() == 1;
    const SPlanProcessor *first = m_plan.processors.isEmpty() ? nullptr : &m_plan.processors.first();
    const QString types = m_plan.types.size() == 1 ? tr("all of type %1").arg(m_plan.types.first().letter)
                                                   : tr("of %1 types").arg(m_plan.types.size());
    addLine(tr("Cabinets"), whole(totals.cabinets),
            one ? tr("%1, %2 columns \u00d7 %3 rows").arg(types).arg(first->columns).arg(first->rows)
                : types);
    endLines(0.18);
    addLine(tr("Pixels"), whole(totals.pixels),
            one ? tr("%1, %2 Hz, %3 bit")
                      .arg(SheetNumbers::sides(first->pixels.size()))
                      .arg(first->source.frameRate)
                      .arg(first->source.colorDepth)
                : QString());
    endLines(0.18);
    addLine(tr("Area"), tr("%1 m\u00b2").arg(decimal(totals.squareMetres, 2)),
            one ? tr("%1 mm").arg(SheetNumbers::sides(first->millimetres)) : QString());
    endLines(0.18);
    const auto isKnown = [this](auto figure) {
        return std::all_of(m_plan.types.begin(), m_plan.types.end(),
                           [figure](const SPlanType &type) { return type.*figure > 0; });
    };
    addLine(tr("Weight"),
            totals.kilograms > 0 ? tr("%1 kg").arg(decimal(totals.kilograms, 1)) : tr("unknown"),
            isKnown(&SPlanType::kilograms) ? tr("cabinets alone, without rigging and cables")
                                           : tr("without cabinets whose weight is not known"));
    endLines(0.18);
    addPower(tr("Power, maximum"), totals.wattsMaximum, isKnown(&SPlanType::wattsMaximum));
    endLines(0.18);
    addPower(tr("Power, average"), totals.wattsAverage, isKnown(&SPlanType::wattsAverage));
    endLines(0.18);
    addLoad();
    endLines(0.5);
    m_flow.setTop(m_flow.room().top() + 2);
}
