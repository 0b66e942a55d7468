// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/DrawnViews.h"

#include "layout/printing/sheets/SheetMarks.h"
#include "layout/printing/sheets/SheetNumbers.h"

#include <QCoreApplication>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("DrawnViews", text);
}

} // namespace

QVector<SSheet::View> DrawnViews::of(const PrintConfig &config)
{
    if (config.views == PrintConfig::BothViews)
        return {SSheet::Front, SSheet::Back};
    return {config.views == PrintConfig::BackView ? SSheet::Back : SSheet::Front};
}

SSheet DrawnViews::sheet(const CWall &wall, const SSheetArea &area, SSheet::View view, int port,
                         bool trueScale, const QString &beside)
{
    const int scale = wall.processor().config.scale;
    SSheet sheet;
    sheet.title = port < 0 ? translated("Overview") : translated("Port %1").arg(port + 1);
    sheet.ports = port < 0 ? translated("all") : QString::number(port + 1);
    sheet.processor = wall.processor().name;
    sheet.size = area.size;
    sheet.frame = area.frame;
    sheet.view = view;
    sheet.port = port;
    sheet.scale = trueScale ? QStringLiteral("1:%1").arg(scale) : translated("to fit");
    sheet.scaleMissed = !trueScale && scale > 0;
    SheetMarks::head(sheet, area.content, sheet.title, beside, true);
    return sheet;
}

QString DrawnViews::counted(const CWall &wall)
{
    const int ports = wall.processor().totals.ports; // also those that hold no cabinets, as on the cover
    const int cabinets = wall.cabinets().size();
    return translated("%1, %2").arg(
        ports == 1 ? translated("1 port") : translated("%1 ports").arg(SheetNumbers::whole(ports)),
        cabinets == 1 ? translated("1 cabinet")
                      : translated("%1 cabinets").arg(SheetNumbers::whole(cabinets)));
}
