// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CSceneSelection.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/panels/CMappingLabel.h"
#include "layout/panels/ports/COverloadLine.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/plugin/CLayoutEditorPage.h"
#include "layout/plugin/CMappingCommands.h"
#include "layout/plugin/CViewPortPanel.h"
#include "layout/plugin/CWiringLayoutWidget.h"
#include "platform/widgets/CUnitLabel.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/SStoreWorld.h"

#include <QApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QSettings>
#include <QSplitter>
#include <QToolButton>
#include <QTranslator>

namespace {

/// The editor page in a window of its own, as it is at the start of the program, with its side panel.
struct SWindowWorld final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 3, 4);
    CLayoutEditorPage page{store};
    CMappingCommands mapping{store, page};
    CLayoutSidePanel side{SUnitServices{store, mapping}};

    explicit SWindowWorld(int height = 800)
    {
        page.connectPanel(side);
        page.resize(900, height);
        page.show();
        side.show();
        show(a);
        page.setProcessor(answers()->getProcessorNode(a));
        QCoreApplication::processEvents();
    }
    CPortList &list() const { return *page.findChild<CPortList *>(); }
    CViewPortPanel &panel() const { return *page.findChild<CViewPortPanel *>(); }
    CLayoutGraphicsView &view() const { return *page.findChild<CLayoutGraphicsView *>(); }
    QToolButton &collapse() const { return *page.findChild<QToolButton *>(QStringLiteral("ListCollapse")); }
    void dragSplitter(int by) const
    {
        QWidget *handle = page.findChild<QSplitter *>()->handle(1);
        const QPoint grip = handle->rect().center();
        QTest::mousePress(handle, Qt::LeftButton, {}, grip);
        QMouseEvent move(QEvent::MouseMove, grip + QPoint(0, by), handle->mapToGlobal(grip + QPoint(0, by)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(handle, &move);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, grip);
    }
};

/// Another language: the same in capitals.
class CLoudTranslator final : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QString::fromUtf8(source).toUpper();
    }
};

} // namespace

class CViewPortPanelTest final : public CTestBase
{
    Q_OBJECT

private:
    void setUp() override { QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo")).clear(); }

private Q_SLOTS:
    void viewAndListStandInASplitter()
    {
        SWindowWorld world;
        QCOMPARE(world.panel().objectName(), QStringLiteral("ViewPort"));
        const auto &splitter = *world.panel().findChild<QSplitter *>();
        QCOMPARE(splitter.orientation(), Qt::Vertical);
        QCOMPARE(splitter.indexOf(&world.view()), 0);
        QCOMPARE(splitter.indexOf(&world.list()), 1);
        QCOMPARE(splitter.handleWidth(), 0);
        QVERIFY(!splitter.childrenCollapsible());
        QCOMPARE(world.view().sizePolicy().verticalStretch(), 5);
        QCOMPARE(world.list().sizePolicy().verticalStretch(), 1);
        QCOMPARE(world.collapse().size(), QSize(62, 20));
        QVERIFY(world.collapse().isCheckable() && world.collapse().property("ToolLocation").isValid());
        QCOMPARE(world.collapse().parentWidget()->objectName(), QStringLiteral("Overlay"));
        world.dragSplitter(-50);
        const QSettings settings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo"));
        QCOMPARE(settings.value(QStringLiteral("client/layout")).toByteArray(), splitter.saveState());
    }

    void theSplitterIsFoundWhereItWasLeft()
    {
        int left = 0;
        {
            SWindowWorld world;
            QCOMPARE(world.list().height(), world.list().heightOfRows(2));
            world.dragSplitter(-90);
            left = world.list().height();
            QVERIFY(left > world.list().heightOfRows(2));
        }
        SWindowWorld next;
        QCOMPARE(next.list().height(), left);
    }

    void whatIsFoldedStaysFolded()
    {
        {
            SWindowWorld world;
            QCOMPARE(world.collapse().toolTip(), QStringLiteral("Collapse"));
            world.collapse().click();
            QVERIFY(!world.list().isVisible());
            world.side.findChildren<CUnitLabel *>().at(1)->setCollapsed(true);
        }
        SWindowWorld next;
        QVERIFY(!next.list().isVisible());
        QCOMPARE(next.collapse().toolTip(), QStringLiteral("Expand"));
        QVERIFY(next.side.findChildren<CUnitLabel *>().at(1)->isCollapsed());
        QVERIFY(!next.side.findChildren<CUnitLabel *>().at(0)->isCollapsed());
        next.collapse().click();
        QVERIFY(next.list().isVisible());
        QTRY_COMPARE(next.list().height(), next.list().heightOfRows(2));
        QVERIFY(SWindowWorld().list().isVisible());
    }

    void aLowWindowShowsOneRowOfPorts()
    {
        SWindowWorld world;
        for (const auto &[height, rows] : {std::pair(560, 1), {800, 2}, {599, 1}, {600, 2}}) {
            world.page.resize(900, height);
            QTRY_COMPARE(world.list().height(), world.list().heightOfRows(rows));
        }
        world.page.resize(900, 800);
        world.dragSplitter(-90);
        world.dragSplitter(60); // what the user wants is smaller than it was
        const int wanted = world.list().height();
        QVERIFY(wanted > world.list().heightOfRows(2));
        for (const int height : {500, 800})
            world.page.resize(900, height);
        QTRY_COMPARE(world.list().height(), wanted);
        world.page.resize(900, 500);
        world.dragSplitter(-90); // is not kept: it would apply to high windows, too
        QCOMPARE(SWindowWorld().list().height(), wanted);
    }

    void overloadedPortsThatAreChosenComeIntoView()
    {
        SWindowWorld world;
        world.answers()->loads[2] = 150;
        Q_EMIT world.store.notifyLayoutReplaced(world.a);
        Q_EMIT world.store.notifyProcessorPortPayloadChanged(2, 150);
        CSignalLog areas(&world.panel(), &CViewPortPanel::notifySelectedPortGeometryChanged);
        const auto seen = [&] {
            return world.view().mapToScene(world.view().viewport()->rect()).boundingRect();
        };
        const QWidget &inList = world.list();
        for (const QWidget *place : {&inList, static_cast<const QWidget *>(&world.side)}) {
            world.view().setScaleFactor(8);
            world.view().showPlace({-500, -500});
            Q_EMIT place->findChild<COverloadLine *>()->notifySelectPorts({2});
            QCOMPARE(world.view().cabinetScene().selection().ports(), QList<int>{2});
            const auto told = areas[0].first().value<QList<QPair<int, QRect>>>();
            QCOMPARE(told.size(), 1);
            QCOMPARE(told.first().first, 2);
            QVERIFY(seen().contains(told.first().second));
        }
    }

    void theCollapseTipIsTranslatedAgain()
    {
        SWindowWorld world;
        CLoudTranslator loud;
        QCoreApplication::installTranslator(&loud);
        QTRY_COMPARE(world.collapse().toolTip(), QStringLiteral("COLLAPSE"));
    }

    void aSaveEndsTheResultOfTheLastRead()
    {
        SWindowWorld world;
        const auto note = [&] { return world.page.findChildren<QLabel *>().at(1)->text(); };
        world.panel().onReadbackMappingFinished(false);
        QCOMPARE(note(), QStringLiteral("The processor's mapping differed from the layout."));
        Q_EMIT world.side.notifySaveMappingSuccessed();
        QCOMPARE(note(), QString());
    }
};

ORVO_TEST_MAIN(QApplication, CViewPortPanelTest)
#include "tst_view_port_panel.moc"
