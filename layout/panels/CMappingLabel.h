// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/CKeptFocus.h"
#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

class CMenuToolButton;
class QCheckBox;

/// The unit "Mapping": reads the mapping from, or saves it to, the current or all processors. Starts nothing
/// else until that has ended. GUI thread.
class CMappingLabel final : public CUnitLabel, public ISidePanelUnit
{
    Q_OBJECT

public:
    explicit CMappingLabel(const SUnitServices &services);

    /// While editing is blocked, reading is refused, because it replaces the layout.
    void setEditingBlocked(bool locked, bool redundancy) override;

Q_SIGNALS:
    /// A save started by this unit has succeeded.
    void notifySaveMappingSuccessed();

public Q_SLOTS:
    /// If @p processor is null, offline or a fibre optic transceiver, only "all" can be read and saved.
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor) override;
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor) override;

private Q_SLOTS:
    void onReadTriggered(QAction *action);
    void onSaveTriggered(QAction *action);

private:
    void buildUi();
    void addReadSection();
    void addSaveSection();
    void addSectionRow(const QString &caption, CMenuToolButton *button);
    QCheckBox *addOption(const QString &text, const QString &toolTip, bool checked);
    void connectSignals();
    void setBusy(bool busy);
    void enable(CMenuToolButton &button, const QString &reason, const QString &currentReason);
    void updateEnabled();
    void updateEntries(CMenuToolButton &button);

    IMappingCommands &m_commands;
    CMenuToolButton *m_read = nullptr;
    CMenuToolButton *m_save = nullptr;
    QCheckBox *m_numberMapping = nullptr;
    QCheckBox *m_realtime = nullptr;
    QCheckBox *m_fromProcessor = nullptr;
    CKeptFocus m_focus;
    QString m_refusal;      ///< why the processor in view can neither be read nor saved to; empty: it can
    QString m_readBlock;    ///< why nothing can be read
    QString m_currentBlock; ///< why the layout in view may not be replaced
    bool m_busy = false;
};
