// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/SBackupEntry.h"
#include "platform/widgets/CDialog.h"

class CBackupList;
class CBackupTable;
class CPureImageBtn;

/// Pairs entries of a list as primary and redundancy in a table, and applies the pairs. What the entries are
/// and who keeps the pairs, a dialog that derives from it decides. GUI thread.
class CBackupDialog : public CDialog
{
    Q_OBJECT

public:
    CBackupTable &table() const { return *m_table; }

Q_SIGNALS:
    /// The pairs were applied; @p refusal is why they were not, empty when they were.
    void notifyApplied(const QString &refusal);

protected:
    /// @p table becomes the dialog's own.
    CBackupDialog(const QString &title, const QString &listTitle, CBackupTable *table, QWidget *parent);

    /// Fills list and table anew. Called by the constructor of the derived class, and after each apply.
    void refill();

    virtual QList<SBackupEntry> readEntries() = 0;
    virtual QList<SBackupPair> readPairs() = 0;
    /// Whether the user, asked where something is lost, wants the pairs.
    virtual bool confirm(const QList<SBackupPair> &) { return true; }
    /// Carries the pairs out; gives why that failed, empty when it did not.
    virtual QString apply(const QList<SBackupPair> &pairs) = 0;

private:
    void buildUi(const QString &listTitle);
    CPureImageBtn *addTool(QLayout &row, const QString &family, const QString &text);
    void connectSignals();
    void onApply();
    void applyRows();
    void updateTools();
    void switchSides();

    CBackupList *m_list = nullptr;
    CBackupTable *m_table = nullptr;
    CPureImageBtn *m_auto = nullptr;
    CPureImageBtn *m_clear = nullptr;
    CPureImageBtn *m_reset = nullptr;
    QList<SBackupPair> m_atOpening;
    bool m_filled = false;
};
