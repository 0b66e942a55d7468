// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QToolBar>
#include <QVector>

class QActionGroup;
class QToolButton;

/// The tool bar of the layout editor. Each button has its number in the property "action" and its location in
/// the property "ToolLocation". GUI thread.
class CEditorToolBar final : public QToolBar
{
    Q_OBJECT

public:
    /// The tools in their order. The signals pass these numbers.
    enum ETool {
        Undo = 0,
        Redo = 1,
        Arrow = 2,
        Hand = 3,
        TypeLibrary = 4,
        ClearTopology = 5,
        Pen = 6,
        HeadToTailExchange = 7,
        Group = 8,
        Ungroup = 9,
        Calibrate = 10,
        Print = 11,
        Navigator = 12,
        ToolCount = 13
    };

    explicit CEditorToolBar(QWidget *parent = nullptr);

    QAction *tool(ETool tool) const { return m_actions.at(tool); }
    QToolButton *button(ETool tool) const;
    /// Makes @p tool the mode in use; no signal if it already is.
    void chooseMode(ETool tool) { m_actions.at(tool)->setChecked(true); }
    /// Sets why @p tool has nothing to do, or could only be refused; empty: it can be used.
    void setObstacle(ETool tool, const QString &reason);
    /// With a @p reason, disables all tools except those that change nothing; their tool tips tell the
    /// reason. While the hand tool is in use, the tools that act at once are disabled as well.
    void setBlock(const QString &reason);
    /// Whether a highlight is shown by the cabinets' LED instead of a flashing box.
    bool isFrameless() const { return m_frameless; }

Q_SIGNALS:
    void notifyToolClicked(int tool);
    void notifyToolToggled(int tool, bool checked);
    void notifyHighlightKindChanged(bool frameless);

private:
    void buildUi();
    void addTool(ETool tool, const QString &iconBase, const QString &toolTip);
    void makeCheckable(ETool tool);
    void addHighlightMenu();
    void setFrameless(bool frameless);
    void enableTools();
    void enableTool(ETool tool);

    QVector<QAction *> m_actions;
    QHash<int, QString> m_obstacles; // by tool
    QString m_block;                 // why nothing may be edited; empty: it may
    QActionGroup *m_modes = nullptr; // at most one of them is checked
    bool m_frameless = false;
};
