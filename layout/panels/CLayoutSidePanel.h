// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CSidePanel.h"

#include <vector>

/// The column of units at the side of the layout editor. GUI thread.
class CLayoutSidePanel final : public CSidePanel
{
    Q_OBJECT

public:
    explicit CLayoutSidePanel(const SUnitServices &services, QWidget *parent = nullptr);

    /// With @p blocked, the units refuse whatever would replace the layout.
    void setEditingBlocked(bool blocked);

Q_SIGNALS:
    void notifySaveMappingSuccessed();

public Q_SLOTS:
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor);
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor);

private:
    /// Adds a unit of the class @p Unit at the bottom.
    template <typename Unit>
    Unit *add(const SUnitServices &services);

    std::vector<ISidePanelUnit *> m_units; // children of the panel
};
