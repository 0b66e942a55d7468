// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CPortSheets.h"

#include "layout/printing/graphics/CPortDrawing.h"
#include "layout/printing/graphics/CabinetLabels.h"
#include "layout/printing/graphics/DrawnViews.h"
#include "layout/printing/graphics/SPartView.h"
#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <algorithm>

namespace {

constexpr double PanelGap = 4; // millimetres between drawing and panel
constexpr double TitleHeight = 17;

/// From which side on the cabinets of a port can be labelled, millimetres of the paper.
double smallestSide(const CWall &wall, const SPlanPort &port)
{
    const auto column = [&](int place) {
        return wall.cabinets().at(port.chain.at(place)).millimetres.center().x();
    };
    bool upright = false; // a wire from top to bottom
    for (int i = 2; i < port.chain.size() && !upright; ++i)
        upright = CWall::isSame(column(i - 2), column(i - 1)) && CWall::isSame(column(i - 1), column(i));
    return CabinetLabels::smallestSide(port.chain.size(), upright);
}

} // namespace

CPortSheets::CPortSheets(const CWall &wall, const SSheetArea &area)
    : m_wall(wall)
    , m_area(area)
    , m_views(DrawnViews::of(wall.processor().config))
{
}

double CPortSheets::trueScale(const SPlanPort &port) const
{
    const int scale = m_wall.processor().config.scale;
    const double side = SPartView::shortestSide(m_wall, CWall::cabinetsOf(port));
    return scale > 0 && side / scale >= smallestSide(m_wall, port) ? 1.0 / scale : 0;
}

QRectF CPortSheets::drawingRoom(const CPortPanel &panel, bool beside) const
{
    const QRectF content = m_area.content.adjusted(0, TitleHeight, 0, 0);
    if (beside)
        return content.adjusted(0, 0, -CPortPanel::BesideWidth - PanelGap, 0);
    return content.adjusted(0, 0, 0, -panel.height(content.width()) - PanelGap);
}

double CPortSheets::fittingScale(const SPlanPort &port, const QVector<SWallPart> &parts,
                                 const QSizeF &room) const
{
    double smallest = 1e9;
    for (const SWallPart &part : parts)
        smallest = std::min(smallest, CPortDrawing(m_wall, port, part, false).fittingScale(room));
    return smallest;
}

CPortSheets::SDivision CPortSheets::division(const SPlanPort &port, const CPortPanel &panel) const
{
    // At true scale the cabinets are as large as they are: then the drawing only has to fit.
    const double fixed = trueScale(port);
    if (fixed > 0)
        return division(port, panel, fixed);
    const double side = std::max(SPartView::shortestSide(m_wall, CWall::cabinetsOf(port)), 1.0);
    // Smaller than it should be is better than nothing: long strips have no room for more.
    const double usual = smallestSide(m_wall, port);
    for (double least : {usual, CabinetLabels::SmallestSide / 2, CabinetLabels::SmallestSide / 4, 0.1}) {
        const SDivision divided = division(port, panel, least / side);
        if (!divided.parts.isEmpty())
            return divided;
    }
    return {};
}

CPortSheets::SDivision CPortSheets::division(const SPlanPort &port, const CPortPanel &panel,
                                             double least) const
{
    const QVector<int> cabinets = CWall::cabinetsOf(port);
    const double content = m_area.content.height() - TitleHeight;
    SDivision best;
    double bestScale = 0;
    for (bool beside : {false, true}) {
        const QSizeF room = drawingRoom(panel, beside).size();
        if (room.width() <= 0 || room.height() <= 0 ||
            (beside && panel.height(CPortPanel::BesideWidth) > content))
            continue;
        const QVector<SWallPart> parts =
            SheetSplit::fewest(m_wall, cabinets, least, [&](const QVector<SWallPart> &tried) {
                return fittingScale(port, tried, room);
            });
        if (parts.isEmpty())
            continue;
        const double scale = fittingScale(port, parts, room);
        const bool fewer = best.parts.isEmpty() || parts.size() < best.parts.size();
        if (fewer || (parts.size() == best.parts.size() && scale > bestScale)) {
            best = {parts, beside};
            bestScale = scale;
        }
    }
    return best;
}

QString CPortSheets::summary(const SPlanPort &port, int part, int parts) const
{
    const int count = port.chain.size() + port.unwired.size();
    QString text = count == 1 ? tr("1 cabinet") : tr("%1 cabinets").arg(SheetNumbers::whole(count));
    if (port.chain.size() > 1)
        text += tr(", 1 to %1").arg(SheetNumbers::whole(port.chain.size()));
    const auto &all = m_wall.cabinets();
    const QVector<int> cabinets = CWall::cabinetsOf(port);
    const int type = all.at(cabinets.first()).type;
    if (std::all_of(cabinets.begin(), cabinets.end(), [&](int i) { return all.at(i).type == type; }))
        text += tr(", type %1").arg(m_wall.plan().types.at(type).letter);
    if (!port.unwired.isEmpty())
        text += tr(", %1 not wired").arg(SheetNumbers::whole(port.unwired.size()));
    if (port.redundant)
        text += tr(", redundancy port");
    text += tr(". Load %1 %.").arg(port.load);
    if (parts > 1)
        text += tr(" Part %1 of %2.").arg(part + 1).arg(parts);
    return text;
}

SSheet CPortSheets::sheet(const SPlanPort &port, const CPortPanel &panel, const SDivision &division, int part,
                          SSheet::View view, int first) const
{
    const double fixed = trueScale(port);
    SSheet sheet = DrawnViews::sheet(m_wall, m_area, view, port.index, fixed > 0,
                                     summary(port, part, division.parts.size()));
    const QRectF room = drawingRoom(panel, division.beside);
    CPortDrawing drawing(m_wall, port, division.parts.at(part), view == SSheet::Back);
    const double shown = fixed > 0 ? fixed : drawing.fittingScale(room.size());
    const int views = m_views.size();
    drawing.draw(sheet, room, shown,
                 [&](int other) { return first + other * views + m_views.indexOf(view); });
    const QRectF content = m_area.content;
    QRectF beneath = content;
    if (division.beside) {
        beneath.setLeft(room.right() + PanelGap);
        beneath.setTop(room.top());
    } else {
        beneath.setTop(room.bottom() + PanelGap);
        SheetMarks::line(sheet, beneath.topLeft() - QPointF(0, 2), beneath.topRight() - QPointF(0, 2), 0.25);
    }
    panel.draw(sheet, beneath, division.parts.at(part).owned);
    return sheet;
}

QString CPortSheets::problemOf(const SPlanPort &port) const
{
    const SPlanProcessor &processor = m_wall.processor();
    const QString paper = SSheetArea::nameOf(processor.config);
    if (trueScale(port) <= 0)
        return tr("Port %1 of %2 cannot be drawn on %3, not even one cabinet a sheet. Choose larger paper.")
            .arg(port.index + 1)
            .arg(processor.name, paper);
    const auto area = [&](int cabinet) {
        const QSizeF size = m_wall.cabinets().at(cabinet).millimetres.size();
        return size.width() * size.height();
    };
    const QVector<int> cabinets = CWall::cabinetsOf(port);
    const int largest =
        *std::max_element(cabinets.begin(), cabinets.end(), [&](int a, int b) { return area(a) < area(b); });
    return tr("At 1:%1, cabinet %2 of %3, port %4, has no room on a sheet of %5. Choose larger paper or a "
              "smaller "
              "scale.")
        .arg(processor.config.scale)
        .arg(m_wall.cabinets().at(largest).place(), processor.name)
        .arg(port.index + 1)
        .arg(paper);
}

CResult<QVector<SSheet>> CPortSheets::sheets(int first) const
{
    QVector<SSheet> all;
    for (const SPlanPort *port : m_wall.ports()) {
        const CPortPanel panel(m_wall, *port, m_area.content.height() - TitleHeight);
        const SDivision divided = division(*port, panel);
        if (divided.parts.isEmpty())
            return CResult<QVector<SSheet>>::failure(problemOf(*port));
        const int begin = first + all.size();
        for (int part = 0; part < divided.parts.size(); ++part) {
            for (SSheet::View view : m_views)
                all << sheet(*port, panel, divided, part, view, begin);
        }
    }
    return all;
}
