// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "platform/graphics/CAerialView.h"
#include "tests/editor/CMouseTest.h"
#include "tests/harness/CMessageBoxAnswerer.h"

#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>

namespace {

using Bar = CEditorToolBar;
using Modes = QVector<ToolMode>;

} // namespace

Q_DECLARE_METATYPE(ToolMode)

class CEditorToolsTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void modesSetTheSceneAndTheCursor_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<Modes>("flags");
        QTest::addColumn<int>("cursor");
        QTest::newRow("hand") << int(Bar::Hand) << Modes{} << int(Qt::OpenHandCursor);
        QTest::newRow("pen") << int(Bar::Pen) << Modes{ToolMode::ManualWiring} << int(Qt::BitmapCursor);
        QTest::newRow("exchange") << int(Bar::HeadToTailExchange) << Modes{ToolMode::HeadToTailExchange}
                                  << int(Qt::BitmapCursor);
        QTest::newRow("highlight") << int(Bar::Calibrate) << Modes{ToolMode::Highlighting}
                                   << int(Qt::PointingHandCursor);
    }
    void modesSetTheSceneAndTheCursor()
    {
        QFETCH(int, mode);
        QFETCH(Modes, flags);
        const auto flagsOf = [this] {
            Modes set;
            for (const auto flag : {ToolMode::ManualWiring, ToolMode::HeadToTailExchange,
                                    ToolMode::DirectExchange, ToolMode::Highlighting}) {
                if (m_mouse->scene().isToolModeSet(flag))
                    set << flag;
            }
            return set;
        };
        QToolButton *button = bar().button(Bar::ETool(mode));
        button->click();
        QCOMPARE(flagsOf(), flags);
        QCOMPARE(m_mouse->view().isInteractive(), mode != Bar::Hand);
        QWidget *viewport = m_mouse->view().viewport();
        QTest::mousePress(viewport, Qt::MiddleButton);
        QCOMPARE(viewport->cursor().shape(), Qt::ClosedHandCursor);
        QTest::mouseRelease(viewport, Qt::MiddleButton);
        QTEST(int(viewport->cursor().shape()), "cursor"); // the tool is still in use
        QVERIFY(!bar().tool(Bar::Arrow)->isChecked());
        button->click(); // the arrow comes back when the tool is put down
        QVERIFY(bar().tool(Bar::Arrow)->isChecked());
        QCOMPARE(flagsOf(), Modes{});
        QCOMPARE(viewport->cursor().shape(), Qt::ArrowCursor);
        button->click();
        QTest::keyClick(&m_mouse->view(), Qt::Key_Escape);
        QVERIFY(bar().tool(Bar::Arrow)->isChecked());
        QVERIFY(m_mouse->view().isInteractive());
        m_mouse->view().setEditingBlocked(true);
        QVERIFY(!m_mouse->view().isInteractive());
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
        bar().button(Bar::TypeLibrary)->click();
        QCOMPARE(m_commands.calls, QStringList{QStringLiteral("library")});
        QVERIFY(!bar().button(Bar::Undo)->isEnabled() && !bar().button(Bar::Group)->isEnabled());
        m_mouse->scene().backend().picks().port(0, true);
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
        m_mouse->scene().backend().picks().port(3, true);
        bar().button(Bar::ClearTopology)->click();
        QVERIFY(m_mouse->scene().portItem(3)->chain().order().isEmpty());
        m_mouse->scene().undo(nullptr);
        m_mouse->scene().clearSelection();
        bar().button(Bar::ClearTopology)->click(); // no port is current
        m_mouse->states().current = 3;
        CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("Yes")});
        bar().button(Bar::ClearTopology)->click();
        QCOMPARE(m_mouse->scene().portItem(3)->chain().order().size(), 2);
        bar().button(Bar::ClearTopology)->click();
        QVERIFY(m_mouse->scene().portItem(3)->chain().order().isEmpty());
        QCOMPARE(user.boxes().size(), 2);
        QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("Yes"));
    }

    void highlightsWhatIsClicked()
    {
        bar().button(Bar::Calibrate)->click();
        m_mouse->click({450, 60});
        QCOMPARE(m_commands.highlighted, CabinetHighlight::FlashingBox);
        QCOMPARE(m_commands.cabinets.size(), 1);
        m_mouse->click({650, 60}, Qt::ControlModifier);
        QCOMPARE(m_commands.cabinets.size(), 2);
        QVERIFY(m_mouse->cabinet(3, 0).isHighlighted());
        QVERIFY(m_mouse->scene().selection().isEmpty());
        bar().findChild<QAction *>(QStringLiteral("CalibrateFrameless"))->trigger();
        QCOMPARE(m_commands.highlighted, CabinetHighlight::LedIndicator);
        QCOMPARE(bar().button(Bar::Calibrate)->toolTip(),
                 QStringLiteral("Highlight cabinet with LED indicator"));
        m_mouse->click({450, 60});
        m_mouse->click({450, 60}); // once more: off
        QCOMPARE(m_commands.highlighted, CabinetHighlight::Off);
        m_mouse->click({450, 60});
        bar().button(Bar::Calibrate)->click();
        QCOMPARE(m_commands.highlighted, CabinetHighlight::Off);
        QVERIFY(!m_mouse->cabinet(3, 0).isHighlighted());
        m_commands.highlights = false;
        bar().button(Bar::Calibrate)->click();
        m_mouse->click({450, 60}); // the processor refuses
        QVERIFY(!m_mouse->cabinet(3, 0).isHighlighted());
        QCOMPARE(m_mouse->stack().count(), 0);
    }
    void figuresShapeTheSelection()
    {
        CLayoutGraphicsView &view = m_mouse->view();
        QSignalSpy extents(&view, &CLayoutGraphicsView::notifySelectedCabinetGeometryChanged);
        m_mouse->scene().backend().picks().port(0, true); // three in a row from the origin on
        QCOMPARE(extents.last().first().toRect(), QRect(0, 0, 384, 128));
        view.onNotifySelectedCabinetRankChanged(2);
        QCOMPARE(extents.last().first().toRect(), QRect(0, 0, 256, 256));
        QCOMPARE(m_mouse->cabinet(0, 2).cabinet().rect.topLeft(), QPoint(0, 128));
        view.onNotifySelectedCabinetPositionChanged(QPoint(50, 60));
        QCOMPARE(extents.last().first().toRect(), QRect(50, 60, 256, 256));
        view.onNotifySelectedCabinetSizeChanged(QSize(100, 128));
        QCOMPARE(m_mouse->cabinet(0, 1).cabinet().rect, QRect(178, 60, 100, 128));
        view.onNotifySelectedCabinetSizeChanged(QSize(LayoutLimits::LargestSide + 1, 128));
        view.onNotifySelectedCabinetSizeChanged(QSize(100, LayoutLimits::SmallestSide - 1));
        QCOMPARE(m_mouse->stack().count(), 3);
    }

    void historyOutlivesALookAtAnotherProcessor()
    {
        CLayoutGraphicsView &view = m_mouse->view();
        LayoutData first = SmallWorlds::data({SmallWorlds::port(0, {SmallWorlds::loose(0, 3)})});
        const LayoutData second = SmallWorlds::data({SmallWorlds::wiredPort(0, 2)});
        view.showLayout(SmallWorlds::node(first), first);
        const CabinetLayout original = first.layout;
        m_mouse->scene().selectAllItem();
        m_mouse->scene().selectedItemMoveDown();
        m_mouse->scene().getLayoutData(first.layout, first.processor);
        view.showLayout(SmallWorlds::node(second), second);
        QVERIFY(!bar().button(Bar::Undo)->isEnabled());
        view.showLayout(SmallWorlds::node(first), first);
        QVERIFY(bar().button(Bar::Undo)->isEnabled());
        m_mouse->scene().undo(nullptr);
        CabinetLayout undone;
        m_mouse->scene().getLayoutData(undone, first.processor);
        QCOMPARE(undone, original);

        m_mouse->scene().redo(nullptr);
        view.showLayout(SmallWorlds::node(second), second);
        first.layout.ports[0].groups[0].cabinets[0].rect.translate(1, 0); // changed elsewhere
        view.showLayout(SmallWorlds::node(first), first);
        QVERIFY(!bar().button(Bar::Undo)->isEnabled());
    }

    void navigatorTakesTheViewThere()
    {
        CAerialView &aerial = m_mouse->view().aerialView();
        QVERIFY(!aerial.isVisible());
        bar().button(Bar::Navigator)->click();
        QVERIFY(aerial.isVisible());
        m_mouse->view().setScaleFactor(4);
        QTest::mouseClick(&aerial, Qt::LeftButton, {}, aerial.rect().center());
        const QPointF middle =
            m_mouse->view().mapToScene(m_mouse->view().viewport()->rect()).boundingRect().center();
        const QPointF content = m_mouse->scene().contentRect().center();
        QVERIFY((middle - content).manhattanLength() < 60); // two pixels of the small picture
        const QImage before = aerial.grab().toImage();
        m_mouse->scene().onNotifyCabinetColorChanged(0, Qt::yellow);
        QTRY_VERIFY(aerial.grab().toImage() != before);
        bar().button(Bar::Navigator)->click();
        QVERIFY(!aerial.isVisible());
    }

private:
    CEditorToolBar &bar() { return m_mouse->view().toolBar(); }
};

ORVO_TEST_MAIN(QApplication, CEditorToolsTest)
#include "tst_editor_tools.moc"
