// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CCommandLine.h"

#include "host/app/commands/CCheckCommand.h"
#include "host/app/commands/CExportCommand.h"
#include "host/app/commands/CNewCommand.h"
#include "host/app/commands/CRecoverCommand.h"
#include "host/app/commands/SCommandOutcome.h"

#include <QGuiApplication>
#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

/// A command that reads arguments.
struct SCommand
{
    const char *name;
    const char *arguments; ///< its usage, without the program's name
    SCommandOutcome (*run)(const QStringList &arguments, QTextStream &out);
};

constexpr SCommand commandTable[] = {
    {"new", "OUT.sprj --cabinet WxH --columns N --rows N --ports N [--pattern 0..7]", CNewCommand::run},
    {"export", "IN.sprj [MORE.sprj ...] OUT.{pdf,png,svg,csv} [OPTION...]", CExportCommand::run},
    {"check", "FILE", CCheckCommand::run},
    {"recover", "[--restore N OUT.sprj | --discard N]", CRecoverCommand::run}};

const SCommand *commandNamed(const QString &name)
{
    const auto *found =
        std::find_if(std::begin(commandTable), std::end(commandTable),
                     [&name](const SCommand &command) { return name == QLatin1String(command.name); });
    return found == std::end(commandTable) ? nullptr : found;
}

bool isHelpOption(const QString &argument)
{
    return argument == QLatin1String("--help") || argument == QLatin1String("-h");
}

bool isVersionOption(const QString &argument)
{
    return argument == QLatin1String("--version");
}

/// Keeps the error output for what the user must know, without the warning that there is no runtime folder.
void passOnMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set")))
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
    if (type == QtFatalMsg)
        std::abort();
}

QString helpText()
{
    return CCommandLine::tr(
        "Usage:\n"
        "  orvo [--demo] [--detect] [--state FOLDER] [--simulate KIND=PROCESSOR]... [FILE.sprj ...]\n"
        "      opens the window, with the given projects\n"
        "      --demo      also with a demo wall of 240 cabinets\n"
        "      --detect    detects devices at once\n"
        "      --state     where the simulated processors keep their state\n"
        "      --simulate  lets a simulated processor show a fault: offline, slow, silent, refuse, drop,\n"
        "                  damaged, changed, lost or twice; or a state: bypass, fiber, 3d,\n"
        "                  low-latency, frozen, polling or hdmi; \"no-\" before it ends what began earlier\n"
        "  orvo new OUT.sprj --cabinet WxH --columns N --rows N --ports N [--pattern 0..7]\n"
        "      writes a project with a wall of equal cabinets, shared out to ports and wired\n"
        "  orvo export IN.sprj [MORE.sprj ...] OUT.{pdf,png,svg,csv} [OPTION...]\n"
        "      writes the wiring plan as sheets for paper, or a project's layout as a picture or a\n"
        "      table; \"orvo export --help\" lists the options\n"
        "  orvo check FILE\n"
        "      lists what is wrong in a project\n"
        "  orvo recover [--restore N OUT.sprj | --discard N]\n"
        "      lists unsaved edits of runs that ended unexpectedly, removes them, or writes them as a\n"
        "      project: then they are no longer offered, and the project keeps their undo history\n"
        "  orvo --help | --version\n"
        "Exit status: 0 done, nothing wrong; 1 bad input or findings; 2 wrong usage; 3 nothing to "
        "recover.\n");
}

} // namespace

bool CCommandLine::isCommand(int argc, const char *const *argv)
{
    if (argc < 2)
        return false;
    const auto isOption = [](const char *argument) {
        const QString text = QString::fromLocal8Bit(argument);
        return isHelpOption(text) || isVersionOption(text);
    };
    return commandNamed(QString::fromLocal8Bit(argv[1])) || std::any_of(argv + 1, argv + argc, isOption);
}

int CCommandLine::main(int argc, char **argv)
{
    qInstallMessageHandler(passOnMessage);
    std::unique_ptr<QCoreApplication> application;
    if (argc > 1 && std::strcmp(argv[1], "export") == 0) {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // pictures need fonts, but no display
        application = std::make_unique<QGuiApplication>(argc, argv);
    } else {
        application = std::make_unique<QCoreApplication>(argc, argv);
    }
    QCoreApplication::setOrganizationName(QStringLiteral("Velmarinth")); // where journals are
    QCoreApplication::setApplicationName(QStringLiteral("Orvo"));
    QTextStream out(stdout);
    QTextStream errors(stderr);
    out.setCodec("UTF-8");
    errors.setCodec("UTF-8");
    const int status = run(QCoreApplication::arguments().mid(1), out, errors);
    out.flush();
    if (out.status() == QTextStream::Ok && std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    errors << tr("orvo: the output could not be written\n");
    return BadInput;
}

int CCommandLine::run(const QStringList &arguments, QTextStream &out, QTextStream &errors)
{
    if (std::any_of(arguments.begin(), arguments.end(), isHelpOption)) {
        out << (arguments.first() == QLatin1String("export") ? CExportCommand::help() : helpText());
        return Success;
    }
    if (std::any_of(arguments.begin(), arguments.end(), isVersionOption)) {
        out << QStringLiteral("orvo " ORVO_VERSION "\n");
        return Success;
    }
    const SCommand *command = arguments.isEmpty() ? nullptr : commandNamed(arguments.first());
    const SCommandOutcome outcome = command ? command->run(arguments.mid(1), out)
                                            : SCommandOutcome::usage(tr("there is no such command"));
    if (!outcome.error.isEmpty())
        errors << QStringLiteral("orvo: %1\n").arg(outcome.error);
    if (outcome.status == Usage && command)
        errors
            << tr("Usage: orvo %1 %2\n").arg(QLatin1String(command->name), QLatin1String(command->arguments));
    if (outcome.status == Usage)
        errors << tr("\"orvo --help\" tells how it is called.\n");
    return outcome.status;
}
