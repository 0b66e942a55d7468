// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/journal/CJournalFolder.h"
#include "platform/widgets/CDialog.h"

class QDateTime;
class QLabel;
class QListWidget;
class QPushButton;

/// Offers the unsaved edits of runs that ended unexpectedly, each with a picture. It decides nothing: its
/// owner carries out what the user chooses, and takes entries out.
class CRecoveryDialog final : public CDialog
{
    Q_OBJECT

public:
    CRecoveryDialog(const QList<SStrayJournal> &offers, QWidget *parent);

    const SStrayJournal &offer(int entry) const { return m_offers.at(entry); }
    /// Says when the program has crashed, with a button for the report.
    void setCrash(const QDateTime &time);
    /// Closes the dialog if it was the last one.
    void takeOut(int entry);

Q_SIGNALS:
    void notifyRestore(int entry);
    void notifyLook(int entry);
    void notifyDiscard(int entry);
    void notifyReport();

private:
    void buildUi();
    void addEntry(const SStrayJournal &offer);
    void connectSignals();
    void updateButtons();

    QList<SStrayJournal> m_offers;
    QLabel *m_text = nullptr;
    QListWidget *m_list = nullptr;
    QPushButton *m_restore = nullptr;
    QPushButton *m_look = nullptr;
    QPushButton *m_discard = nullptr;
};
