// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CExportCommand.h"

#include "host/app/commands/CCheckCommand.h"
#include "host/app/commands/CCommandArguments.h"
#include "host/app/commands/CLayoutExport.h"
#include "host/app/commands/CPrintOptions.h"
#include "host/app/commands/CSheetExport.h"
#include "host/app/commands/SCommandOutcome.h"
#include "host/projects/CLayoutCheck.h"
#include "host/projects/CProcessorProject.h"
#include "layout/api/records/LayoutData.h"

#include <QFileInfo>
#include <QTextStream>

namespace {

const QString sizeOption = QStringLiteral("--size");
const QString dotsOption = QStringLiteral("--dpi");
const QString sheetsOption = QStringLiteral("--sheets");
const QString addressOption = QStringLiteral("--address");
const QString pitchOption = QStringLiteral("--pitch");
const QString keepOption = QStringLiteral("--keep");
const QString pairsOption = QStringLiteral("--pairs");
constexpr int FewestDots = 30;
constexpr int MostDots = 600;

LayoutData dataOf(const SProcessorProject &project)
{
    LayoutData data;
    data.processor = project.layout.processor;
    data.layout = project.layout;
    const SLayoutLimits limits = CCheckCommand::limitsOf(project);
    for (CabinetLayout::CabinetPort &port : data.layout.ports)
        port.load = limits.portLoad ? limits.portLoad(port).percent : 0;
    data.canvas = project.canvas;
    data.bounds = project.layout.boundingRect();
    return data;
}

/// Whether sheets are written, and not the layout itself.
bool areSheets(const CCommandArguments &arguments, const QString &suffix)
{
    return suffix == QLatin1String("pdf") || (suffix != QLatin1String("csv") && arguments.has(sheetsOption));
}

QStringList addressesOf(const CCommandArguments &arguments)
{
    QStringList addresses;
    if (arguments.has(addressOption)) {
        for (const QString &address : arguments.text(addressOption).split(QLatin1Char(',')))
            addresses << address.trimmed();
    }
    return addresses;
}

/// The pairs of processors that are named. On failure @p error is set.
QVector<CSheetExport::Pair> pairsOf(const CCommandArguments &arguments, QString &error)
{
    QVector<CSheetExport::Pair> pairs;
    if (!arguments.has(pairsOption))
        return pairs;
    QVector<int> paired;
    for (const QString &pair : arguments.text(pairsOption).split(QLatin1Char(','))) {
        const QStringList places = pair.split(QLatin1Char(':'));
        for (const QString &place : places) {
            const int project = place.toInt() - 1;
            if (places.size() != 2 || project < 0 || project + 1 >= arguments.fileCount() ||
                paired.contains(project)) {
                error = CExportCommand::tr("\"%1\" in --pairs is not two places of projects, from 1, each "
                                           "in one pair, like 1:2")
                            .arg(pair);
                return {};
            }
            paired << project;
        }
        pairs.append({paired.at(paired.size() - 2), paired.last()});
    }
    return pairs;
}

/// Why these arguments do not belong together; empty if they do.
QString problemOf(const CCommandArguments &arguments, const QString &target)
{
    const QString suffix = QFileInfo(target).suffix().toLower();
    static const QStringList suffixes{QStringLiteral("png"), QStringLiteral("svg"), QStringLiteral("pdf"),
                                      QStringLiteral("csv")};
    if (!suffixes.contains(suffix))
        return CExportCommand::tr("the name of the export must end in .png, .svg, .pdf or .csv");
    const bool sheets = areSheets(arguments, suffix);
    if (arguments.has(sizeOption) && (sheets || suffix == QLatin1String("csv")))
        return CExportCommand::tr("only a picture of the layout has a size");
    if (arguments.has(dotsOption) && !(sheets && suffix == QLatin1String("png")))
        return CExportCommand::tr("--dpi is for sheets as .png");
    const int projects = arguments.fileCount() - 1;
    if (sheets) {
        QString error;
        pairsOf(arguments, error);
        return addressesOf(arguments).size() > projects
                   ? CExportCommand::tr("--address names more addresses than there are projects")
                   : error;
    }
    for (const QString &option : arguments.given()) {
        const bool table = suffix == QLatin1String("csv");
        if (option != sizeOption && option != dotsOption && !(table && option == pitchOption))
            return table ? CExportCommand::tr("the option %1 is for sheets, a table has none").arg(option)
                         : CExportCommand::tr(
                               "the option %1 is for sheets: name those with --sheets, or write a .pdf")
                               .arg(option);
    }
    return projects == 1 || suffix == QLatin1String("csv")
               ? QString()
               : CExportCommand::tr("only sheets and tables can hold several projects at once");
}

/// The settings of the first project for the whole job, and those of each project that has some, changed by
/// the options.
SPrintJob jobOf(const QVector<SProcessorProject> &projects, const CCommandArguments &arguments)
{
    const auto changed = [&arguments](PrintConfig config) {
        CPrintOptions::apply(arguments, config);
        if (!config.date.isValid())
            config.date = QDate::currentDate();
        return config;
    };
    SPrintJob job;
    for (const SProcessorProject &project : projects)
        job.take(project.layout.processor, project.print);
    for (PrintConfig &own : job.own)
        own = changed(own);
    job.whole = job.own.value(projects.first().layout.processor, changed({}));
    const QStringList addresses = addressesOf(arguments);
    for (int i = 0; i < addresses.size(); ++i)
        job.addresses[projects.at(i).layout.processor] = addresses.at(i);
    return job;
}

/// Writes the layout of a project, or the table of several.
SCommandOutcome exportLayout(const QVector<SProcessorProject> &projects, const CCommandArguments &arguments,
                             const QString &target, const QSize &size, QTextStream &out)
{
    const CStatus written =
        CLayoutExport::kindOf(target) == CLayoutExport::Table
            ? CLayoutExport::writeTable(CSheetExport::inputOf(projects), jobOf(projects, arguments), target)
            : CLayoutExport::write(dataOf(projects.first()), target, size);
    if (!written)
        return SCommandOutcome::badInput(written.error());
    int cabinets = 0;
    for (const SProcessorProject &project : projects)
        cabinets += project.layout.cabinetCount();
    out << CExportCommand::tr("%1: cabinets: %2\n").arg(target, QString::number(cabinets));
    return {};
}

/// Writes the settings into the projects. Returns what went wrong; empty: nothing.
QString keepSettings(QVector<SProcessorProject> projects, const CCommandArguments &arguments,
                     const SPrintJob &job)
{
    for (int i = 0; i < projects.size(); ++i) {
        SProcessorProject &project = projects[i];
        const PrintConfig settings = job.of(project.layout.processor).kept();
        if (settings == project.print)
            continue;
        project.print = settings;
        const CStatus written = CProcessorProject::write(arguments.file(i), project);
        if (!written)
            return written.error();
    }
    return {};
}

SCommandOutcome exportSheets(const QVector<SProcessorProject> &projects, const CCommandArguments &arguments,
                             const QString &target, int dots, QTextStream &out)
{
    const SPrintJob job = jobOf(projects, arguments);
    QStringList warnings;
    QString error; // none: the arguments were checked
    const SPrintInput input = CSheetExport::inputOf(projects, pairsOf(arguments, error));
    const auto names = CSheetExport::write(input, job, target, dots, warnings);
    if (!names)
        return SCommandOutcome::badInput(names.error());
    for (const QString &name : names.value())
        out << name << '\n';
    error = arguments.has(keepOption) ? keepSettings(projects, arguments, job) : QString();
    if (!error.isEmpty())
        return SCommandOutcome::badInput(error);
    return {CCommandLine::Success, warnings.join(QStringLiteral("\norvo: "))};
}

} // namespace

QString CExportCommand::help()
{
    return tr("Usage: orvo export IN.sprj [MORE.sprj ...] OUT.{pdf,png,svg,csv} [OPTION...]\n"
              "  .pdf        the wiring plan, sheets for paper, of one project or several\n"
              "  .png, .svg  the layout as a picture; with --sheets those sheets, a file each\n"
              "  .csv        the cabinets of one project or several as a table\n"
              "A picture of the layout:\n"
              "  --size WxH              pixels (1920 wide)\n"
              "Sheets (for a table only --pitch):\n"
              "%1"
              "  --pairs LIST            processors that take over for others, with commas between them: "
              "1:2, "
              "that of\n"
              "                          the second project takes over for that of the first (none)\n"
              "  --dpi N                 dots per inch of sheets as .png (%2)\n"
              "  --keep                  keeps these settings, but not the date, in the projects, for the "
              "next plan\n")
        .arg(CPrintOptions::help())
        .arg(CSheetWriter::UsualDots);
}

SCommandOutcome CExportCommand::run(const QStringList &arguments, QTextStream &out)
{
    const auto parsed = CCommandArguments::parse(
        arguments, QStringList{sizeOption, dotsOption, pairsOption} + CPrintOptions::names(),
        CPrintOptions::flags() << keepOption, 2);
    if (!parsed)
        return SCommandOutcome::usage(parsed.error());
    const CCommandArguments &given = parsed.value();
    const QString target = given.file(given.fileCount() - 1);
    QString error = problemOf(given, target);
    const QSize size = given.has(sizeOption) && error.isEmpty()
                           ? given.size(sizeOption, CLayoutExport::LargestPictureSide, error)
                           : QSize();
    if (qint64(size.width()) * size.height() > CLayoutExport::LargestPicture)
        error = tr("a picture has at most %1 pixels").arg(CLayoutExport::LargestPicture);
    int dots = CSheetWriter::UsualDots;
    if (given.has(dotsOption) && error.isEmpty())
        dots = given.number(dotsOption, FewestDots, MostDots, error);
    PrintConfig tried;
    if (error.isEmpty())
        error = CPrintOptions::apply(given, tried);
    if (!error.isEmpty())
        return SCommandOutcome::usage(error);

    QVector<SProcessorProject> projects;
    for (int i = 0; i + 1 < given.fileCount(); ++i) {
        const CResult<SProcessorProject> project = CProcessorProject::read(given.file(i));
        if (!project)
            return SCommandOutcome::badInput(project.error());
        for (int j = 0; j < i; ++j) {
            if (projects.at(j).layout.processor == project.value().layout.processor)
                return SCommandOutcome::badInput(
                    tr("%1 and %2 are of the same processor, which is counted once: name one of them")
                        .arg(given.file(j), given.file(i)));
        }
        projects << project.value();
    }
    if (areSheets(given, QFileInfo(target).suffix().toLower()))
        return exportSheets(projects, given, target, dots, out);
    return exportLayout(projects, given, target, size, out);
}
