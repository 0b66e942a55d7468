// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/start/SAppOptions.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QStringList faultNames()
{
    QStringList names;
    for (const SSimulationFault &fault : SSimulationFault::all())
        names << QLatin1String(fault.name);
    return names;
}

CResult<SAppOptions> usageError(const QString &text)
{
    return CResult<SAppOptions>::failure(
        text + QLatin1Char('\n') +
        SAppOptions::tr("Usage: orvo [--demo] [--detect] [--state FOLDER] [--simulate KIND=PROCESSOR]... "
                        "[FILE.sprj ...]\n"
                        "KIND is one of: %1; \"no-\" before it ends what began earlier.\n"
                        "\"orvo --help\" tells more.")
            .arg(faultNames().join(QStringLiteral(", "))));
}

CResult<SAppOptions::SSimulation> simulation(const QString &text)
{
    using Result = CResult<SAppOptions::SSimulation>;
    const int separator = text.indexOf(QLatin1Char('='));
    const QString processor = text.mid(separator + 1);
    if (separator < 1 || processor.isEmpty())
        return Result::failure(SAppOptions::tr("\"--simulate %1\" names no fault and processor.").arg(text));
    const QString kind = text.left(separator);
    for (const SSimulationFault &fault : SSimulationFault::all()) {
        for (const bool on : {true, false}) {
            if (kind == QLatin1String(on ? "" : "no-") + QLatin1String(fault.name))
                return SAppOptions::SSimulation{fault.fault, on, processor};
        }
    }
    return Result::failure(
        SAppOptions::tr("\"%1\" is no fault that can be simulated.").arg(text.left(separator)));
}

} // namespace

CResult<SAppOptions> SAppOptions::parse(const QStringList &arguments)
{
    const QCommandLineOption demoOption(QStringLiteral("demo"));
    const QCommandLineOption detectOption(QStringLiteral("detect"));
    const QCommandLineOption stateOption(QStringLiteral("state"), {}, QStringLiteral("folder"));
    const QCommandLineOption simulateOption(QStringLiteral("simulate"), {}, QStringLiteral("fault"));
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.addOptions({demoOption, detectOption, stateOption, simulateOption});
    if (!parser.parse(arguments))
        return usageError(parser.errorText());

    SAppOptions options;
    options.files = parser.positionalArguments();
    options.demo = parser.isSet(demoOption);
    options.detect = parser.isSet(detectOption);
    options.stateFolder = parser.value(stateOption);
    if (parser.isSet(stateOption) && options.stateFolder.isEmpty())
        return usageError(tr("\"--state\" needs the name of a folder."));
    for (const QString &text : parser.values(simulateOption)) {
        const CResult<SSimulation> parsed = simulation(text);
        if (!parsed)
            return usageError(parsed.error());
        options.simulations << parsed.value();
    }
    return options;
}

QStringList SAppOptions::missingFiles() const
{
    QStringList missing;
    for (const QString &file : files) {
        if (!QFileInfo::exists(file))
            missing << file;
    }
    return missing;
}

CStatus SAppOptions::checkProcessors(const QStringList &known) const
{
    for (const SSimulation &simulation : simulations) {
        if (!known.contains(simulation.processor)) {
            return CStatus::failure(tr("There is no simulated processor \"%1\"; known are: %2.")
                                        .arg(simulation.processor, known.join(QStringLiteral(", "))));
        }
    }
    return {};
}

QString SAppOptions::defaultStateFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/processors");
}
