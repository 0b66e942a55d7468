// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/records/LayoutData.h"
#include "layout/data/records/ProcessorTree.h"
#include "platform/widgets/CGraphicsView.h"

class CCabinetGraphicsScene;
class CEditorStrip;
class IPortStates;

/// Shows the cabinet scene, which it owns, and carries the tools by which it is edited.
class CLayoutGraphicsView final : public CGraphicsView
{
    Q_OBJECT

public:
    /// What a press of the left button does.
    enum Tool { Arrow, Hand, Pen, HeadToTailExchange };

    /// @p ports must outlive the view.
    explicit CLayoutGraphicsView(const IPortStates &ports, QWidget *parent = nullptr);
    ~CLayoutGraphicsView() override;

    CCabinetGraphicsScene &cabinetScene() { return *m_scene; }

    /// Shows @p layout, the layout of @p processor: fitted and without a history when another processor was
    /// shown before, else as it was, and as a change that can be undone.
    void showLayout(const ProcessorTree::ProcessorNode &processor, const LayoutData &layout);
    /// Shows nothing.
    void clearLayout();

    Tool tool() const { return m_tool; }
    void setTool(Tool tool);
    /// Lets the user look only.
    void setEditingBlocked(bool blocked);

Q_SIGNALS:
    void toolChanged(Tool tool);
    /// The user wants the ports of the selection locked, or unlocked.
    void notifyLockPorts(const QList<int> &ports, bool locked);
    /// The user wants @p backup to become the redundancy of @p primary.
    void notifySetPortRedundancy(int primary, int backup);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void connectStrip();
    void applyTool();
    void clearTopology();

    CCabinetGraphicsScene *m_scene;
    CEditorStrip *m_strip;
    QUuid m_processor;
    Tool m_tool = Arrow;
    bool m_blocked = false;
};
