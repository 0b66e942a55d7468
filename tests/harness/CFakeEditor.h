// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/ILayoutSource.h"
#include "layout/api/records/LayoutData.h"

/// Replaces the editor: returns the layout that the test has set.
class CFakeEditor final : public ILayoutSource
{
public:
    void getLayoutData(CabinetLayout &layout, const QUuid &processor) const override
    {
        layout = CabinetLayout();
        if (processor == shown.processor)
            layout = shown;
    }
    CabinetLayout shown;

    void load(const LayoutData &data) { shown = data.layout; }
    void move(int port) { shown.ports[port].groups[0].cabinets[0].rect.translate(10, 0); }
};
