// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CCheckCommand.h"

#include "host/app/commands/CCommandArguments.h"
#include "host/app/commands/SCommandOutcome.h"
#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/projects/CLayoutCheck.h"
#include "host/projects/CProcessorProject.h"

#include <QTextStream>

SLayoutLimits CCheckCommand::limitsOf(const SProcessorProject &project)
{
    const CProcessorKinds &kinds = CProcessorKinds::builtIn();
    const SProcessorKind *kind = kinds.find(project.kind);
    if (!kind)
        kind = kinds.withPorts(project.portCount);
    SLayoutLimits limits;
    limits.portCount = project.portCount;
    if (!kind)
        return limits;
    limits.processorPixels = kind->pixelLimit;
    const auto loads = CPortCapacity::loads(*kind, {project.frameRate, project.colorDepth, false},
                                            project.layout, project.portCount);
    limits.portLoad = [loads](const CabinetLayout::CabinetPort &port) { return loads.value(port.index); };
    return limits;
}

SCommandOutcome CCheckCommand::run(const QStringList &arguments, QTextStream &out)
{
    const auto parsed = CCommandArguments::parse(arguments, {}, 1);
    if (!parsed)
        return SCommandOutcome::usage(parsed.error());
    const QString file = parsed.value().file(0);
    const CResult<SProcessorProject> project = CProcessorProject::read(file);
    if (!project)
        return SCommandOutcome::badInput(project.error());
    LayoutData data;
    data.layout = project.value().layout;
    data.canvas = project.value().canvas;
    const QVector<SLayoutFinding> findings = CLayoutCheck::findings(data, limitsOf(project.value()));
    for (const SLayoutFinding &finding : findings)
        out << finding.text << '\n';
    if (findings.isEmpty()) {
        out << tr("%1: nothing is wrong\n").arg(file);
        return {};
    }
    return SCommandOutcome::badInput(tr("%1: findings: %2").arg(file, QString::number(findings.size())));
}
