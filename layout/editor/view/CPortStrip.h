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

/// The end of the editor's tool bar: the output port that commands act on, what can be done with it, and the
/// snake patterns. GUI thread.
class CPortStrip final : public QObject
{
    Q_OBJECT

public:
    /// Adds itself to the end of @p bar, which becomes its parent. @p states must outlive it.
    CPortStrip(QToolBar &bar, const IPortStates &states);

    /// The ports of the processor in view; @p current is chosen, -1: none.
    void setPorts(const QList<int> &ports, int current);
    /// Follows a selection that lies in @p ports.
    void showSelection(const QList<int> &ports);
    /// Disables everything.
    void setEditingBlocked(bool blocked);
    int port() const; ///< the chosen one; -1: none

Q_SIGNALS:
    void portChosen(int port);
    void patternClicked(int pattern);
    void appendClicked(const QPoint &globalPos);
    void lockToggled(int port, bool locked);
    void redundancyChosen(int primary, int backup);
    void currentGainClicked();

private:
    QToolButton *addButton(const QIcon &icon, const QString &toolTip);
    void append();
    void addPortChoice();
    void addPorts();
    void addPatterns();
    void addPortMenu();
    void fillPortMenu();
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
