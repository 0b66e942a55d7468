// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/scene/SEditTargets.h"

#include <QCoreApplication>
#include <QUuid>

class CGraphicsItemBase;
class IEditorCommands;
class QMenu;
class QWidget;

/// Fills the menu that a right click on a cabinet or a group opens. The entries look up the clicked item by
/// its identity, because it may be deleted before one of them is chosen. GUI thread.
class CCabinetMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CCabinetMenu)

public:
    static constexpr int Width = 240; ///< pixels

    /// @p parent is the parent of questions and dialogs; @p commands may be null.
    CCabinetMenu(QMenu &menu, const SEditTargets &targets, IEditorCommands *commands,
                 const CGraphicsItemBase &clicked, QWidget *parent);

    /// Adds the entries that apply; if there are no commands, only those that edit the layout.
    void fill();

private:
    void addGrouping();
    void addClipboard();
    void addFill();
    void addParameters();
    void addFiles(QMenu &parameters);

    QMenu &m_menu;
    const SEditTargets m_targets;
    IEditorCommands *m_commands;
    const CGraphicsItemBase &m_clicked;
    QWidget *m_parent;
    bool m_onePort;
    bool m_locked; // the clicked item's port
};
