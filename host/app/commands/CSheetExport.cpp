// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CSheetExport.h"

#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CSafeFile.h"
#include "layout/api/records/PortPairs.h"
#include "layout/printing/figures/SPartsTally.h"
#include "layout/printing/lists/CSheetSet.h"

#include <algorithm>

namespace {

/// The loads of all ports as the processor would compute them.
void giveLoads(SPrintedProcessor &printed, const SProcessorProject &project)
{
    const CProcessorKinds &kinds = CProcessorKinds::builtIn();
    const SProcessorKind *kind = kinds.find(project.kind);
    printed.kind = kind ? kind->name : QString();
    if (!kind)
        kind = kinds.withPorts(project.portCount);
    if (!kind)
        return;
    printed.pixelLimit = kind->pixelLimit;
    printed.bitsPerPixel = kind->generation.wireBits.value(project.colorDepth);
    printed.bitsPerSecond = kind->generation.netBitsPerSecond;
    printed.loads = CPortCapacity::loads(*kind, {project.frameRate, project.colorDepth, false},
                                         project.layout, project.portCount);
}

/// A redundancy port has the load of its primary, also of one in another project.
void giveLoadsOfPrimaries(QVector<SPrintedProcessor> &processors)
{
    const QVector<SPrintedProcessor> own = processors;
    const auto find = [&own](const QUuid &processor) {
        return std::find_if(own.begin(), own.end(),
                            [&](const auto &p) { return p.layout.processor == processor; });
    };
    const auto layoutOf = [&](const QUuid &processor) {
        const auto found = find(processor);
        return found == own.end() ? CabinetLayout() : found->layout;
    };
    for (SPrintedProcessor &printed : processors) {
        for (const PortPairs::Port &port : std::as_const(printed.layout.ports)) {
            const auto primary = PortPairs::partner(printed.layout, port, layoutOf);
            const auto at = find(PortPairs::partnerKey(printed.layout, port).processor);
            if (port.redundancy == PortPairs::Port::Redundant && primary && at != own.end())
                printed.loads[port.index] = at->loads.value(primary->index);
        }
    }
}

} // namespace

SPrintInput CSheetExport::inputOf(const QVector<SProcessorProject> &projects, const QVector<Pair> &pairs)
{
    SPrintInput input;
    for (const SProcessorProject &project : projects) {
        SPrintedProcessor printed;
        printed.node.uuid = project.layout.processor;
        printed.node.name = project.name;
        printed.node.address = 0;
        printed.layout = project.layout;
        printed.canvas = project.canvas;
        printed.portCount = project.portCount;
        printed.frameRate = project.frameRate;
        printed.colorDepth = project.colorDepth;
        giveLoads(printed, project);
        input.processors << printed;
    }
    for (const Pair &pair : pairs) {
        input.processors[pair.first].redundancy = projects.at(pair.second).layout.processor;
        input.processors[pair.second].primary = projects.at(pair.first).layout.processor;
    }
    giveLoadsOfPrimaries(input.processors);
    input.library = CTypeLibrary::builtIn().nodes();
    return input;
}

CResult<QStringList> CSheetExport::write(const SPrintInput &input, const SPrintJob &job, const QString &file,
                                         int dotsPerInch, QStringList &warnings)
{
    return CSafeFile::withMemory(file, [&]() -> CResult<QStringList> {
        const SPrintPlan plan = SPrintPlan::of(input, job);
        const auto sheets = CSheetSet::of(plan);
        if (!sheets)
            return CResult<QStringList>::failure(sheets.error());
        warnings << CSheetWriter::scaleProblem(sheets.value()) << SPartsTally::of(plan).warning();
        warnings.removeAll(QString());
        const PrintConfig &whole = job.whole;
        const CSheetWriter::SOrder order{file, whole.project.isEmpty() ? tr("Wiring plan") : whole.project,
                                         whole.date, dotsPerInch};
        return CSheetWriter::write(sheets.value(), order, [](const QString &name, const QByteArray &content) {
            return CSafeFile::write(name, content, CSafeFile::DropPrevious).error();
        });
    });
}
