// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"
#include "layout/editor/scene/SEditTargets.h"

#include <QCoreApplication>
#include <QPointF>

class CGraphicsPortItem;
class IEditorCommands;
class QMenu;
class QWidget;

/// Fills the menu that a right click on the canvas opens. GUI thread.
class CCanvasMenu final
{
    Q_DECLARE_TR_FUNCTIONS(CCanvasMenu)

public:
    /// @p parent is the parent of questions and dialogs. If @p commands is null, there are no entries that
    /// open dialogs.
    CCanvasMenu(QMenu &menu, const SEditTargets &targets, IEditorCommands *commands, QWidget *parent)
        : m_menu(menu)
        , m_targets(targets)
        , m_commands(commands)
        , m_parent(parent)
    {
    }

    /// Adds the entries that apply. They act on the current port; paste inserts at @p scenePos.
    void fill(const QPointF &scenePos);

    /// The reason why the canvas size cannot be changed, in brackets; empty if it can.
    static QString reason(CanvasBlock block);

private:
    void addPaste(const QPointF &scenePos, const CGraphicsPortItem &port);
    void addDialogs();

    QMenu &m_menu;
    const SEditTargets m_targets;
    IEditorCommands *m_commands;
    QWidget *m_parent;
};
