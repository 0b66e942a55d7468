// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QObject>

class IPortStates;
class QComboBox;
class QIcon;
class QMenu;
class QPoint;
class QToolBar;
class QToolButton;

/// The last section of the editor's tool bar: the current output port, its actions, and the snake patterns.
/// The store owns which port is current; the strip shows it. GUI thread.
class CPortStrip final : public QObject
{
    Q_OBJECT

public:
    /// Adds itself to the end of @p bar, which becomes its parent. @p states must outlive it.
    CPortStrip(QToolBar &bar, const IPortStates &states);

    /// Sets the ports of the processor in view; no cabinet is selected in them yet.
    void setPorts(const QList<int> &ports);
    /// Updates which port is current, and whether it is locked.
    void showCurrentPort();
    void setHasSelection(bool hasSelection);
    /// Disables everything.
    void setEditingBlocked(bool blocked);

Q_SIGNALS:
    void notifyPortChosen(int port);
    void notifyPatternChosen(int pattern);
    void notifyAppendClicked(const QPoint &globalPos);
    void notifyLockToggled(int port, bool locked);
    void notifyRedundancyChosen(int primary, int backup);
    void notifyRedundancyCancelled(int port);
    void notifyRedundancyViewClicked();
    void notifyCurrentGainClicked();

private:
    QToolButton *addButton(const QIcon &icon, const QString &toolTip);
    void append();
    void choose(int port);
    void addPortChoice();
    void addPorts();
    void addPatterns();
    void addPortMenu();
    void fillPortMenu();
    void addRedundancy();
    void enableEntries();

    QToolBar &m_bar;
    const IPortStates &m_states;
    QComboBox *m_ports = nullptr;
    QToolButton *m_append = nullptr;
    QToolButton *m_patterns = nullptr;
    QToolButton *m_portButton = nullptr;
    QMenu *m_portMenu = nullptr;
    bool m_hasSelection = false;
    bool m_blocked = false;
};
