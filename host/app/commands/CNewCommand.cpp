// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CNewCommand.h"

#include "host/app/commands/CCommandArguments.h"
#include "host/app/commands/SCommandOutcome.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/projects/CFileLock.h"
#include "host/projects/CProcessorProject.h"
#include "host/projects/CWallBuilder.h"
#include "layout/api/records/LayoutLimits.h"
#include "layout/geometry/CSnakeOrder.h"

#include <QFileInfo>
#include <QTextStream>

namespace {

const QString cabinetOption = QStringLiteral("--cabinet");
const QString columnsOption = QStringLiteral("--columns");
const QString rowsOption = QStringLiteral("--rows");
const QString portsOption = QStringLiteral("--ports");
const QString patternOption = QStringLiteral("--pattern");

/// The plan described by the options; errors are wrong usage.
CResult<SWallPlan> planFrom(const CCommandArguments &arguments)
{
    QString error;
    SWallPlan plan;
    plan.name = QFileInfo(arguments.file(0)).completeBaseName();
    plan.cabinet = arguments.size(cabinetOption, LayoutLimits::LargestSide, error);
    plan.columns = arguments.number(columnsOption, 1, LayoutLimits::WidestCanvas, error);
    plan.rows = arguments.number(rowsOption, 1, LayoutLimits::TallestCanvas, error);
    plan.ports = arguments.number(portsOption, 1, CWallBuilder::MaximumPorts, error);
    if (arguments.has(patternOption))
        plan.pattern = arguments.number(patternOption, 0, CSnakeOrder::PatternCount - 1, error);
    if (!error.isEmpty())
        return CResult<SWallPlan>::failure(error);
    return plan;
}

SProcessorProject projectOf(const SWallPlan &plan, const CabinetLayout &layout)
{
    const SProcessorKind *kind = CProcessorKinds::builtIn().withPorts(plan.ports);
    SProcessorProject project = SProcessorProject::ofPlan(plan, layout);
    project.kind = kind ? kind->id : QString();
    return project;
}

} // namespace

SCommandOutcome CNewCommand::run(const QStringList &arguments, QTextStream &out)
{
    const auto parsed = CCommandArguments::parse(
        arguments, {cabinetOption, columnsOption, rowsOption, portsOption, patternOption}, 1);
    if (!parsed)
        return SCommandOutcome::usage(parsed.error());
    const QString file = parsed.value().file(0);
    if (!file.endsWith(QLatin1String(".sprj"), Qt::CaseInsensitive))
        return SCommandOutcome::usage(
            tr("the name of the project file must end in .sprj, not \"%1\"").arg(file));
    const CResult<SWallPlan> plan = planFrom(parsed.value());
    if (!plan)
        return SCommandOutcome::usage(plan.error());
    const CResult<CabinetLayout> layout = CWallBuilder::build(plan.value());
    if (!layout)
        return SCommandOutcome::badInput(layout.error());
    const SProcessorProject project = projectOf(plan.value(), layout.value());
    CFileLock lock(file);
    if (lock.isHeld())
        return SCommandOutcome::held(file, lock.holder());
    const CStatus written = CProcessorProject::write(file, project);
    if (!written)
        return SCommandOutcome::badInput(written.error());
    const QSize canvas = project.canvas;
    out << tr("%1: cabinets: %2, ports: %3, canvas: %4\n")
               .arg(file, QString::number(plan.value().cabinetCount()), QString::number(plan.value().ports),
                    QStringLiteral("%1x%2").arg(canvas.width()).arg(canvas.height()));
    return {};
}
