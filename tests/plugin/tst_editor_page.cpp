// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CFaultLine.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/panels/ports/SOverload.h"
#include "tests/editor/SceneParts.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/plugin/SPageWorld.h"

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMouseEvent>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QToolButton>

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

    void theCanvasTellsLoads()
    {
        SPageWorld world;
        Q_EMIT world.store.notifyProcessorPortPayloadChanged(1, 137);
        QCOMPARE(world.scene().backend().content().portItem(1)->look().load, qint64(137));
    }
};

ORVO_TEST_MAIN(QApplication, CEditorPageTest)
#include "tst_editor_page.moc"
