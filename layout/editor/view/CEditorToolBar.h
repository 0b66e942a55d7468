// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSet>
#include <QToolBar>
#include <QVector>

class QActionGroup;
class QToolButton;

/// The tool bar of the layout editor. Each button carries its number in the property "action" and its place
/// in the property "ToolLocation". GUI thread.
class CEditorToolBar final : public QToolBar
{
    Q_OBJECT

public:
    /// The tools in their order; the numbers are those that the signals tell.
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
    /// Makes @p tool the one mode that is in use, without a signal if it is already.
    void chooseMode(ETool tool) { m_actions.at(tool)->setChecked(true); }
    /// Whether there is something that @p tool could do.
    void setUseful(ETool tool, bool useful);
    /// Disables all tools but those for looking.
    void setEditingBlocked(bool blocked);
    /// Whether a highlight is to be shown by the LED of the cabinets in place of a flashing box.
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

    QVector<QAction *> m_actions;
    QSet<int> m_useless = {Undo, Redo, Group, Ungroup, Print}; // tools with nothing to do
    bool m_blocked = false;
    QActionGroup *m_modes = nullptr; // one of them at most is checked
    bool m_frameless = false;
};
