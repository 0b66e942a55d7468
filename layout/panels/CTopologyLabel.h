// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

class QButtonGroup;
class QToolButton;

/// The unit "Topology": a button for each snake pattern. GUI thread.
class CTopologyLabel final : public CUnitLabel, public ISidePanelUnit
{
    Q_OBJECT

public:
    explicit CTopologyLabel(const SUnitServices &services);

    void setEditingBlocked(bool locked, bool redundancy) override;
    void onCurrentProcessorChanged(const ProcessorTree::ProcessorNode &processor) override;
    void onCurrentProcessorStateChanged(const ProcessorTree::ProcessorNode &processor) override;
    void onSelectedPorts(const QList<int> &ports) override;
    void onPortStatesChanged() override { updateEnabled(); }

Q_SIGNALS:
    /// The user wants the selection wired by the pattern with this number.
    void buttonClicked(int pattern);

public Q_SLOTS:
    void setButtonEnable(bool enable); ///< all eight

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildUi();
    QToolButton *makeButton(int pattern);
    void showNone();
    void updateEnabled();

    const CLayoutData &m_store;
    QButtonGroup *m_buttons;
    QList<int> m_selectedPorts;
    ProcessorTree::ProcessorNode m_processor;
    QString m_block; ///< why nothing may be edited; empty: it may
};
