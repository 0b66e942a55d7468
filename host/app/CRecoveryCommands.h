// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QObject>
#include <QUuid>

class CAppSettings;
class CJournalKeeper;
class CRecoveryDialog;
struct SStrayJournal;
class QWidget;

/// The user's commands for what earlier runs have left unsaved. GUI thread.
class CRecoveryCommands final : public QObject
{
    Q_OBJECT

public:
    /// @p window is the parent of all dialogs; all must outlive this object.
    CRecoveryCommands(CJournalKeeper &keeper, CAppSettings &settings, QWidget &window);

    /// Offers what earlier runs have left, if there is anything.
    void offerAtStart();
    /// The same; says so if there is nothing.
    void offer();
    void applyHistory(); ///< as the settings are now

Q_SIGNALS:
    void notifyOpened(const QUuid &processor);
    void notifyTold(const QString &text); ///< for the status bar

private:
    void show(const QList<SStrayJournal> &offers);
    void restore(CRecoveryDialog &dialog, int entry);
    void look(CRecoveryDialog &dialog, int entry);
    void discard(CRecoveryDialog &dialog, int entry);

    CJournalKeeper &m_keeper;
    CAppSettings &m_settings;
    QWidget &m_window;
};
