// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/ReadSaveMappingRole.h"
#include "layout/api/records/SHostRecords.h"
#include "platform/widgets/CSidePanel.h"

class CMappingLabel;
class CSystemLoadLabel;

/// The column of units at the side of the layout editor; passes on what its units ask for and what they are
/// to show. Processor nodes and loads are of the current processor. GUI thread.
class CLayoutSidePanel final : public CSidePanel
{
    Q_OBJECT

public:
    explicit CLayoutSidePanel(QWidget *parent = nullptr);

    /// While a read or save of the mapping runs, no other can be started.
    void setMappingBusy(bool busy);
    /// Refuses what would replace the layout.
    void setEditingBlocked(bool blocked);
    /// A save that notifySaveMapping() asked for has succeeded.
    void reportMappingSaved();

Q_SIGNALS:
    void notifySaveMappingSuccessed();
    void notifyReadMapping(ReadSaveMappingRole role, const SMappingOptions &options);
    void notifySaveMapping(ReadSaveMappingRole role);

public Q_SLOTS:
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor);
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor);
    /// @p load: percent, above 100 when the processor is overloaded.
    void onNotifyProcessorPayloadChanged(int load);

private:
    void buildUi();
    void connectSignals();

    CMappingLabel *m_mapping = nullptr;
    CSystemLoadLabel *m_systemLoad = nullptr;
};
