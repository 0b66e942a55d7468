// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/printing/SheetJobs.h"

#include "host/app/commands/CSheetExport.h"
#include "layout/printing/lists/CSheetSet.h"
#include "tests/projects/ProjectSamples.h"

PrintConfig SheetJobs::configOf(PrintConfig::Paper paper, bool landscape)
{
    PrintConfig config;
    config.project = QStringLiteral("Stadion S\u00fcdkurve");
    config.watermark = QStringLiteral("DRAFT");
    config.farEnd = QStringLiteral("Main stage B (192.168.10.32)");
    config.notes = QStringLiteral("Wire from row 1 down.");
    config.date = QDate(2026, 5, 4);
    config.paper = paper;
    config.landscape = landscape;
    config.sheets =
        PrintConfig::Cover | PrintConfig::PortTable | PrintConfig::CabinetList | PrintConfig::PartsList;
    return config;
}

QVector<SSheet> SheetJobs::sheetsOf(const PrintConfig &config, const QVector<SProcessorProject> &projects)
{
    const auto sheets = CSheetSet::of(SPrintPlan::of(CSheetExport::inputOf(projects), {config, {}, {}}));
    return sheets ? sheets.value() : QVector<SSheet>();
}

QVector<SSheet> SheetJobs::someSheets(int kinds)
{
    PrintConfig config;
    config.date = QDate(2026, 5, 4);
    config.sheets = kinds;
    return sheetsOf(config, {ProjectSamples::ofWall(CWallBuilder::Small)});
}

SPrintInput SheetJobs::twoWalls()
{
    SProcessorProject medium = ProjectSamples::ofWall(CWallBuilder::Medium);
    SProcessorProject small = ProjectSamples::ofWall(CWallBuilder::Small);
    medium.name = QStringLiteral("Main");
    small.name = QStringLiteral("Side");
    return CSheetExport::inputOf({medium, small});
}
