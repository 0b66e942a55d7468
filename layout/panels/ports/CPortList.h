// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/panels/ports/CPort.h"

#include <QSet>

class CFlowListView;
class COverloadLine;
struct SOverload;
class QLabel;
class QStackedLayout;

/// The strip of output ports: a button for each port of the processor in view, below a title row. It follows
/// the store, and asks edits of the editor by signals. GUI thread.
class CPortList final : public QWidget
{
    Q_OBJECT

public:
    /// @p store and @p commands must outlive the list.
    CPortList(CLayoutData &store, IPortCommands &commands, QWidget *parent = nullptr);

    /// With @p blocked, the buttons accept nothing, nor does what the title row offers.
    void setEditingBlocked(bool blocked);
    /// The height that shows @p rows rows of buttons.
    int heightOfRows(int rows) const;
    /// Opens the append menu of @p port below its button.
    void openAppendMenu(int port);

    CPort *button(int port) const; ///< null for an unknown index

Q_SIGNALS:
    void notifyAppendCabinet(int port, const QSize &size,
                             const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type = {});
    void notifyShowCabinetInfo(int port);
    void notifyMarkupCustomCabinet(bool markup);
    void notifySaveCabinetPara(int port);
    /// The user wants everything in @p port to be selected or, with @p selected false, deselected.
    void notifyPortClicked(int port, bool selected);
    /// The user wants everything in @p ports to be selected, and nothing else.
    void notifyPortsChosen(const QVector<int> &ports);
    /// As notifyPortsChosen(); besides, the user wants to see them.
    void notifyPortsSought(const QVector<int> &ports);
    /// Other ports are overloaded, or more than before.
    void notifyOverloadChanged(const SOverload &overload);
    /// @p port became the current port by the user's choice here, or by a selection within it.
    void notifyPortToggled(int port, bool current);

public Q_SLOTS:
    /// Checks the buttons of @p ports, those that hold the selection. A single one becomes the current port.
    void setCurrentSelectPort(const QList<int> &ports);
    void onNotifyPortColorChanged(int port, const QColor &color);
    void setPortBackup(int port, bool backup);
    void onNotifyProcessorPortPayloadChanged(int port, int load);
    void onNotifyProcessorPortLocked(int port, bool locked);
    /// Shows the ports of the processor in view anew.
    void onNotifyProcessorStateChanged();

private:
    void buildUi();
    QWidget *buildTitleRow();
    QAbstractButton *addMenuButton();
    void connectSignals();
    void connectButton(CPort *button);
    void click(CPort *button);
    void append(int port, const QSize &size, const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type);
    void makeCurrent(int port);
    void showChecked();
    void countPorts();

    CLayoutData &m_store;
    IPortCommands &m_commands;
    QLabel *m_counts = nullptr;
    QAbstractButton *m_more = nullptr; // opens the menu of the title row
    QAbstractButton *m_areas = nullptr;
    COverloadLine *m_overload = nullptr;
    QStackedLayout *m_pages = nullptr;
    QLabel *m_empty = nullptr;
    CFlowListView *m_flow = nullptr;
    QVector<CPort *> m_buttons; // in port order
    QSet<int> m_selected;       // the ports that hold the selection
};
