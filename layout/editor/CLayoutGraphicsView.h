// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/LayoutData.h"
#include "layout/data/records/ProcessorTree.h"
#include "platform/widgets/CGraphicsView.h"

class CCabinetGraphicsScene;
class IPortStates;

/// Shows the cabinet scene, which it owns.
class CLayoutGraphicsView final : public CGraphicsView
{
    Q_OBJECT

public:
    /// @p ports must outlive the view.
    explicit CLayoutGraphicsView(const IPortStates &ports, QWidget *parent = nullptr);
    ~CLayoutGraphicsView() override;

    CCabinetGraphicsScene &cabinetScene() { return *m_scene; }

    /// Shows @p layout, the layout of @p processor: fitted when another processor was shown before, else as
    /// it was.
    void showLayout(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout);
    /// Shows nothing.
    void clearLayout();

private:
    CCabinetGraphicsScene *m_scene;
    QUuid m_processor;
};
