// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/ReadSaveMappingRole.h"
#include "layout/panels/CKeptFocus.h"
#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

class CElidedLabel;
class QLabel;
class QPushButton;

/// The unit "Processor redundancy": which processor the one in view stands in for, its pairs of output ports,
/// and the buttons that save them to the processors. GUI thread.
class CBackupLabel final : public CUnitLabel, public ISidePanelUnit
{
    Q_OBJECT

public:
    explicit CBackupLabel(const SUnitServices &services);

    void setEditingBlocked(bool locked, bool redundancy) override;
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor) override;
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor) override;
    void onPortStatesChanged() override { showPorts(); }

Q_SIGNALS:
    /// The user wants the pair that @p port belongs to ended.
    void notifyCancelPortRedundancy(int port);
    /// A save started by this unit has succeeded.
    void notifySaveMappingSuccessed();

public Q_SLOTS:
    void onCurrentProcessorBackupChanged();
    void onNotifyPortBackup(int primary, int backup, bool on);

private:
    void buildUi();
    QPushButton *addSaveButton(const QString &text, ReadSaveMappingRole role);
    void save(ReadSaveMappingRole role);
    void showProcessor();
    void showPorts();
    void addPortRow(const CabinetLayout::CabinetPort &port);
    QString primaryText(const CabinetLayout::CabinetPort &port) const;
    void updateEnabled();
    void enable(QPushButton &button, const QString &refusal);

    const CLayoutData &m_store;
    IMappingCommands &m_commands;
    ProcessorTree::ProcessorNode m_processor;
    CElidedLabel *m_primary = nullptr;
    QWidget *m_ports = nullptr; ///< a row for each redundancy port
    QLabel *m_noPorts = nullptr;
    QPushButton *m_saveCurrent = nullptr;
    QPushButton *m_saveAll = nullptr;
    QVector<CabinetLayout::CabinetPort> m_shown; ///< the redundancy ports of the rows, without cabinets
    CKeptFocus m_focus;
    QString m_block; ///< why nothing may be edited; empty: it may
    bool m_busy = false;
};
