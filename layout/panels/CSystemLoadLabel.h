// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ISidePanelUnit.h"
#include "platform/widgets/CUnitLabel.h"

class COverloadLine;
class CSystemLoadProgressBar;
class QLabel;

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

    void setLayoutShown(bool shown) override; ///< otherwise there are dashes

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void scheduleWorst();
    void showWorst();

    CLayoutData &m_store;
    CSystemLoadProgressBar *m_bar = nullptr;
    COverloadLine *m_overload = nullptr;
    QLabel *m_worst = nullptr; // the port with the highest load, unless overloaded ports are named
    bool m_scheduled = false;
    bool m_shown = true;
};
