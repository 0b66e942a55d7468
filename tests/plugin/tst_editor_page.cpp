// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CFaultLine.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/panels/ports/SOverload.h"
#include "layout/plugin/CLayoutEditorPage.h"
#include "layout/plugin/CPortCommands.h"
#include "layout/plugin/CViewPortPanel.h"
#include "tests/editor/SceneParts.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/plugin/SPageWorld.h"

#include <QApplication>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMouseEvent>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QUndoStack>

class CEditorPageTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aFillThatCannotBeReadIsToldBesideTheTitle()
    {
        const QTemporaryDir folder;
        SPageWorld world;
        const auto note = [&world] { return world.page.findChildren<QLabel *>().at(1)->text(); };
        SBackgroundInfo info;
        info.enabled = true;
        info.file = folder.filePath(QStringLiteral("missing.png"));
        info.processor = world.b;
        world.answers()->backgrounds[world.b] = info;
        expectWarning(QRegularExpression(QStringLiteral("The canvas has no fill")));
        world.open(world.b);
        QVERIFY2(note().contains(info.file), qPrintable(note()));
        world.open(world.a);
        QCOMPARE(note(), QString());
        world.open(world.b);
        QVERIFY(!note().isEmpty());
        QVERIFY(QImage(4, 4, QImage::Format_RGB32).save(info.file));
        world.host.notify(LayoutNotification::BackgroundChanged, info);
        settle(world.host, world.store);
        QCOMPARE(note(), QString());
        world.page.setReadbackResult(true);
        info.opacity = 50;
        world.host.notify(LayoutNotification::BackgroundChanged, info);
        settle(world.host, world.store);
        QVERIFY(!note().isEmpty()); // is about something else
        world.scene().selectAllItem();
        world.scene().selectedItemMoveDown();
        QCOMPARE(note(), QString()); // the user goes on
    }

    void theWindowsMenusDoWhatTheKeysDo()
    {
        SPageWorld world;
        const auto edit = [&world](const char *text) {
            QMenu menu;
            world.page.fillEditMenu(menu);
            entryOf(menu, QLatin1String(text))->trigger();
        };
        const auto enabled = [&world] {
            QMenu menu;
            world.page.fillEditMenu(menu);
            return entryOf(menu, QStringLiteral("Select &all"))->isEnabled();
        };
        QVERIFY(!enabled()); // nothing is on screen
        world.page.show();
        edit("Select &all");
        QVERIFY(!world.scene().selection().isEmpty());
        edit("&Delete");
        QCOMPARE(world.scene().backend().content().portItem(0)->cabinets(nullptr).size(), 0);
        edit("&Undo");
        QCOMPARE(world.scene().backend().content().portItem(0)->cabinets(nullptr).size(), 4);
        edit("&Redo");
        QCOMPARE(world.scene().backend().content().portItem(0)->cabinets(nullptr).size(), 0);
        QMenu view;
        world.page.fillViewMenu(view);
        entryOf(view, QStringLiteral("Pixel by &pixel"))->trigger();
        QCOMPARE(world.view().scaleFactor(), 1.0);
        entryOf(view, QStringLiteral("&Navigator"))->trigger();
        QVERIFY(world.view().toolBar().tool(CEditorToolBar::Navigator)->isChecked());
        edit("&Undo");
        edit("Select &all");
        edit("&Copy");
        const QRect copied = world.scene().selection().extent();
        const QPoint middle = world.view().viewport()->rect().center();
        QCursor::setPos(world.view().viewport()->mapToGlobal(middle)); // where the menu was
        edit("&Paste");
        QCOMPARE(world.scene().selection().extent(),
                 copied.translated(copied.width(), 100)); // beside the last one
        edit("&Undo");
        world.store.setCurrentPort(1);
        world.store.setPortLocked(1, true);
        world.view().onPortClicked(1, true);
        const auto tip = [&world](const char *text) {
            QMenu menu;
            world.page.fillEditMenu(menu);
            const QAction *entry = entryOf(menu, QLatin1String(text));
            return entry->isEnabled() ? QString() : entry->toolTip();
        };
        for (const char *text :
             {"Cu&t", "&Paste", "&Delete", "&Group", "U&ngroup", "&Move by one pixel", "App&end cabinets..."})
            QCOMPARE(tip(text), QStringLiteral("Port 2 is locked."));
        world.open(world.host.addProcessor(QStringLiteral("Without ports"), 0));
        QCOMPARE(tip("&Paste"), QStringLiteral("No output port is chosen."));
        world.open(world.a);
        world.view().toolBar().chooseMode(CEditorToolBar::Hand);
        QCOMPARE(tip("&Copy"), QStringLiteral("The hand tool only looks."));
        QCOMPARE(tip("&Redo"), QString()); // works with every tool
        world.page.setEditingBlocked(true);
        QVERIFY(!enabled());
    }

    void aFillIsShownOnce()
    {
        SPageWorld world;
        CSignalLog looks(&world.scene(), &CCabinetGraphicsScene::notifyLookChanged);
        SBackgroundInfo info;
        info.processor = world.a;
        world.answers()->layouts[world.a].canvas = QSize(640, 480);
        world.host.notify(LayoutNotification::BackgroundChanged, info);
        QTRY_COMPARE(looks.count(), 1);
        QCOMPARE(world.scene().backend().content().canvas(), QSize(640, 480)); // changed with it
        QCoreApplication::processEvents();
        QCOMPARE(looks.count(), 1);
    }

    void aRedundancyProcessorIsLookedAtOnly()
    {
        SPageWorld world;
        world.answers()->redundancies = {{world.b, world.a}};
        world.open(world.a);
        const auto rowRefuses = [&world] {
            const QWidget &list = *world.page.findChild<CPortList *>();
            return !named<QAbstractButton>(list, "Port area")->isEnabled() &&
                   !named<QAbstractButton>(list, "Redundancy and current gain")->isEnabled();
        };
        QVERIFY(!world.port(0).isEnabled() && rowRefuses());
        QCOMPARE(world.view().refusal(EditKind::Edit),
                 QStringLiteral("A redundancy processor follows its primary."));
        world.open(world.b);
        QVERIFY(world.port(0).isEnabled() && !rowRefuses());
        world.page.setEditingBlocked(true);
        QVERIFY(rowRefuses());
        QCOMPARE(world.view().refusal(EditKind::Edit), QStringLiteral("Editing is locked."));
    }

    void theStatusBarTellsOfWallSelectionAndCanvas()
    {
        SPageWorld world;
        world.answers()->layouts[world.a].canvas = QSize(3840, 2160);
        world.page.reload();
        QWidget &figures = *world.page.statusFigures();
        const auto text = [&figures](const char *name) {
            QCoreApplication::processEvents();
            return figures.findChild<QLabel *>(QLatin1String(name))->text();
        };
        const CabinetLayout &wall = world.answers()->layouts[world.a].layout;
        const QSize size = wall.boundingRect().size();
        QCOMPARE(text("StatusExtent"),
                 QStringLiteral("12 cabinets, %1 × %2").arg(size.width()).arg(size.height()));
        QCOMPARE(text("StatusCanvas"), QStringLiteral("Canvas 3840 × 2160"));
        world.view().onPortClicked(1, true);
        QVERIFY(text("StatusExtent").startsWith(QLatin1String("4 selected, ")));
        const CabinetLayout::CabinetPort::Cabinet one = world.scene().selection().records().first();
        QVERIFY(text("StatusExtent")
                    .endsWith(QLocale(QLocale::English)
                                  .toString(4 * one.rect.width() * one.rect.height())
                                  .append(QStringLiteral(" pixels"))));
        QCOMPARE(text("StatusPort"), QStringLiteral("Port 2: 0%"));
        world.answers()->loads[1] = 37;
        QVERIFY(world.store.updatePortLoad(1, true));
        QCOMPARE(text("StatusPort"), QStringLiteral("Port 2: 37%"));
        world.view().setScaleFactor(2);
        QCOMPARE(text("StatusScale"), QStringLiteral("Zoom 200%"));
        world.scene().backend().operations().remove();
        QVERIFY(text("StatusExtent").startsWith(QLatin1String("8 cabinets, ")));
        world.scene().undo(nullptr);
        world.view().clearSelected();
        QVERIFY(text("StatusExtent").startsWith(QLatin1String("12 cabinets, ")));
    }

    void aNarrowStatusBarLosesTheLessImportantFirst()
    {
        SPageWorld world;
        world.answers()->layouts[world.a].canvas = QSize(3840, 2160);
        world.page.reload();
        QStatusBar bar;
        bar.addPermanentWidget(world.page.statusFigures());
        bar.show();
        world.page.show();
        QCoreApplication::processEvents();
        QTest::mouseMove(world.view().viewport(), QPoint(20, 20));
        QMouseEvent move(QEvent::MouseMove, QPointF(30, 30), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(world.view().viewport(), &move);
        QStringList gone;
        const auto note = [&gone](const char *name, bool seen) {
            const QString one = QLatin1String(name);
            if (!seen && !gone.contains(one))
                gone << one;
        };
        auto *hint = bar.findChild<QLabel *>(QStringLiteral("ToolHint"));
        QVERIFY(hint && !hint->text().isEmpty());
        for (int width = 1400; width > 200; width -= 8) {
            bar.resize(width, bar.height());
            QCoreApplication::processEvents();
            note("hint", hint->fontMetrics().horizontalAdvance(hint->text()) <= hint->width());
            for (const char *name :
                 {"StatusExtent", "StatusPort", "StatusScale", "StatusCanvas", "StatusCursor"})
                note(name, bar.findChild<QLabel *>(QLatin1String(name))->isVisible());
        }
        QCOMPARE(gone.join(QLatin1Char(' ')),
                 QStringLiteral("hint StatusCanvas StatusCursor StatusScale StatusPort"));
        bar.resize(1400, bar.height());
        bar.showMessage(QStringLiteral("Saved"));
        QVERIFY(!hint->isVisible());
        bar.clearMessage();
        QVERIFY(hint->isVisible());
        const QString arrow = hint->text();
        world.view().toolBar().chooseMode(CEditorToolBar::Pen);
        QVERIFY(hint->text() != arrow);
        const auto told = [&bar] {
            QCoreApplication::processEvents();
            return bar.findChild<QLabel *>(QStringLiteral("StatusExtent"))->isVisible() &&
                   bar.findChild<CFaultLine *>()->isVisible();
        };
        QVERIFY(told());
        auto *faults = bar.findChild<CFaultLine *>();
        SOverload overload;
        overload.ports = {1, 2};
        Q_EMIT world.page.findChild<CPortList *>()->notifyOverloadChanged(overload);
        const QToolButton *last = faults->findChildren<QToolButton *>().last();
        QVERIFY(last->isVisible() && last->text().endsWith(QStringLiteral("2 overloaded")));
        world.page.hide(); // another page stands in front
        QVERIFY(!told() && hint->text().isEmpty());
        world.page.show();
        QVERIFY(told() && !hint->text().isEmpty());
    }

    /// Click, Ctrl+click and selection in the editor; an empty port is chosen, too.
    void portListAndSelectionFollowEachOther()
    {
        SPageWorld world;
        QCOMPARE(world.checked(), QList<int>{0});
        CSignalLog toggled(world.page.findChild<CViewPortPanel *>(), &CViewPortPanel::notifyPortToggled);
        QTest::mouseClick(&world.port(1), Qt::LeftButton, {}, QPoint(60, 20));
        QCOMPARE(world.store.currentPort(), 1);
        QCOMPARE(toggled[0], (QVariantList{1, true}));
        QCOMPARE(world.scene().selection().ports(), QList<int>{1});
        QTest::mouseClick(&world.port(2), Qt::LeftButton, Qt::ControlModifier, QPoint(60, 20));
        QCOMPARE(world.checked(), (QList<int>{1, 2}));
        QCOMPARE(world.scene().selection().ports(), (QList<int>{1, 2}));
        QTest::mouseClick(&world.port(2), Qt::LeftButton, {}, QPoint(60, 20));
        QCOMPARE(world.scene().selection().ports(), QList<int>{2});
        QCOMPARE(world.store.currentPort(), 2);
        QCOMPARE(toggled.count(), 2); // once for each other port
        QTest::mouseClick(&world.port(2), Qt::LeftButton, {}, QPoint(60, 20));
        QVERIFY(world.scene().selection().isEmpty());
        QCOMPARE(world.checked(), QList<int>{2}); // still the current one
        QTest::mouseClick(&world.port(2), Qt::LeftButton, {}, QPoint(60, 20));
        (*world.scene().selection().items().begin())->setSelected(false);
        QTest::mouseClick(&world.port(2), Qt::LeftButton, {}, QPoint(60, 20)); // the rest of it, too
        QCOMPARE(world.scene().selection().cabinets().size(), 4);
        QTest::mouseClick(&world.port(2), Qt::LeftButton, {}, QPoint(60, 20));
        QVERIFY(world.scene().selection().isEmpty());
        world.scene().backend().picks().port(0, true);
        QCOMPARE(world.store.currentPort(), 0);
        QCOMPARE(world.checked(), QList<int>{0});
        world.view().onPortsChosen({1, 2});
        QCOMPARE(world.scene().selection().ports(), (QList<int>{1, 2}));
        world.view().onPortsChosen({1});
        world.scene().backend().operations().remove();
        QTest::mouseClick(&world.port(0), Qt::LeftButton, {}, QPoint(60, 20));
        QTest::mouseClick(&world.port(1), Qt::LeftButton, {}, QPoint(60, 20)); // which is empty now
        QCOMPARE(world.store.currentPort(), 1);
        settle(world.host, world.store); // with a detection, during which the wall is in view
        QTRY_COMPARE(world.store.currentPort(), 1);
        world.view().onNotifyAppendCabinet({}, 0, QSize(64, 64));
        world.store.setCurrentPort(2); // by nobody who knows the view
        CScenePlacing &placing = world.scene().backend().placing();
        const int before = world.scene().backend().content().portItem(2)->cabinets(nullptr).size();
        QGraphicsSceneMouseEvent event;
        event.setScenePos(QPointF(3000, 3000));
        QVERIFY(placing.isAppending());
        placing.press(event);
        placing.release(event);
        QCOMPARE(world.scene().backend().content().portItem(2)->cabinets(nullptr).size(), before + 1);
    }

    void keysThatThePortListDoesNotUseAreForTheCanvas()
    {
        SPageWorld world;
        const auto cabinets = [&world] { return world.scene().selection().cabinets().size(); };
        QTest::mouseClick(&world.port(1), Qt::LeftButton, {}, QPoint(60, 20));
        QTest::keyClick(&world.port(1), Qt::Key_G, Qt::ControlModifier);
        QCOMPARE(world.scene().selection().groups().size(), 1);
        const QRect before = world.scene().selection().extent();
        QTest::keyClick(&world.port(2), Qt::Key_Right); // moves the focus, if anything
        QCOMPARE(world.scene().selection().extent(), before);
        QTest::keyClick(&world.port(1), Qt::Key_Delete);
        QCOMPARE(cabinets(), 0);
        QTest::keyClick(&world.port(1), Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(cabinets(), 8);
    }

    void aRedundancyIsSetAfterAQuestion()
    {
        SPageWorld world;
        CPortCommands &commands = world.page.portCommands();
        world.answers()->refused = {QStringLiteral("setPortRedundancy")};
        const QString yes = QStringLiteral("Yes");
        const QString ok = QStringLiteral("OK");
        const CMessageBoxAnswerer user({QStringLiteral("No"), yes, ok, yes, ok});
        commands.setRedundancy(0, 2);
        QCOMPARE(world.answers()->count(QStringLiteral("setPortRedundancy")), 0);
        commands.setRedundancy(0, 2);
        QVERIFY(world.answers()->calls().contains(QStringLiteral("setPortRedundancy(0,2)")));
        QCOMPARE(user.boxes().first().details, QStringLiteral("These output ports hold cabinets:\nPort 3"));
        QCOMPARE(user.texts().last(), QStringLiteral("Set failed."));
        world.answers()->refused.clear();
        commands.setRedundancy(0, 2);
        QCOMPARE(user.texts().last(), QStringLiteral("Set successful."));
    }

    void filesOfAPortKeepItsLock()
    {
        SPageWorld world;
        CPortCommands &commands = world.page.portCommands();
        const QString ok = QStringLiteral("OK");
        const CMessageBoxAnswerer user({ok, QStringLiteral("No"), QStringLiteral("Yes"), ok});
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("one.pprj"));
        const QString filter = QStringLiteral("Port Project File(*.pprj)");
        {
            CFileDialogAnswerer files(file);
            commands.exportMapping(1);
            QCOMPARE(files.proposal, QStringLiteral("New.pprj"));
            QCOMPARE(files.filters << files.title, (QStringList{filter, QStringLiteral("Export...")}));
        }
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        world.store.setPortLocked(1, true);
        for (const int boxes : {2, 4}) { // after "No" there is nothing to do, and to tell
            CFileDialogAnswerer files(file);
            commands.importMapping(1);
            QCOMPARE(user.boxes().size(), boxes);
            QCOMPARE(files.filters << files.title, (QStringList{filter, QStringLiteral("Import...")}));
        }
        QCOMPARE(world.answers()->calls().filter(QStringLiteral("PortMapping")),
                 (QStringList{QStringLiteral("exportPortMapping(1,%1)").arg(file),
                              QStringLiteral("importPortMapping(1,%1,true)").arg(file)}));
    }

    void appendOfAPortGoesIntoIt()
    {
        SPageWorld world;
        Q_EMIT world.port(2).notifyAppendCabinet(2, QSize(64, 32));
        QCOMPARE(world.scene().property("pendingAppendCabinetPort").toInt(), 2);
        QCOMPARE(world.scene().property("pendingAppendCabinetSize").toSize(), QSize(64, 32));
        QTest::mouseClick(&world.port(1), Qt::LeftButton, {}, QPoint(60, 20));
        QCOMPARE(world.scene().property("pendingAppendCabinetPort").toInt(), 1);
    }

    void theCanvasTellsLoads()
    {
        SPageWorld world;
        Q_EMIT world.store.notifyProcessorPortPayloadChanged(1, 137);
        QCOMPARE(world.scene().backend().content().portItem(1)->look().load, qint64(137));
    }

    void aPortThatBecomesARedundancyIsPrepared()
    {
        SPageWorld world;
        QCOMPARE(world.ranks(1), (QVector<int>{0, 1, 2, 3}));
        using Port = CabinetLayout::CabinetPort;
        const auto setRole = [&world](Port::Redundancy role) {
            const CFakeAnswers answers = world.answers();
            answers->layouts[world.a].layout.ports[0].redundancy = role;
            answers->layouts[world.a].layout.ports[0].redundancyPort = 1;
        };
        setRole(Port::Primary);
        world.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        QTRY_COMPARE(world.ranks(1), QVector<int>(4, -1));
        QCOMPARE(world.ranks(0), (QVector<int>{0, 1, 2, 3}));
        const auto named = [&world] { return world.scene().backend().content().portItem(0)->look().backup; };
        QCOMPARE(named(), QStringLiteral("P2"));
        setRole(Port::NoRedundancy);
        world.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, false});
        QTRY_COMPARE(named(), QString());
    }
};

ORVO_TEST_MAIN(QApplication, CEditorPageTest)
#include "tst_editor_page.moc"
