// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/resources/LayoutResources.h"
#include "platform/graphics/CAerialView.h"
#include "tests/editor/CMouseTester.h"
#include "tests/editor/CNotedCommands.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QMenu>
#include <QSignalSpy>
#include <QToolButton>

namespace {

using Bar = CEditorToolBar;
using Modes = QVector<ToolMode>;

} // namespace

Q_DECLARE_METATYPE(ToolMode)

class CEditorToolsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }
    void init()
    {
        CTestBase::init();
        m_mouse = std::make_unique<CMouseTester>();
        m_mouse->view().setCommands(&m_commands);
        m_mouse->showAtActualSize();
    }
    void cleanup()
    {
        m_mouse.reset();
        m_commands = CNotedCommands();
        CTestBase::cleanup();
    }

    void toolsStandInTheirOrder()
    {
        const QStringList tips = {QStringLiteral("Undo(Ctrl+Z)"),
                                  QStringLiteral("Redo(Ctrl+Y)"),
                                  QStringLiteral("Arrow"),
                                  QStringLiteral("Hand"),
                                  QStringLiteral("Type library"),
                                  QStringLiteral("Clear topology"),
                                  QStringLiteral("Pen tool(Custom topology)"),
                                  QStringLiteral("Reverse signal in an out for multi-receivers cabinet"),
                                  QStringLiteral("Group(Ctrl+G)"),
                                  QStringLiteral("Ungroup(Ctrl+Shift+G)"),
                                  QStringLiteral("Highlight cabinet with flashing box"),
                                  QStringLiteral("Print(Ctrl+P)\nAvailable in a later version"),
                                  QStringLiteral("Navigator")};
        const QSet<int> checkable = {2, 3, 6, 7, 10, 12};
        for (int id = 0; id < tips.size(); ++id) {
            const QToolButton *button = bar().button(Bar::ETool(id));
            QCOMPARE(button->toolTip(), tips.at(id));
            QCOMPARE(button->property("action"), QVariant(id));
            QCOMPARE(button->property("ToolLocation"), QVariant(id));
            QCOMPARE(button->isCheckable(), checkable.contains(id));
            QVERIFY(!button->icon().isNull());
        }
        QCOMPARE(bar().button(Bar::Navigator)->objectName(), QStringLiteral("AeriaToolButton"));
    }

    void modesSetTheSceneAndTheCursor_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<Modes>("flags");
        QTest::addColumn<bool>("interactive");
        QTest::newRow("hand") << int(Bar::Hand) << Modes{} << false;
        QTest::newRow("pen") << int(Bar::Pen) << Modes{ToolMode::ManualWiring} << true;
        QTest::newRow("exchange") << int(Bar::HeadToTailExchange) << Modes{ToolMode::HeadToTailExchange}
                                  << true;
        QTest::newRow("highlight") << int(Bar::Calibrate) << Modes{ToolMode::Highlighting} << true;
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
        QTEST(m_mouse->view().isInteractive(), "interactive");
        QVERIFY(!bar().tool(Bar::Arrow)->isChecked());
        button->click(); // the arrow comes back when the tool is put down
        QVERIFY(bar().tool(Bar::Arrow)->isChecked());
        QCOMPARE(flagsOf(), Modes{});
        QCOMPARE(m_mouse->view().viewport()->cursor().shape(), Qt::ArrowCursor);
        button->click();
        QTest::keyClick(&m_mouse->view(), Qt::Key_Escape);
        QVERIFY(bar().tool(Bar::Arrow)->isChecked());
        QVERIFY(m_mouse->view().isInteractive());
        m_mouse->view().setEditingBlocked(true);
        QVERIFY(!m_mouse->view().isInteractive());
    }

    void modesHaveACursor_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("shape");
        QTest::addColumn<QString>("picture");
        QTest::newRow("hand") << int(Bar::Hand) << int(Qt::OpenHandCursor) << "";
        QTest::newRow("pen") << int(Bar::Pen) << int(Qt::BitmapCursor)
                             << ":/Image/Layout/ToolBar/manual-wiring-mouse.svg";
        QTest::newRow("exchange") << int(Bar::HeadToTailExchange) << int(Qt::BitmapCursor)
                                  << ":/Image/Layout/ToolBar/head-to-tail-exchange_mouse.svg";
        QTest::newRow("highlight") << int(Bar::Calibrate) << int(Qt::PointingHandCursor) << "";
    }
    void modesHaveACursor()
    {
        QFETCH(int, mode);
        QFETCH(QString, picture);
        const auto cursor = [this] { return m_mouse->view().viewport()->cursor(); };
        bar().button(Bar::ETool(mode))->click();
        QTEST(int(cursor().shape()), "shape");
        if (!picture.isEmpty()) {
            const QImage expected = QPixmap(picture).toImage();
            QVERIFY(!expected.isNull());
            QCOMPARE(cursor().pixmap().toImage(), expected);
            QCOMPARE(cursor().hotSpot(), QPoint(expected.width() / 2, expected.height() / 2));
        }
        QWidget *viewport = m_mouse->view().viewport();
        QTest::mousePress(viewport, Qt::MiddleButton);
        QCOMPARE(cursor().shape(), Qt::ClosedHandCursor);
        QTest::mouseRelease(viewport, Qt::MiddleButton);
        QTEST(int(cursor().shape()), "shape"); // the tool is still in use
        bar().chooseMode(Bar::Arrow);          // another tool puts it down
        QCOMPARE(cursor().shape(), Qt::ArrowCursor);
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

    void theButtonShowsTheKindOfHighlight_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("frameless");
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QString>("tip");
        QTest::newRow("flashing box") << "CalibrateFrame" << false << "calibrate"
                                      << "Highlight cabinet with flashing box";
        QTest::newRow("LED") << "CalibrateFrameless" << true << "calibrate-frameless"
                             << "Highlight cabinet with LED indicator";
    }
    void theButtonShowsTheKindOfHighlight()
    {
        QFETCH(QString, name);
        QFETCH(bool, frameless);
        QFETCH(QString, icon);
        const QToolButton *button = bar().button(Bar::Calibrate);
        const auto drawn = [](const QIcon &from, QIcon::State state) {
            return from.pixmap(20, 20, QIcon::Normal, state).toImage();
        };
        const auto file = [&icon](const char *state) {
            return QIcon(QStringLiteral(":/Image/Layout/ToolBar/%1_%2.svg").arg(icon, QLatin1String(state)));
        };
        QStringList names;
        for (const QAction *kind : bar().tool(Bar::Calibrate)->menu()->actions())
            names << kind->objectName();
        QCOMPARE(names,
                 (QStringList{QStringLiteral("CalibrateFrame"), QStringLiteral("CalibrateFrameless")}));

        bar().tool(Bar::Calibrate)->menu()->actions().at(frameless ? 0 : 1)->trigger(); // the other kind
                                                                                        // first
        QVERIFY(drawn(button->icon(), QIcon::Off) != drawn(file("normal"), QIcon::Off));
        auto *kind = bar().findChild<QAction *>(name);
        QCOMPARE(kind->property("frameless"), QVariant(frameless));
        QTEST(kind->text(), "tip");
        kind->trigger();
        QTEST(button->toolTip(), "tip");
        QCOMPARE(drawn(button->icon(), QIcon::Off), drawn(file("normal"), QIcon::Off));
        QCOMPARE(drawn(button->icon(), QIcon::On), drawn(file("checked"), QIcon::Off));
        QVERIFY(button->isChecked());
        m_mouse->click({450, 60});
        QCOMPARE(m_commands.highlighted,
                 frameless ? CabinetHighlight::LedIndicator : CabinetHighlight::FlashingBox);
    }

    void highlightsGoWithTheirCabinets()
    {
        bar().button(Bar::Calibrate)->click();
        m_mouse->click({450, 60});
        bar().chooseMode(Bar::Arrow);
        bar().chooseMode(Bar::Calibrate);
        m_mouse->click({450, 60});
        m_mouse->cabinet(3, 0).setSelected(true);
        m_mouse->scene().backend().operations().remove();
        QVERIFY(m_mouse->scene().backend().highlights().records().isEmpty());
        m_mouse->scene().undo(nullptr);
        QCOMPARE(m_mouse->layout(), m_mouse->original());
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
        QCOMPARE(m_mouse->stack().text(0), QStringLiteral("ChangeRank"));
        QCOMPARE(m_mouse->scene().backend().recorder().operationName(), QStringLiteral("ChangeSize"));
        for (int i = 0; i < 3; ++i)
            m_mouse->scene().undo(nullptr);
        QCOMPARE(m_mouse->layout(), m_mouse->original());
        m_mouse->states().locked[0] = true;
        view.onNotifySelectedCabinetRankChanged(1);
        view.onNotifySelectedCabinetPositionChanged(QPoint(9, 9));
        view.onNotifySelectedCabinetSizeChanged(QSize(9, 9));
        QCOMPARE(m_mouse->layout(), m_mouse->original());
    }

    void aTypeIsAppliedAsOneStep()
    {
        CSelectionShape::TypeInfo type;
        type.key = SMD5::ofContent("wide");
        type.width = 256;
        type.height = 64;
        type.receivers = {QRect(0, 0, 256, 64)};
        m_mouse->scene().backend().picks().port(0, true);
        m_mouse->scene().backend().shape().applyType(type);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(m_mouse->cabinet(0, i).cabinet().type, type.key);
            QCOMPARE(m_mouse->cabinet(0, i).cabinet().rect, QRect(128 * i, 0, 256, 64));
        }
        QCOMPARE(m_mouse->stack().count(), 1);
        m_mouse->scene().undo(nullptr);
        QCOMPARE(m_mouse->layout(), m_mouse->original());
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

    CNotedCommands m_commands;
    std::unique_ptr<CMouseTester> m_mouse;
};

ORVO_TEST_MAIN(QApplication, CEditorToolsTest)
#include "tst_editor_tools.moc"
