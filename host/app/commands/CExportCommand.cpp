// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CExportCommand.h"

#include "host/app/commands/CCommandArguments.h"
#include "host/app/commands/CLayoutExport.h"
#include "host/app/commands/SCommandOutcome.h"
#include "host/projects/CProcessorProject.h"
#include "layout/api/records/LayoutData.h"

#include <QFileInfo>
#include <QTextStream>

namespace {

const QString sizeOption = QStringLiteral("--size");

LayoutData dataOf(const SProcessorProject &project)
{
    LayoutData data;
    data.processor = project.layout.processor;
    data.layout = project.layout;
    data.canvas = project.canvas;
    data.bounds = project.layout.boundingRect();
    return data;
}

/// Why this export is not possible; empty if it is.
QString kindProblem(const QString &file, bool sized)
{
    const QString suffix = QFileInfo(file).suffix().toLower();
    if (suffix == QLatin1String("svg") || suffix == QLatin1String("pdf"))
        return CExportCommand::tr("export as %1 is not available in this version; use png or csv")
            .arg(suffix.toUpper());
    const CLayoutExport::Kind kind = CLayoutExport::kindOf(file);
    if (kind == CLayoutExport::Unknown)
        return CExportCommand::tr("the name of the export must end in .png, .svg, .pdf or .csv");
    if (kind == CLayoutExport::Table && sized)
        return CExportCommand::tr("only a picture has a size");
    return {};
}

} // namespace

SCommandOutcome CExportCommand::run(const QStringList &arguments, QTextStream &out)
{
    const auto parsed = CCommandArguments::parse(arguments, {sizeOption}, 2);
    if (!parsed)
        return SCommandOutcome::usage(parsed.error());
    const QString target = parsed.value().file(1);
    const bool sized = parsed.value().has(sizeOption);
    QString error = kindProblem(target, sized);
    const QSize size =
        sized ? parsed.value().size(sizeOption, CLayoutExport::LargestPictureSide, error) : QSize();
    if (qint64(size.width()) * size.height() > CLayoutExport::LargestPicture)
        error = tr("a picture has at most %1 pixels").arg(CLayoutExport::LargestPicture);
    if (!error.isEmpty())
        return SCommandOutcome::usage(error);

    const CResult<SProcessorProject> project = CProcessorProject::read(parsed.value().file(0));
    if (!project)
        return SCommandOutcome::badInput(project.error());
    const LayoutData data = dataOf(project.value());
    const CStatus written = CLayoutExport::write(data, target, size);
    if (!written)
        return SCommandOutcome::badInput(written.error());
    out << tr("%1: cabinets: %2\n").arg(target, QString::number(data.layout.cabinetCount()));
    return {};
}
