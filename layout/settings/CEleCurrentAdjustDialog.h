// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/settings/CProcessorInView.h"
#include "platform/widgets/CDialog.h"

#include <QUuid>

class CEleCurrentAdjustTable;
class QPushButton;

/// Loads current-gain parameter files for the processor in view, switches their sets on and off, and sends
/// them to the hardware. GUI thread.
class CEleCurrentAdjustDialog final : public CDialog
{
    Q_OBJECT

public:
    /// For @p processor, which must be in view. Reads the sets as soon as the event loop runs.
    CEleCurrentAdjustDialog(const QUuid &processor, QWidget *parent);

    /// Saves. The dialog stays open if that fails.
    void accept() override;
    /// Closes; asks first if switches were not saved.
    void reject() override;

private:
    void buildUi();
    QPushButton *addButton(const QString &text);
    void connectSignals();
    void readGains();
    void importFile();
    void refresh();
    void clear();
    void updateButtons();
    void orderTabs();
    bool mayLoseSwitches(const QString &question);
    bool carryOut(const QString &failure, const CProcessorInView::Operation &operation);

    const QUuid m_processor;
    CEleCurrentAdjustTable *m_table = nullptr;
    QPushButton *m_import = nullptr;
    QPushButton *m_refresh = nullptr;
    QPushButton *m_clear = nullptr;
    QPushButton *m_save = nullptr;
};
