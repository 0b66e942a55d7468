// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CLayoutData;
class CPort;
class IPortCommands;
class QAction;
class QMenu;

/// Fills the context menu of a port's button. GUI thread.
class CPortMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CPortMenu)

public:
    /// All must outlive the menu.
    CPortMenu(CPort &button, CLayoutData &store, IPortCommands &commands)
        : m_button(button)
        , m_store(store)
        , m_commands(commands)
    {
    }

    void fill(QMenu &menu) const;

private:
    void addFiles(QMenu &menu) const;
    void addPrimaries(QMenu &menu) const;
    void addLocks(QMenu &menu) const;
    void addFill(QMenu &menu) const;
    void addParameters(QMenu &menu) const;
    void addCancel(QMenu &menu) const;

    CPort &m_button;
    CLayoutData &m_store;
    IPortCommands &m_commands;
};
