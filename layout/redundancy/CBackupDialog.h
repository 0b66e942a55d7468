// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/redundancy/SBackupEntry.h"
#include "platform/widgets/CDialog.h"

class CBackupList;
class CBackupTable;
class CPureImageBtn;

/// Lets the user pair entries of a list as primary and redundancy in a table, and applies the pairs. Derived
/// dialogs define the entries, and where the pairs are stored. GUI thread.
class CBackupDialog : public CDialog
{
    Q_OBJECT

public:
    CBackupTable &table() const { return *m_table; }

Q_SIGNALS:
    /// Sent after "Apply"; @p refusal says why the pairs were refused, empty if they were applied.
    void notifyApplied(const QString &refusal);

protected:
    /// The dialog takes ownership of @p table.
    CBackupDialog(const QString &title, const QString &listTitle, CBackupTable *table, QWidget *parent);

    /// Fills list and table again. Called by the constructor of the derived class, and after each apply().
    void refill();

    virtual QList<SBackupEntry> readEntries() = 0;
    virtual QList<SBackupPair> readPairs() = 0;
    /// Tells the user what prevents the pairs, or asks if they cause a loss; returns whether to apply them.
    virtual bool confirm(const QList<SBackupPair> &) { return true; }
    /// Applies the pairs; returns why that failed, empty on success.
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
