// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/graphics/CAerialView.h"
#include "tests/editor/CMouseTest.h"
#include "tests/harness/CSignalLog.h"

#include <QMainWindow>
#include <QStatusBar>
#include <QToolButton>

namespace {

using Bar = CEditorToolBar;
using Cabinet = CabinetLayout::CabinetPort::Cabinet;

} // namespace

/// The view as the rest of the module uses it.
class CLayoutViewTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatIsSelected()
    {
        CLayoutGraphicsView &view = m_mouse->view();
        const CSignalLog ports(&view, &CLayoutGraphicsView::notifySelectedPort);
        const CSignalLog infos(&view, &CLayoutGraphicsView::notifySelectedCabinetInfos);
        const auto told = [&ports, &infos] {
            return qMakePair(ports[ports.count() - 1].first().value<QList<int>>(),
                             uuidsOf(infos[infos.count() - 1].first().value<QList<Cabinet>>()));
        };
        view.onPortClicked(0, true);
        QCOMPARE(told(), qMakePair(QList<int>{0}, uuidsOfPorts({0})));
        view.onPortClicked(1, true); // a group: told are its cabinets
        QCOMPARE(told(), qMakePair(QList<int>{0, 1}, uuidsOfPorts({0, 1})));
        view.onPortClicked(0, false);
        QCOMPARE(told(), qMakePair(QList<int>{1}, uuidsOfPorts({1})));
        view.clearSelected();
        QCOMPARE(told(), qMakePair(QList<int>{}, QSet<QUuid>{}));
        QCOMPARE(ports.count(), 4);
        QCOMPARE(infos.count(), 4);
        QVERIFY(m_mouse->scene().selection().isEmpty());
        QCOMPARE(m_mouse->layout(), m_mouse->original());
    }

    void theStatusBarSaysWhatDidNotHappen()
    {
        QMainWindow window;
        window.setCentralWidget(&m_mouse->view());
        const auto said = [&window] { return window.statusBar()->currentMessage(); };
        m_mouse->view().onPortClicked(0, true);
        QTest::keyClick(&m_mouse->view(), Qt::Key_Down);
        QCOMPARE(said(), QString());
        QTest::keyClick(&m_mouse->view(), Qt::Key_Left); // one of three can
        QCOMPARE(said(), QStringLiteral("1 cabinet stands at the edge."));
        m_mouse->states().locked[0] = true;
        for (const int key : {Qt::Key_Right, Qt::Key_Delete}) {
            QTest::keyClick(&m_mouse->view(), Qt::Key(key));
            QCOMPARE(said(), QStringLiteral("Port 1 is locked."));
        }
        QTest::keyClick(&m_mouse->view(), Qt::Key_Shift);
        QCOMPARE(said(), QString());
        m_mouse->view().setParent(nullptr); // it is not the window's
    }

    void commandsConcernAllCabinetsOfAPort()
    {
        CLayoutGraphicsView &view = m_mouse->view();
        m_mouse->scene().backend().picks().port(0, true); // what is selected elsewhere is not meant
        view.showCabinetInfo(1);
        QCOMPARE(m_commands.calls, QStringList{QStringLiteral("information")});
        QCOMPARE(uuidsOf(m_commands.cabinets), uuidsOfPorts({1}));
        view.saveCabinetPara(3);
        QCOMPARE(m_commands.calls.last(), QStringLiteral("parameters"));
        QCOMPARE(uuidsOf(m_commands.cabinets), uuidsOfPorts({3}));
        view.markupCustomCabinet(true);
        QCOMPARE(m_commands.calls.last(), QStringLiteral("mark"));
        view.markupCustomCabinet(false);
        QCOMPARE(m_commands.calls.last(), QStringLiteral("unmark"));
        view.ShowEleCurrentAdjustDialog();
        QCOMPARE(m_commands.calls.last(), QStringLiteral("gain"));
    }

    void aHighlightEndsFromOutside()
    {
        Bar &bar = m_mouse->view().toolBar();
        bar.button(Bar::Calibrate)->click();
        m_mouse->click({450, 60});
        QCOMPARE(m_commands.highlighted, CabinetHighlight::FlashingBox);
        m_mouse->view().cancelCalibrate();
        QVERIFY(!m_mouse->cabinet(3, 0).isHighlighted());
        QCOMPARE(m_commands.highlighted, CabinetHighlight::Off);
        QVERIFY(bar.tool(Bar::Arrow)->isChecked());
        m_mouse->click({450, 60}); // selects again
        QCOMPARE(m_commands.highlighted, CabinetHighlight::Off);
        QVERIFY(m_mouse->cabinet(3, 0).isSelected());
        bar.button(Bar::Pen)->click();
        m_mouse->view().cancelCalibrate(); // nothing to end
        QVERIFY(bar.tool(Bar::Pen)->isChecked());
    }

    void toolsAreToggledByTheirNumbers()
    {
        CLayoutGraphicsView &view = m_mouse->view();
        Bar &bar = view.toolBar();
        view.onToolButtonToggled(Bar::Pen, true);
        QVERIFY(bar.tool(Bar::Pen)->isChecked());
        QVERIFY(m_mouse->scene().isToolModeSet(ToolMode::ManualWiring));
        for (const int id : {-1, int(Bar::Undo), int(Bar::ToolCount)}) {
            view.onToolButtonToggled(id, true); // not a mode
            QVERIFY(bar.tool(Bar::Pen)->isChecked());
        }
        view.onToolButtonToggled(Bar::Pen, false);
        QVERIFY(bar.tool(Bar::Arrow)->isChecked());
        QVERIFY(!m_mouse->scene().isToolModeSet(ToolMode::ManualWiring));
    }

    void appendsOnlyWhatCanBePlaced_data()
    {
        QTest::addColumn<int>("port");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("begins");
        QTest::newRow("smallest") << 2 << QSize(1, 1) << true;
        QTest::newRow("largest") << 2 << QSize(2048, 2048) << true;
        QTest::newRow("too wide") << 2 << QSize(2049, 100) << false;
        QTest::newRow("too high") << 2 << QSize(100, 2049) << false;
        QTest::newRow("no size") << 2 << QSize(0, 100) << false;
        QTest::newRow("no port") << -1 << QSize(100, 100) << false;
        QTest::newRow("port that is not there") << 9 << QSize(100, 100) << false;
        QTest::newRow("locked port") << 0 << QSize(100, 100) << false;
        QTest::newRow("redundancy port") << 1 << QSize(100, 100) << false;
    }
    void appendsOnlyWhatCanBePlaced()
    {
        QFETCH(int, port);
        QFETCH(QSize, size);
        m_mouse->states().locked[0] = true;
        m_mouse->states().redundancy[1] = CabinetLayout::CabinetPort::Redundant;
        m_mouse->view().onNotifyAppendCabinet({}, port, size);
        QTEST(m_mouse->scene().backend().placing().isAppending(), "begins");
    }

    void undoIsExactAfterALookAtAnotherProcessor()
    {
        m_mouse->cabinet(0, 2).setSelected(true);
        m_mouse->scene().backend().operations().remove();
        LayoutData left;
        left.layout = m_mouse->layout();
        left.processor = left.layout.processor;
        const LayoutData other = SmallWorlds::data({SmallWorlds::wiredPort(0, 2)});
        m_mouse->view().showLayout(SmallWorlds::node(other), other);
        m_mouse->view().showLayout(SmallWorlds::node(left), left);
        m_mouse->scene().undo(nullptr);
        QVERIFY(m_mouse->layout() == m_mouse->original());
    }

    void aBlockedEditorIsLookedAtOnly_data()
    {
        QTest::addColumn<bool>("backup");
        QTest::newRow("by the controller") << false;
        QTest::newRow("as a redundancy processor") << true;
    }
    void aBlockedEditorIsLookedAtOnly()
    {
        QFETCH(bool, backup);
        CLayoutGraphicsView &view = m_mouse->view();
        const auto block = [&view, backup](bool blocked) {
            if (backup)
                view.onCurrentProcessorBackupChanged(blocked);
            else
                view.setEditingBlocked(blocked);
        };
        m_mouse->scene().backend().picks().port(0, true);
        m_mouse->scene().selectedItemMoveDown();
        m_mouse->scene().selectedItemMoveDown();
        m_mouse->scene().undo(nullptr);
        const CabinetLayout moved = m_mouse->layout();
        const QStringList before = enabledTools();
        QVERIFY(before.contains(QLatin1String("Undo(Ctrl+Z)")) && before.contains(QLatin1String("Topology")));
        block(true);
        const QStringList looking = {QStringLiteral("Hand"), QStringLiteral("Type library"),
                                     QStringLiteral("Navigator")};
        QCOMPARE(enabledTools(), looking);
        QVERIFY(!view.isInteractive());
        m_mouse->scene().clearSelection();
        m_mouse->scene().backend().picks().port(0, true); // does not bring them back
        QCOMPARE(enabledTools(), looking);
        for (const int key : {Qt::Key_Right, Qt::Key_Delete, Qt::Key_Escape})
            QTest::keyClick(&view, Qt::Key(key));
        for (const int key : {Qt::Key_A, Qt::Key_G, Qt::Key_Z})
            QTest::keyClick(&view, Qt::Key(key), Qt::ControlModifier);
        m_mouse->drag({64, 64}, {50, 50});
        m_mouse->click({450, 60});
        QCOMPARE(m_mouse->selected().size(), 3);
        QCOMPARE(m_mouse->layout(), moved);
        view.toolBar().button(CEditorToolBar::Navigator)->click();
        QVERIFY(view.aerialView().isVisible());
        view.toolBar().button(CEditorToolBar::Hand)->click(); // there is no other mode to go to
        QVERIFY(view.toolBar().tool(CEditorToolBar::Hand)->isChecked());
        block(false);
        QVERIFY(view.isInteractive());
        QCOMPARE(enabledTools(), before);
        QTest::keyClick(&view, Qt::Key_Delete);
        QCOMPARE(m_mouse->stack().undoText(), QStringLiteral("Delete"));
    }

private:
    /// What the enabled buttons of the tool bar are called.
    QStringList enabledTools()
    {
        QStringList names;
        for (QAction *action : m_mouse->view().toolBar().actions()) {
            const QWidget *button = m_mouse->view().toolBar().widgetForAction(action);
            if (button && button->isEnabled() && !button->accessibleName().isEmpty())
                names << button->accessibleName();
        }
        return names;
    }
    static QSet<QUuid> uuidsOf(const QList<Cabinet> &cabinets)
    {
        QSet<QUuid> uuids;
        for (const Cabinet &cabinet : cabinets)
            uuids << cabinet.uuid;
        return uuids;
    }
    QSet<QUuid> uuidsOfPorts(const QList<int> &ports)
    {
        QSet<QUuid> uuids;
        for (const int port : ports) {
            for (const Cabinet &cabinet : m_mouse->original().port(port)->getAllCabinets())
                uuids << cabinet.uuid;
        }
        return uuids;
    }
};

ORVO_TEST_MAIN(QApplication, CLayoutViewTest)
#include "tst_layout_view.moc"
