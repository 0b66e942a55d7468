// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CRecoveryCommands.h"

#include "host/app/CRecoveryDialog.h"
#include "host/app/help/CHelpCommands.h"
#include "host/app/projects/CProjectCommands.h"
#include "host/app/start/CAppSettings.h"
#include "host/app/start/CCrashHandler.h"
#include "host/devices/CJournalKeeper.h"
#include "platform/widgets/CMessageBox.h"

#include <algorithm>

CRecoveryCommands::CRecoveryCommands(CJournalKeeper &keeper, CAppSettings &settings, QWidget &window)
    : m_keeper(keeper)
    , m_settings(settings)
    , m_window(window)
{
    connect(&keeper, &CJournalKeeper::notifyTold, this, &CRecoveryCommands::notifyTold);
    applyHistory();
}

/// What can neither be restored nor discarded now opens no window at each start.
void CRecoveryCommands::offerAtStart()
{
    const QList<SStrayJournal> offers = m_keeper.offers();
    const bool any = std::any_of(offers.begin(), offers.end(), [](const SStrayJournal &offer) {
        return offer.journal.isUsable() || offer.journal.mayBeDiscarded();
    });
    if (any)
        show(offers);
    else if (!offers.isEmpty())
        Q_EMIT notifyTold(offers.first().line());
}

void CRecoveryCommands::offer()
{
    const QList<SStrayJournal> offers = m_keeper.offers();
    if (offers.isEmpty())
        CMessageBox::information(&m_window, tr("There are no unsaved edits of earlier runs."));
    else
        show(offers);
}

void CRecoveryCommands::show(const QList<SStrayJournal> &offers)
{
    CRecoveryDialog dialog(offers, &m_window);
    const auto crash = CCrashHandler::latest(CCrashHandler::defaultFolder());
    if (crash)
        dialog.setCrash(crash->time);
    connect(&dialog, &CRecoveryDialog::notifyReport, this, [&] { CHelpCommands::showCrash(dialog, *crash); });
    connect(&dialog, &CRecoveryDialog::notifyRestore, this, [&](int entry) { restore(dialog, entry); });
    connect(&dialog, &CRecoveryDialog::notifyLook, this, [&](int entry) { look(dialog, entry); });
    connect(&dialog, &CRecoveryDialog::notifyDiscard, this, [&](int entry) { discard(dialog, entry); });
    dialog.exec();
}

void CRecoveryCommands::restore(CRecoveryDialog &dialog, int entry)
{
    const SStrayJournal offer = dialog.offer(entry);
    bool cancelled = false;
    const CResult<QUuid> restored = m_keeper.restore(offer, [&](const SLockHolder &holder) {
        const auto how = CProjectCommands::askHowToOpen(dialog, offer.journal.owner.file, holder);
        cancelled = how == CProjectShelf::Held::Cancel;
        return how;
    });
    if (cancelled)
        return;
    if (!restored) {
        CMessageBox::warning(&dialog, tr("The edits cannot be restored."), restored.error());
        return;
    }
    dialog.takeOut(entry);
    if (restored.value().isNull())
        Q_EMIT notifyTold(tr("%1 gets its edits back once it is detected.").arg(offer.journal.owner.name));
    else
        Q_EMIT notifyOpened(restored.value());
}

void CRecoveryCommands::look(CRecoveryDialog &dialog, int entry)
{
    const CResult<QUuid> opened = m_keeper.look(dialog.offer(entry));
    if (!opened) {
        CMessageBox::warning(&dialog, tr("The edits cannot be shown."), opened.error());
        return;
    }
    dialog.accept();
    Q_EMIT notifyOpened(opened.value());
    Q_EMIT notifyTold(tr("This is a copy. \"File > Recover unsaved edits\" still offers to restore."));
}

void CRecoveryCommands::discard(CRecoveryDialog &dialog, int entry)
{
    const SStrayJournal offer = dialog.offer(entry);
    const QString question =
        offer.journal.problem == SJournal::Newer
            ? tr("Discard these edits? A newer version of the program could still restore them.")
            : tr("Discard these edits? They cannot be restored then.");
    if (!CMessageBox::confirm(&dialog, question, offer.line()))
        return;
    const CStatus discarded = CJournalKeeper::discard(offer);
    if (discarded)
        dialog.takeOut(entry);
    else
        CMessageBox::warning(&dialog, tr("The edits cannot be discarded."), discarded.error());
}

void CRecoveryCommands::applyHistory()
{
    m_keeper.setHistory(m_settings.keepsHistory(), m_settings.historyMegabytes());
}
