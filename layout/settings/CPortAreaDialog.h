// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"
#include "platform/widgets/CDialog.h"

class COutPortTable;
class QLabel;

/// Sets which part of the display each output port of the current processor carries. GUI thread.
class CPortAreaDialog final : public CDialog
{
    Q_OBJECT

public:
    /// Lets the user edit the areas of all ports of the processor in view, and hands the result to the host.
    static void edit(QWidget *parent);

    /// Shows @p areas, a row for each.
    explicit CPortAreaDialog(const QList<SPortArea> &areas, QWidget *parent = nullptr);

    /// The areas as the user left them, in the same order.
    QList<SPortArea> areas() const;

public Q_SLOTS:
    void accept() override;
    /// Asks whether changes are to be saved; if so, it accepts.
    void reject() override;

private:
    void buildUi();
    void showHint();
    void updateHintColor();

    QList<SPortArea> m_given;
    COutPortTable *m_table;
    QLabel *m_hint;
    int m_widthLimit = 0; // pixels; 0 or less: none
};
