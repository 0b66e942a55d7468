// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/editor/CLayoutGraphicsView.h"

#include <QFrame>

class QAction;
class QActionGroup;
class QHBoxLayout;
class QMenu;
class QToolButton;

/// The strip of editing tools at the upper edge of the canvas.
class CEditorStrip final : public QFrame
{
    Q_OBJECT

public:
    explicit CEditorStrip(QWidget *parent);

    void showTool(CLayoutGraphicsView::Tool tool);
    void showSelection(const QList<int> &ports, bool canGroup, bool canBreakGroup);
    void setCanUndo(bool can);
    void setCanRedo(bool can);
    /// The ports that the selection's port can become the redundancy of, and whether all its ports are
    /// locked.
    void setPorts(const QList<int> &all) { m_allPorts = all; }
    void showLocked(bool locked);

Q_SIGNALS:
    void undoClicked();
    void redoClicked();
    void toolClicked(CLayoutGraphicsView::Tool tool);
    void patternClicked(int pattern);
    void clearTopologyClicked();
    void groupClicked();
    void ungroupClicked();
    void deleteClicked();
    void lockClicked(bool locked);
    void redundancyClicked(int primary, int backup);

private:
    void buildUi();
    QAction *addCommand(const QString &iconBase, const QString &toolTip, void (CEditorStrip::*clicked)());
    void addTool(const QString &iconBase, const QString &toolTip, CLayoutGraphicsView::Tool tool);
    void addPatterns();
    void addPortMenu();
    void fillPortMenu();
    QToolButton *addButton(QAction *action);

    QHBoxLayout *m_row = nullptr;
    QActionGroup *m_tools = nullptr;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    QAction *m_group = nullptr;
    QAction *m_ungroup = nullptr;
    QAction *m_delete = nullptr;
    QToolButton *m_patterns = nullptr;
    QToolButton *m_portButton = nullptr;
    QMenu *m_portMenu = nullptr;
    QList<int> m_allPorts;
    QList<int> m_selectedPorts;
    bool m_locked = false;
};
