// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

class COverloadLine;
class CSystemLoadProgressBar;

/// The unit "System load": how much of the current processor's capacity is used.
class CSystemLoadLabel final : public CUnitLabel, public ISidePanelUnit
{
    Q_OBJECT

public:
    explicit CSystemLoadLabel(const SUnitServices &services);

Q_SIGNALS:
    /// The user wants everything in the overloaded @p ports to be selected.
    void notifySelectPorts(const QVector<int> &ports);

public Q_SLOTS:
    /// @p load is in percent; above 100: overloaded.
    void onNotifyProcessorPayloadChanged(int load);
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor) override;

private:
    CLayoutData &m_store;
    CSystemLoadProgressBar *m_bar = nullptr;
    COverloadLine *m_overload = nullptr;
};
