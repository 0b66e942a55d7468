// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LayoutLimits.h"
#include "layout/editor/view/CFaultLine.h"
#include "platform/graphics/CAerialView.h"
#include "tests/editor/CMouseTest.h"
#include "tests/harness/CSignalLog.h"

#include <QMainWindow>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolButton>

namespace {

using Bar = CEditorToolBar;
using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;

QSet<QUuid> uuidsOf(const QList<Cabinet> &cabinets)
{
    QSet<QUuid> uuids;
    for (const Cabinet &cabinet : cabinets)
        uuids << cabinet.uuid;
    return uuids;
}

} // namespace

/// The view as the rest of the module uses it.
class CLayoutViewTest final : public CMouseTest
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhatIsSelected()
    {
        const CSignalLog ports(&view(), &CLayoutGraphicsView::notifySelectedPort);
        const CSignalLog infos(&view(), &CLayoutGraphicsView::notifySelectedCabinetInfos);
        const auto step = [this](int port, bool selected) {
            view().onPortClicked(port, selected);
            QCoreApplication::processEvents(); // the records are told once the event loop is back
        };
        step(0, true);
        step(1, true); // a group: told are its cabinets
        step(0, false);
        view().clearSelected();
        QCoreApplication::processEvents();
        const QVector<QList<int>> told = {{0}, {0, 1}, {1}, {}};
        QCOMPARE(ports.count(), told.size());
        QCOMPARE(infos.count(), told.size());
        for (int i = 0; i < told.size(); ++i) {
            QCOMPARE(ports[i].first().value<QList<int>>(), told[i]);
            QCOMPARE(uuidsOf(infos[i].first().value<QList<Cabinet>>()), uuidsOfPorts(told[i]));
        }
    }

    void theStatusBarSaysWhatDidNotHappen()
    {
        QMainWindow window;
        window.setCentralWidget(&view());
        const auto said = [&window] {
            QCoreApplication::processEvents(); // what was pressed has been handled
            return window.statusBar()->currentMessage();
        };
        view().onPortClicked(0, true);
        QTest::keyClick(&view(), Qt::Key_Down);
        QCOMPARE(said(), QString());
        QTest::keyClick(&view(), Qt::Key_Left); // one of three can
        QCOMPARE(said(), QStringLiteral("1 cabinet stands at the edge."));
        m_mouse->states().locked[0] = true;
        for (const int key : {Qt::Key_Right, Qt::Key_Delete}) {
            QTest::keyClick(&view(), Qt::Key(key));
            QCOMPARE(said(), QStringLiteral("Port 1 is locked."));
        }
        m_mouse->states().locked[0] = false;
        m_mouse->scene().clearSelection();
        view().toolBar().chooseMode(CEditorToolBar::Pen);
        for (const int end : {450, 320}) { // into port 4, and up to it
            m_mouse->pull({64, 64}, {end, 64});
            QCOMPARE(said(), end == 450 ? QStringLiteral("Cabinets of other ports were left out.")
                                        : QStringLiteral("It is wired like this already."));
            QTest::mousePress(&window, Qt::RightButton);
        }
        view().toolBar().chooseMode(CEditorToolBar::Arrow);
        view().onPortClicked(1, true); // an L
        view().onNotifySelectedCabinetSizeChanged({64, 64});
        QVERIFY(said().endsWith(QLatin1String("cannot be resized.")));
        m_mouse->states().locked[0] = true;
        view().onPortClicked(0, true);
        QTest::keyClick(&view(), Qt::Key_Delete);
        QCOMPARE(said(), QStringLiteral("Port 1 is locked."));
        QWidget elsewhere;
        QTest::mousePress(&elsewhere, Qt::LeftButton); // whatever the user does next
        QCOMPARE(said(), QString());
        view().onNotifyAppendCabinet({}, 0, QSize(100, 100));
        QCOMPARE(said(), QStringLiteral("Port 1 is locked."));
        view().onNotifyAppendCabinet({}, 2, QSize(100, 100));
        m_mouse->states().redundancy[1] = CabinetLayout::CabinetPort::Redundant;
        view().onPortToggled(1, true); // which ends the append
        QCOMPARE(said(), QStringLiteral("Port 2 is a redundancy port."));
        view().setParent(nullptr); // it is not the window's
    }

    void highlightsOutliveEditsButNotTheirCabinet()
    {
        CCabinetGraphicsScene &scene = m_mouse->scene();
        CSceneBackend &backend = scene.backend();
        const auto highlighted = [&backend] { return backend.highlights().records().size(); };
        m_mouse->cabinet(0, 0).setHighlighted(true);
        m_mouse->cabinet(0, 1).setHighlighted(true);
        m_mouse->view().onPortClicked(0, true);
        scene.topologyWiring(1);
        scene.selectedItemMoveDown();
        backend.operations().group();
        backend.operations().ungroup();
        scene.breakSelectedWiring();
        while (m_mouse->stack().canUndo())
            scene.undo(nullptr);
        m_mouse->view().onNotifyAppendCabinet({}, 0, {50, 50});
        m_mouse->click({700, 700});
        QCOMPARE(highlighted(), 2);
        scene.clearSelection();
        m_mouse->cabinet(0, 0).setSelected(true);
        backend.operations().remove();
        QCOMPARE(highlighted(), 1);
        scene.undo(nullptr);
        QCOMPARE(highlighted(), 1);
        QCOMPARE(m_mouse->layout().ports[0].groups[0].cabinets[0].calibrationIndex, -1);
    }

    void faultsAreCountedAndSelected()
    {
        CCabinetGraphicsScene &scene = m_mouse->scene();
        CLayoutFaults &faults = scene.backend().faults();
        const auto counts = [&faults] {
            faults.finish();
            return QVector<int>{faults.count(CabinetFault::Overlapping), faults.count(CabinetFault::Outside),
                                faults.count(CabinetFault::Unwired)};
        };
        const int cabinets = scene.backend().content().portItem(0)->cabinets(nullptr).size();
        const int unwired = counts()[2];
        QCOMPARE(counts(), (QVector<int>{0, 0, unwired}));
        m_mouse->view().onPortClicked(0, true);
        scene.topologyWiring(0);
        QCOMPARE(counts(), (QVector<int>{0, 0, unwired - cabinets}));
        m_mouse->click({64, 64});
        m_mouse->drag({64, 64}, {100, 0}); // over its neighbour
        QCOMPARE(counts(), (QVector<int>{2, 0, unwired - cabinets}));
        QCOMPARE(m_mouse->cabinet(0, 1).fault(), CabinetFault::Overlapping);
        QCOMPARE(scene.backend().faults().cabinets(CabinetFault::Overlapping).size(), 2);
        const CGraphicsCabinetItem &neighbour = m_mouse->cabinet(0, 1);
        const CGraphicsCabinetItem &third = m_mouse->cabinet(0, 2);
        QTest::keyClick(&view(), Qt::Key_Delete);
        QCOMPARE(counts()[0], 0); // nor is what was deleted
        scene.undo(nullptr);
        QCOMPARE(counts()[0], 2);
        scene.undo(nullptr);
        QCOMPARE(counts(), (QVector<int>{0, 0, unwired - cabinets}));
        QCOMPARE(neighbour.fault(), CabinetFault::None);
        scene.setCanvasSize({300, 2000}); // the third reaches beyond it, as do others
        QVERIFY(third.fault() == CabinetFault::None && counts()[1] > 1);
        QCOMPARE(third.fault(), CabinetFault::Outside);
        LayoutData wide = SmallWorlds::data(m_mouse->layout().ports); // what is reloaded has its own canvas
        wide.processor = wide.layout.processor = m_mouse->original().processor;
        scene.setLayoutData(SmallWorlds::node(wide), wide, {}, {}, true);
        QCOMPARE(counts()[1], 0);
        m_mouse->states().canvas = {300, 2000};
        scene.onBackgroundChanged({}, {}, true); // with the canvas that the processor has
        QVERIFY(counts()[1] > 1);
        m_mouse->states().redundancy[0] = CabinetLayout::CabinetPort::Redundant;
        scene.onNotifyProcessorStateChanged();
        counts();
        QCOMPARE(m_mouse->cabinet(0, 2).fault(), CabinetFault::None);
        QCOMPARE(counts()[2], unwired - cabinets);
        for (const Port::Redundancy redundancy : {Port::Redundant, Port::NoRedundancy}) {
            for (int port = 1; port < 4; ++port)
                m_mouse->states().redundancy[port] = redundancy;
            scene.onNotifyProcessorStateChanged();
            QCOMPARE(counts()[2] == 0, redundancy == Port::Redundant); // has no wiring of its own
        }

        CFaultLine line(m_mouse->view());
        m_mouse->click({450, 60});
        m_mouse->drag({450, 60}, {100, 0}); // over its neighbour
        const QVector<int> all = counts();
        QCOMPARE(all[0], 2);
        const QList<QToolButton *> buttons = line.findChildren<QToolButton *>();
        const char *texts[] = {"%1 overlapping", "%1 outside the canvas", "%1 unwired"};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(buttons[i]->text().mid(2), QString::fromLatin1(texts[i]).arg(all[i]));
            view().setScaleFactor(4);
            view().centerOn(2000, 2000);
            buttons[i]->click();
            QCOMPARE(scene.selection().cabinets().size(), all[i]);
            const QRectF shown = view().mapToScene(view().viewport()->rect()).boundingRect();
            QVERIFY(shown.intersects(scene.selection().extent()));
            view().setScaleFactor(1);
            view().centerOn(380, 320);
        }
    }

    void commandsConcernAllCabinetsOfAPort()
    {
        m_mouse->scene().backend().picks().port(0, true); // what is selected elsewhere is not meant
        view().showCabinetInfo(1);
        QCOMPARE(uuidsOf(m_commands.cabinets), uuidsOfPorts({1}));
        view().saveCabinetPara(3);
        QCOMPARE(uuidsOf(m_commands.cabinets), uuidsOfPorts({3}));
        view().markupCustomCabinet(true);
        view().markupCustomCabinet(false);
        view().ShowEleCurrentAdjustDialog();
        bar().button(Bar::TypeLibrary)->click();
        QCOMPARE(m_commands.calls.join(QLatin1Char('|')),
                 QStringLiteral("information|parameters|mark|unmark|gain|library"));
    }

    void appendsOnlyWhatCanBePlaced()
    {
        m_mouse->states().locked[0] = true;
        m_mouse->states().redundancy[1] = CabinetLayout::CabinetPort::Redundant;
        const int most = LayoutLimits::LargestSide;
        for (const QSize &size : {QSize(most + 1, 100), QSize(100, most + 1), QSize(0, 100)})
            view().onNotifyAppendCabinet({}, 2, size);
        for (const int port : {-1, 9, 0, 1}) // none, not there, locked, a redundancy
            view().onNotifyAppendCabinet({}, port, QSize(100, 100));
        QVERIFY(!m_mouse->scene().backend().placing().isAppending());
        for (const int side : {1, most}) {
            view().onNotifyAppendCabinet({}, 2, QSize(side, side));
            QVERIFY(m_mouse->scene().backend().placing().isAppending());
            m_mouse->scene().leaveOperation();
        }
    }

    void figuresShapeTheSelection()
    {
        m_mouse->scene().backend().picks().port(2, true); // two groups of two
        const SSelectionFigures figures = m_mouse->scene().selection().figures();
        QCOMPARE(figures.arranged.size(), 2);
        QCOMPARE(figures.count, 4);
        m_mouse->scene().clearSelection();
        QSignalSpy extents(&view(), &CLayoutGraphicsView::notifySelectedCabinetGeometryChanged);
        m_mouse->scene().backend().picks().port(0, true); // three in a row from the origin on
        const auto told = [&extents] {
            QCoreApplication::processEvents();
            return extents.last().first().toRect();
        };
        view().onNotifySelectedCabinetRankChanged({2, 2});
        QCOMPARE(told(), QRect(0, 0, 256, 256));
        view().onNotifySelectedCabinetPositionChanged(QPoint(50, 60));
        QCOMPARE(told(), QRect(50, 60, 256, 256));
        view().onNotifySelectedCabinetSizeChanged(QSize(301, 256)); // what touched still does
        QCOMPARE(m_mouse->cabinet(0, 0).cabinet().rect, QRect(50, 60, 151, 128));
        QCOMPARE(m_mouse->cabinet(0, 1).cabinet().rect, QRect(201, 60, 150, 128));
        view().onNotifySelectedCabinetSizeChanged(QSize(2 * LayoutLimits::LargestSide + 2, 128));
        view().onNotifySelectedCabinetSizeChanged(QSize(100, 0));
        QCOMPARE(m_mouse->stack().count(), 3);
        const CSignalLog words(&m_mouse->scene(), &CCabinetGraphicsScene::notifyWords);
        m_mouse->scene().clearSelection();
        m_mouse->cabinet(3, 0).setSelected(true); // two receivers side by side
        view().onNotifySelectedCabinetSizeChanged(QSize(1, 40));
        QCOMPARE(words[0].first().toString(),
                 QStringLiteral("Each receiver needs a pixel in both directions."));
        QCOMPARE(m_mouse->stack().count(), 3);
        view().onNotifySelectedCabinetSizeChanged(QSize(2, 1));
        QCOMPARE(m_mouse->cabinet(3, 0).cabinet().rect.size(), QSize(2, 1));
        view().onNotifySelectedCabinetPositionChanged({LayoutLimits::LargestOffset + 1, -7});
        QCOMPARE(m_mouse->cabinet(3, 0).cabinet().rect.topLeft(), QPoint(LayoutLimits::LargestOffset, -7));
        QCOMPARE(words[1].first().toString(), QStringLiteral("X and Y reach from \u22121048576 to 1048576."));
    }

    void historyOutlivesALookAtAnotherProcessor()
    {
        LayoutData first = SmallWorlds::data(m_mouse->original().ports);
        first.processor = first.layout.processor = m_mouse->original().processor;
        const LayoutData second = SmallWorlds::data({SmallWorlds::wiredPort(0, 2)});
        m_mouse->scene().selectAllItem();
        m_mouse->scene().selectedItemMoveDown();
        first.layout = m_mouse->layout();
        view().showLayout(SmallWorlds::node(second), second);
        QVERIFY(!bar().button(Bar::Undo)->isEnabled());
        view().showLayout(SmallWorlds::node(first), first);
        m_mouse->scene().undo(nullptr);
        QCOMPARE(m_mouse->layout(), m_mouse->original());
        m_mouse->scene().redo(nullptr);
        view().showLayout(SmallWorlds::node(second), second);
        first.layout.ports[0].groups[0].cabinets[0].rect.translate(1, 0); // changed elsewhere
        view().showLayout(SmallWorlds::node(first), first);
        QVERIFY(!bar().button(Bar::Undo)->isEnabled());
    }

    void eachWallKeepsItsScaleAndPlace()
    {
        LayoutData first = SmallWorlds::data(m_mouse->original().ports);
        first.processor = first.layout.processor = m_mouse->original().processor;
        const LayoutData second = SmallWorlds::data({SmallWorlds::wiredPort(0, 2)});
        view().setScaleFactor(4);
        view().showPlace({600, 500});
        view().showLayout(SmallWorlds::node(second), second);
        QVERIFY(view().isFitted()); // for the first time
        view().clearLayout();
        view().showLayout(SmallWorlds::node(first), first);
        QCOMPARE(view().scaleFactor(), 4.0);
        QVERIFY((view().middle() - QPointF(600, 500)).manhattanLength() < 2);
        view().showLayout(SmallWorlds::node(second), second);
        QVERIFY(view().isFitted());
    }

    void navigatorTakesTheViewThere()
    {
        CAerialView &aerial = view().aerialView();
        bar().button(Bar::Navigator)->click();
        QVERIFY(aerial.isVisible());
        view().setScaleFactor(4);
        QTest::mouseClick(&aerial, Qt::LeftButton, {}, aerial.rect().center());
        const QPointF middle = view().middle();
        const QPointF content = m_mouse->scene().contentRect().center();
        QVERIFY((middle - content).manhattanLength() < 60); // two pixels of the small picture
        const QImage before = aerial.grab().toImage();
        m_mouse->scene().onNotifyCabinetColorChanged(0, Qt::yellow);
        QTRY_VERIFY(aerial.grab().toImage() != before);
        bar().button(Bar::Navigator)->click();
        QVERIFY(!aerial.isVisible());
    }

    void zoomsAtTheCursorAndFits()
    {
        view().setScaleFactor(3);
        QSignalSpy scales(&view(), &CGraphicsView::notifyScaleChanged);
        view().fitContent();
        QVERIFY(!scales.isEmpty()); // the zoom strip shows it
        QCOMPARE(scales.last().first().toReal(), view().scaleFactor());
        const QRectF shown = view().mapToScene(view().viewport()->rect()).boundingRect();
        QVERIFY(shown.contains(view().cabinetScene().contentRect()) && view().isFitted());
        const QRect wall = view().mapFromScene(view().cabinetScene().contentRect()).boundingRect();
        const QRect room = view().viewport()->rect().adjusted(16, 16, -16, -44);
        QVERIFY(qAbs(wall.width() - room.width()) <= 2 || qAbs(wall.height() - room.height()) <= 2);
        QVERIFY((wall.center() - room.center()).manhattanLength() <= 3);
        QCoreApplication::processEvents(); // a bar would come now, and take room from what is fitted
        QVERIFY(!view().horizontalScrollBar()->isVisible() && !view().verticalScrollBar()->isVisible());

        const QPoint cursor(230, 170);
        const QPointF below = view().mapToScene(cursor);
        QTest::mouseMove(view().viewport(), cursor);
        QWheelEvent wheel(cursor, view().viewport()->mapToGlobal(cursor), {}, {0, 240}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        const qreal before = view().scaleFactor();
        QCoreApplication::sendEvent(view().viewport(), &wheel);
        QVERIFY(qFuzzyCompare(view().scaleFactor(), before * 1.25 * 1.25));
        QVERIFY(QPointF(view().mapFromScene(below) - cursor).manhattanLength() <= 3);
        QVERIFY(!view().isFitted());
        view().showActualSize();
        QCOMPARE(view().scaleFactor(), 1.0);
        view().setScaleFactor(1e9);
        QCOMPARE(view().scaleFactor(), CGraphicsView::LargestScale);
    }

    void pansWithLeftAndMiddleButton()
    {
        bar().button(Bar::Hand)->click();
        view().setScaleFactor(4);
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
            const int before = view().horizontalScrollBar()->value();
            QTest::mousePress(view().viewport(), button, Qt::NoModifier, QPoint(200, 150));
            QMouseEvent move(QEvent::MouseMove, QPointF(160, 150),
                             view().viewport()->mapToGlobal(QPoint(160, 150)), Qt::NoButton, button,
                             Qt::NoModifier);
            QCoreApplication::sendEvent(view().viewport(), &move);
            QTest::mouseRelease(view().viewport(), button, Qt::NoModifier, QPoint(160, 150));
            QCOMPARE(view().horizontalScrollBar()->value(), before + 40);
        }
        QVERIFY(m_mouse->layout() == m_mouse->original()); // nothing was dragged along
    }

private:
    CLayoutGraphicsView &view() { return m_mouse->view(); }
    Bar &bar() { return view().toolBar(); }
    QSet<QUuid> uuidsOfPorts(const QList<int> &ports)
    {
        QSet<QUuid> uuids;
        for (const int port : ports)
            uuids += uuidsOf(m_mouse->original().port(port)->getAllCabinets().toList());
        return uuids;
    }
};

ORVO_TEST_MAIN(QApplication, CLayoutViewTest)
#include "tst_layout_view.moc"
