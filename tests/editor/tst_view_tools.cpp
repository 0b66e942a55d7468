// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/editor/CMouseTest.h"
#include "tests/harness/CMessageBoxAnswerer.h"

#include <QMainWindow>
#include <QStatusBar>
#include <QToolButton>

namespace {

using Bar = CEditorToolBar;
using Modes = QVector<ToolMode>;

} // namespace

/// The tools of the tool bar.
class CViewToolsTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void theHandEditsByNoMeans()
    {
        QMainWindow window;
        window.setCentralWidget(&view());
        m_mouse->scene().backend().picks().port(0, true);
        m_mouse->scene().selectedItemMoveDown();
        const CabinetLayout moved = m_mouse->layout();
        bar().button(Bar::Hand)->click();
        for (const Bar::ETool tool : {Bar::ClearTopology, Bar::Group, Bar::Ungroup}) {
            QVERIFY(!bar().button(tool)->isEnabled());
            QVERIFY(bar().tool(tool)->toolTip().endsWith(QStringLiteral("\nThe hand tool only looks.")));
        }
        QTest::keyClick(&view(), Qt::Key_Left); // scrolls
        QCOMPARE(window.statusBar()->currentMessage(), QString());
        QTest::keyClick(&view(), Qt::Key_Delete);
        QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("The hand tool only looks."));
        QCOMPARE(m_mouse->layout(), moved);
        QVERIFY(bar().button(Bar::Undo)->isEnabled());
        QTest::keyClick(&view(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_mouse->layout(), m_mouse->original());
        QTest::keyClick(&view(), Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(m_commands.calls, QStringList{QStringLiteral("append")});
        view().setParent(nullptr);
    }

    void toolsAreToggledByTheirNumbers()
    {
        view().onToolButtonToggled(Bar::Pen, true);
        for (const int id : {-1, int(Bar::Undo), int(Bar::ToolCount)})
            view().onToolButtonToggled(id, true); // not a mode
        QVERIFY(bar().tool(Bar::Pen)->isChecked());
        QCOMPARE(modes(), Modes{ToolMode::ManualWiring});
        view().onToolButtonToggled(Bar::Pen, false);
        QVERIFY(bar().tool(Bar::Arrow)->isChecked());
        QCOMPARE(modes(), Modes{});
    }

    void aBlockedEditorIsLookedAtOnly()
    {
        const auto block = [this](bool blocked) { view().setEditingBlocked(blocked); };
        m_mouse->scene().backend().picks().port(0, true);
        m_mouse->scene().selectedItemMoveDown();
        m_mouse->scene().selectedItemMoveDown();
        m_mouse->scene().undo(nullptr);
        const CabinetLayout moved = m_mouse->layout();
        const QStringList before = enabledTools();
        QVERIFY(before.contains(QLatin1String("Undo(Ctrl+Z)")));
        block(true);
        const QStringList looking = {QStringLiteral("Hand"), QStringLiteral("Type library"),
                                     QStringLiteral("Print(Ctrl+P)"), QStringLiteral("Navigator")};
        m_mouse->scene().clearSelection();
        m_mouse->scene().backend().picks().port(0, true); // does not bring them back
        QCOMPARE(enabledTools(), looking);
        for (const int key : {Qt::Key_Right, Qt::Key_Delete, Qt::Key_Escape})
            QTest::keyClick(&view(), Qt::Key(key));
        for (const int key : {Qt::Key_A, Qt::Key_G, Qt::Key_Z})
            QTest::keyClick(&view(), Qt::Key(key), Qt::ControlModifier);
        m_mouse->drag({64, 64}, {50, 50});
        m_mouse->click({450, 60});
        QCOMPARE(m_mouse->selected().size(), 3);
        QCOMPARE(m_mouse->layout(), moved);
        bar().button(Bar::Hand)->click(); // there is no other mode to go to
        QVERIFY(bar().tool(Bar::Hand)->isChecked() && !view().isInteractive());
        block(false);
        QVERIFY(view().isInteractive());
        QCOMPARE(enabledTools(), before);
        QTest::keyClick(&view(), Qt::Key_Delete);
        QCOMPARE(m_mouse->stack().undoText(), QStringLiteral("Delete"));
        view().onCurrentProcessorBackupChanged(true); // as a redundancy processor
        QCOMPARE(enabledTools(), looking);
        block(true);
        view().onCurrentProcessorBackupChanged(false); // still by the controller
        QVERIFY(!view().isInteractive());
    }

    void modesSetTheSceneAndTheCursor()
    {
        struct SCase
        {
            Bar::ETool tool;
            Modes modes;
            Qt::CursorShape cursor;
        };
        const SCase cases[] = {{Bar::Hand, {}, Qt::OpenHandCursor},
                               {Bar::Pen, {ToolMode::ManualWiring}, Qt::BitmapCursor},
                               {Bar::HeadToTailExchange, {ToolMode::HeadToTailExchange}, Qt::BitmapCursor},
                               {Bar::Calibrate, {ToolMode::Highlighting}, Qt::PointingHandCursor}};
        const auto cursor = [this] { return view().viewport()->cursor().shape(); };
        for (const SCase &one : cases) {
            QToolButton *button = bar().button(one.tool);
            button->click();
            QCOMPARE(modes(), one.modes);
            QCOMPARE(view().isInteractive(), one.tool != Bar::Hand);
            QTest::mousePress(view().viewport(), Qt::MiddleButton);
            QCOMPARE(cursor(), Qt::ClosedHandCursor);
            QTest::mouseRelease(view().viewport(), Qt::MiddleButton);
            QCOMPARE(cursor(), one.cursor); // the tool is still in use
            button->click();                // the arrow comes back when the tool is put down
            QVERIFY(bar().tool(Bar::Arrow)->isChecked());
            QCOMPARE(modes(), Modes{});
            QCOMPARE(cursor(), Qt::ArrowCursor);
            button->click();
            QTest::keyClick(&view(), Qt::Key_Escape);
            QVERIFY(bar().tool(Bar::Arrow)->isChecked() && view().isInteractive());
        }
    }

    void thePenTakesTheSelectionAway()
    {
        m_mouse->scene().backend().picks().port(0, true);
        bar().button(Bar::HeadToTailExchange)->click();
        QCOMPARE(m_mouse->scene().selection().count(), 3);
        bar().button(Bar::Pen)->click();
        QVERIFY(m_mouse->scene().selection().isEmpty());
    }

    void plainButtonsAct()
    {
        const auto refused = [this](Bar::ETool tool) {
            return bar().button(tool)->isEnabled()
                       ? QString()
                       : bar().tool(tool)->toolTip().section(QLatin1Char('\n'), 1);
        };
        QCOMPARE(refused(Bar::Undo), QStringLiteral("There is nothing to undo."));
        QCOMPARE(refused(Bar::Group), QStringLiteral("Nothing is selected."));
        m_mouse->scene().backend().picks().port(0, true);
        QCOMPARE(refused(Bar::Ungroup), QStringLiteral("No group is selected."));
        m_mouse->states().locked[0] = true;
        m_mouse->scene().setCabinetLocked(0, true);
        QCOMPARE(refused(Bar::Group), QStringLiteral("Port 1 is locked."));
        m_mouse->states().locked.clear();
        m_mouse->scene().setCabinetLocked(0, false);
        bar().button(Bar::Group)->click();
        QCOMPARE(m_mouse->scene().selection().groups().size(), 1);
        bar().button(Bar::Ungroup)->click();
        bar().button(Bar::Undo)->click();
        bar().button(Bar::Undo)->click();
        QCOMPARE(m_mouse->layout(), m_mouse->original());
        bar().button(Bar::Redo)->click();
        QVERIFY(m_mouse->layout() != m_mouse->original());
    }

    void clearTopologyAsksForAPortOnly()
    {
        const auto wired = [this] {
            return m_mouse->scene().backend().content().portItem(3)->chain().order().size();
        };
        m_mouse->scene().backend().picks().port(3, true);
        bar().button(Bar::ClearTopology)->click();
        QCOMPARE(wired(), 0);
        m_mouse->scene().undo(nullptr);
        m_mouse->scene().clearSelection();
        bar().button(Bar::ClearTopology)->click(); // no port is current
        m_mouse->states().current = 3;
        CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("Yes")});
        bar().button(Bar::ClearTopology)->click();
        QCOMPARE(wired(), 2);
        QVERIFY(!m_mouse->scene().backend().content().pointedOut()); // after the question
        bar().button(Bar::ClearTopology)->click();
        QCOMPARE(wired(), 0);
        QCOMPARE(user.boxes().size(), 2);
    }

    void onlyWhatIsConnectedIsHighlighted()
    {
        const QAction &tool = *bar().tool(Bar::Calibrate);
        const QString tip = tool.toolTip();
        m_commands.refusal = QStringLiteral("The processor is offline.");
        view().onCurrentProcessorChanged({});
        QVERIFY(!tool.isEnabled());
        QCOMPARE(tool.toolTip(), tip + QLatin1Char('\n') + m_commands.refusal);
        m_commands.refusal.clear();
        view().onCurrentProcessorChanged({});
        QVERIFY(tool.isEnabled());
        QCOMPARE(tool.toolTip(), tip);
    }

    void highlightsWhatIsClicked()
    {
        const QPoint place(450, 60);
        const CGraphicsCabinetItem &cabinet = m_mouse->cabinet(3, 0);
        bar().button(Bar::Calibrate)->click();
        m_mouse->click(place);
        QCOMPARE(m_commands.highlighted, CabinetHighlight::FlashingBox);
        m_mouse->click({650, 60}, Qt::ControlModifier);
        QCOMPARE(m_commands.cabinets.size(), 2);
        QVERIFY(cabinet.isHighlighted() && m_mouse->scene().selection().isEmpty());
        bar().findChild<QAction *>(QStringLiteral("CalibrateFrameless"))->trigger();
        QCOMPARE(m_commands.highlighted, CabinetHighlight::LedIndicator);
        m_mouse->click(place);
        m_mouse->click(place); // once more: off
        QCOMPARE(m_commands.highlighted, CabinetHighlight::Off);
        m_mouse->click(place);
        bar().button(Bar::Calibrate)->click();
        QVERIFY(m_commands.highlighted == CabinetHighlight::Off && !cabinet.isHighlighted());
        bar().button(Bar::Calibrate)->click();
        m_mouse->click(place);
        view().cancelCalibrate(); // from outside
        QVERIFY(m_commands.highlighted == CabinetHighlight::Off && !cabinet.isHighlighted());
        QVERIFY(bar().tool(Bar::Arrow)->isChecked());
        bar().button(Bar::Pen)->click();
        view().cancelCalibrate(); // nothing to end
        QVERIFY(bar().tool(Bar::Pen)->isChecked());
        m_commands.highlights = false;
        bar().button(Bar::Calibrate)->click();
        m_mouse->click(place); // the processor refuses
        QVERIFY(!cabinet.isHighlighted());
        QCOMPARE(m_mouse->stack().count(), 0);
    }

private:
    CLayoutGraphicsView &view() { return m_mouse->view(); }
    Bar &bar() { return view().toolBar(); }
    Modes modes()
    {
        Modes set;
        for (const auto flag : {ToolMode::ManualWiring, ToolMode::HeadToTailExchange,
                                ToolMode::DirectExchange, ToolMode::Highlighting}) {
            if (m_mouse->scene().backend().toolModes().contains(flag))
                set << flag;
        }
        return set;
    }
    /// What the enabled buttons of the tool bar are called.
    QStringList enabledTools()
    {
        QStringList names;
        for (QAction *action : bar().actions()) {
            const QWidget *button = bar().widgetForAction(action);
            if (button && button->isEnabled() && !button->accessibleName().isEmpty())
                names << button->accessibleName();
        }
        return names;
    }
};

ORVO_TEST_MAIN(QApplication, CViewToolsTest)
#include "tst_view_tools.moc"
