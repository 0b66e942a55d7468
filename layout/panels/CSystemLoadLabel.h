// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

class CSystemLoadProgressBar;

/// The unit "System load": how much of the current processor's capacity is used.
class CSystemLoadLabel final : public CUnitLabel, public ISidePanelUnit
{
    Q_OBJECT

public:
    explicit CSystemLoadLabel(const SUnitServices &services);

public Q_SLOTS:
    /// @p load is in percent; above 100: overloaded.
    void onNotifyProcessorPayloadChanged(int load);

private:
    CSystemLoadProgressBar *m_bar = nullptr;
};
