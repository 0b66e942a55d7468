// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CRecoverCommand.h"

#include "host/app/commands/CCommandArguments.h"
#include "host/app/commands/SCommandOutcome.h"
#include "host/journal/CJournalFolder.h"
#include "host/projects/CFileLock.h"
#include "host/projects/CProcessorProject.h"
#include "host/projects/SFileWrite.h"

#include <QFileInfo>
#include <QTextStream>

namespace {

const QString restoreOption = QStringLiteral("--restore");
const QString discardOption = QStringLiteral("--discard");

using Strays = QList<SStrayJournal>;

SCommandOutcome list(const Strays &strays, QTextStream &out)
{
    for (int i = 0; i < strays.size(); ++i)
        out << QStringLiteral("%1: %2\n").arg(i + 1).arg(strays.at(i).line());
    if (!strays.isEmpty())
        return {};
    out << CRecoverCommand::tr("There are no unsaved edits.\n");
    return {CCommandLine::NothingThere, {}};
}

/// The journal with the number that an option gives; null, and @p outcome tells why.
const SStrayJournal *chosen(const CCommandArguments &arguments, const QString &option, const Strays &strays,
                            SCommandOutcome &outcome)
{
    QString error;
    constexpr int Largest = 1000000;
    const int number = arguments.number(option, 1, Largest, error);
    if (!error.isEmpty())
        outcome = SCommandOutcome::usage(error);
    else if (number > strays.size())
        outcome = SCommandOutcome::badInput(
            CRecoverCommand::tr("there is no number %1; \"orvo recover\" lists what there is").arg(number));
    else
        return &strays.at(number - 1);
    return nullptr;
}

/// An older history that stays is no reason to go on offering the edits, and is told only.
SCommandOutcome dropHistory(const CJournalFolder &folder, const QString &projectFile)
{
    const CStatus dropped = folder.dropHistory(projectFile);
    if (dropped)
        return {};
    return {CCommandLine::Success, CRecoverCommand::tr("warning: an older history of %1 is still there: %2")
                                       .arg(projectFile, dropped.error())};
}

/// As a save in the window does. A start with histories switched off removes it.
SCommandOutcome keepHistory(const CJournalFolder &folder, const SJournal &journal, const QString &file,
                            const SFileStamp &stamp)
{
    SJournalOwner owner = journal.owner;
    owner.project = true;
    owner.file = QFileInfo(file).absoluteFilePath();
    owner.stamp = stamp;
    CJournalState state = journal.state;
    state.trail().setSaved();
    if (state.trail().isEmpty())
        return dropHistory(folder, owner.file);
    const QString problem = folder.keepHistory(owner, state);
    if (problem.isEmpty())
        return {};
    return SCommandOutcome::badInput(
        CRecoverCommand::tr("the edits are still offered, because their history cannot be kept: %1")
            .arg(problem));
}

SCommandOutcome restore(const CJournalFolder &folder, const SStrayJournal &stray, const QString &file,
                        QTextStream &out)
{
    if (!stray.journal.isUsable())
        return SCommandOutcome::badInput(stray.line());
    CFileLock lock(file);
    if (lock.take() == CFileLock::Held)
        return SCommandOutcome::held(file, lock.holder());
    const SProcessorProject project = stray.journal.state.project();
    SFileWrite how;
    const CStatus written = CProcessorProject::write(file, project, &how);
    if (!written)
        return SCommandOutcome::badInput(written.error());
    out << CRecoverCommand::tr("%1: cabinets: %2\n")
               .arg(file, QString::number(project.layout.cabinetCount()));
    const SCommandOutcome kept = keepHistory(folder, stray.journal, file, how.stamp);
    if (kept.status != CCommandLine::Success)
        return kept;
    const CStatus removed = CJournalFolder::remove(stray);
    return removed ? kept
                   : SCommandOutcome::badInput(
                         CRecoverCommand::tr("the edits are still offered: %1").arg(removed.error()));
}

} // namespace

SCommandOutcome CRecoverCommand::run(const QStringList &arguments, QTextStream &out)
{
    const auto parsed = CCommandArguments::parse(arguments, {restoreOption, discardOption}, QStringList(), 0);
    if (!parsed)
        return SCommandOutcome::usage(parsed.error());
    const CCommandArguments &given = parsed.value();
    const bool restores = given.has(restoreOption);
    if (given.given().size() > 1 || given.fileCount() != (restores ? 1 : 0))
        return SCommandOutcome::usage(tr("either nothing, a number and a file to restore to, or a number to "
                                         "discard is expected"));
    if (restores && !given.file(0).endsWith(QLatin1String(".sprj"), Qt::CaseInsensitive))
        return SCommandOutcome::usage(
            tr("the name of the project file must end in .sprj, not \"%1\"").arg(given.file(0)));
    const CJournalFolder folder(CJournalFolder::defaultPath());
    const Strays strays = folder.strays();
    if (given.given().isEmpty())
        return list(strays, out);
    SCommandOutcome outcome;
    const SStrayJournal *stray = chosen(given, given.given().first(), strays, outcome);
    if (!stray)
        return outcome;
    if (restores)
        return restore(folder, *stray, given.file(0), out);
    if (!stray->journal.mayBeDiscarded())
        return SCommandOutcome::badInput(stray->line());
    const CStatus removed = CJournalFolder::remove(*stray);
    return removed ? SCommandOutcome() : SCommandOutcome::badInput(removed.error());
}
