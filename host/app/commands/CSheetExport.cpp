// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CSheetExport.h"

#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CSafeFile.h"
#include "layout/printing/lists/CSheetSet.h"
#include "layout/printing/output/SheetFiles.h"

#include <QFileInfo>

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;

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
    printed.loads = CPortCapacity::loads(*kind, {project.frameRate, project.colorDepth, false},
                                         project.layout, project.portCount);
}

void addTypes(SPrintInput &input, const CabinetLayout &layout)
{
    const CTypeLibrary &library = CTypeLibrary::builtIn();
    for (const Port &port : layout.ports) {
        for (const Port::Cabinet &cabinet : port.getAllCabinets()) {
            const QPair<int, int> size(cabinet.rect.width(), cabinet.rect.height());
            const bool bySize = cabinet.type.isNull();
            if (bySize ? input.alike.contains(size) : input.types.contains(cabinet.type))
                continue;
            const CTypeLibrary::RcvTypeInfo *info =
                bySize ? library.findBySize(cabinet.rect.size()) : library.find(cabinet.type);
            if (info && bySize)
                input.alike.insert(size, *info);
            else if (info)
                input.types.insert(cabinet.type, *info);
        }
    }
}

/// The names of the files: one, or one for each of @p count pictures.
QStringList namesOf(const QString &file, int count)
{
    if (count == 1)
        return {file};
    const QFileInfo info(file);
    const QString folder = file.left(file.size() - info.fileName().size());
    QStringList names;
    const int digits = QString::number(count).size();
    for (int i = 1; i <= count; ++i)
        names << QStringLiteral("%1%2-%3.%4")
                     .arg(folder, info.completeBaseName(),
                          QString::number(i).rightJustified(digits, QLatin1Char('0')), info.suffix());
    return names;
}

} // namespace

SPrintInput CSheetExport::inputOf(const QVector<SProcessorProject> &projects)
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
        addTypes(input, project.layout);
        input.processors << printed;
    }
    return input;
}

CResult<QStringList> CSheetExport::write(const SPrintInput &input, const SPrintJob &job, const QString &file,
                                         int dotsPerInch)
{
    using Names = CResult<QStringList>;
    return CSafeFile::withMemory(file, [&]() -> Names {
        const auto sheets = CSheetSet::of(SPrintPlan::of(input, job));
        if (!sheets)
            return Names::failure(sheets.error());
        const QString missing = SheetFiles::missingLetters(sheets.value());
        if (!missing.isEmpty())
            return Names::failure(tr("There is no font for the letters \"%1\": install one, for example "
                                     "fonts-noto-cjk for Chinese.")
                                      .arg(missing));
        const QString suffix = QFileInfo(file).suffix().toLower();
        const bool pdf = suffix == QLatin1String("pdf");
        const QString title = job.whole.project.isEmpty() ? tr("Wiring plan") : job.whole.project;
        const QStringList names = namesOf(file, pdf ? 1 : sheets.value().size());
        for (int i = 0; i < names.size(); ++i) {
            const SSheet &sheet = sheets.value().at(i);
            const QByteArray content = pdf ? SheetFiles::pdf(sheets.value(), title, job.whole.date)
                                       : suffix == QLatin1String("svg") ? SheetFiles::svg(sheet, title)
                                                                        : SheetFiles::png(sheet, dotsPerInch);
            if (content.isEmpty())
                return Names::failure(tr("There is not enough memory for the sheets."));
            const CStatus written = CSafeFile::write(names.at(i), content, CSafeFile::DropPrevious);
            if (!written)
                return Names::failure(written.error());
        }
        return names;
    });
}
