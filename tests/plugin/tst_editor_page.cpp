// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/editor/view/CEditorToolBar.h"
#include "layout/editor/view/CLayoutGraphicsView.h"
#include "layout/plugin/CLayoutEditorPage.h"
#include "layout/redundancy/CPortBackupDialog.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/SStoreWorld.h"

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QUndoStack>

namespace {

/// The page with processor A, of three ports with four cabinets each, in a square.
struct SPageWorld final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 3, 4);
    QUuid b = host.addProcessor(QStringLiteral("B"), 3, 1);
    CLayoutEditorPage page{store};

    SPageWorld()
    {
        for (CabinetLayout::CabinetPort &port : host.answers()->layouts[a].layout.ports) {
            for (int i = 0; i < 4; ++i)
                port.groups[0].cabinets[i].rect.moveTo(100 * (i % 2), 200 * port.index + 100 * (i / 2));
        }
        open(a);
    }
    void open(const QUuid &processor)
    {
        show(processor);
        page.setProcessor(answers()->getProcessorNode(processor));
    }
    CLayoutGraphicsView &view() const { return *page.findChild<CLayoutGraphicsView *>(); }
    CCabinetGraphicsScene &scene() const { return view().cabinetScene(); }
    QComboBox &ports() const { return *view().toolBar().findChild<QComboBox *>(); }
    /// The menu behind the button of that name at the end of the tool bar, filled.
    QMenu &menu(const char *name) const
    {
        for (const QAction *action : view().toolBar().actions()) {
            if (action->text() == QLatin1String(name) && action->menu()) {
                Q_EMIT action->menu()->aboutToShow();
                return *action->menu();
            }
        }
        qFatal("There is no button %s", name);
    }
    QAction *portEntry(const char *path) const
    {
        return entryOf(menu("Lock and redundancy of the output port"), QLatin1String(path));
    }
    QVector<int> ranks(int port) const
    {
        QMap<QPair<int, int>, int> byPlace;
        for (const CGraphicsCabinetItem *item : scene().portItem(port)->cabinets(nullptr))
            byPlace.insert({item->cabinet().rect.y(), item->cabinet().rect.x()}, item->cabinet().rank);
        return byPlace.values().toVector();
    }
};

} // namespace

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
        QCOMPARE(world.scene().portItem(0)->cabinets(nullptr).size(), 0);
        edit("&Undo");
        QCOMPARE(world.scene().portItem(0)->cabinets(nullptr).size(), 4);
        edit("&Redo");
        QCOMPARE(world.scene().portItem(0)->cabinets(nullptr).size(), 0);
        QMenu view;
        world.page.fillViewMenu(view);
        entryOf(view, QStringLiteral("Pixel by &pixel"))->trigger();
        QCOMPARE(world.view().scaleFactor(), 1.0);
        entryOf(view, QStringLiteral("&Navigator"))->trigger();
        QVERIFY(world.view().toolBar().tool(CEditorToolBar::Navigator)->isChecked());
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
        QVERIFY(!world.ports().isEnabled());
        world.open(world.b);
        QVERIFY(world.ports().isEnabled());
    }

    void theStatusBarTellsOfTheSelection()
    {
        SPageWorld world;
        QWidget &figures = *world.page.statusFigures();
        figures.resize(figures.sizeHint());
        const auto text = [&figures](const char *name) {
            QCoreApplication::processEvents();
            return figures.findChild<QLabel *>(QLatin1String(name))->text();
        };
        QCOMPARE(text("StatusSelection"), QString());
        world.answers()->loads[1] = 90;
        world.store.updatePortLoad(1, false);
        world.view().onPortClicked(1, true);
        QVERIFY(text("StatusSelection").startsWith(QLatin1String("4 selected, ")));
        QCOMPARE(text("StatusPort"), QStringLiteral("Port 2: 90%"));
        world.view().clearSelected();
        QCOMPARE(text("StatusSelection"), QString());
    }

    void theStripFollowsTheStore()
    {
        SPageWorld world;
        QCOMPARE(world.ports().currentIndex(), 0);
        world.store.setCurrentPort(2);
        QCOMPARE(world.ports().currentIndex(), 2);
        world.scene().backend().picks().port(1, true);
        QCOMPARE(world.store.currentPort(), 1);
        QCOMPARE(world.ports().currentIndex(), 1);
        settle(world.host, world.store); // a detection
        QTRY_COMPARE(world.store.currentPort(), 1);
        QCOMPARE(world.ports().currentIndex(), 1);
        world.ports().setCurrentIndex(2); // without the user, the store knows nothing of it
        QVERIFY(world.portEntry("Output port"));
        world.store.setPortLocked(0, true);
        QCOMPARE(world.ports().currentIndex(), 1);
    }

    void choosingAPortEndsASelectionElsewhere()
    {
        SPageWorld world;
        world.scene().backend().picks().port(1, true);
        world.ports().setCurrentIndex(2);
        Q_EMIT world.ports().activated(2);
        QCOMPARE(world.store.currentPort(), 2);
        QVERIFY(world.scene().selection().isEmpty());
        world.scene().backend().picks().port(1, true);
        world.portEntry("Output port>Port 2")->trigger();
        QVERIFY(!world.scene().selection().isEmpty()); // it lies in that port
        world.portEntry("Output port>Port 1")->trigger();
        QCOMPARE(world.store.currentPort(), 0);
        QVERIFY(world.scene().selection().isEmpty());
    }

    void theStripsMenuIsAboutTheCurrentPort()
    {
        SPageWorld world;
        world.store.setCurrentPort(2);
        const auto lock = [&world] { return world.portEntry("Lock current output port"); };
        QVERIFY(!lock()->isChecked());
        lock()->trigger();
        QVERIFY(world.store.isPortLocked(2) && !world.store.isPortLocked(0));
        QVERIFY(lock()->isChecked());
        lock()->trigger();
        QVERIFY(!world.store.isPortLocked(2));

        const QMenu &primaries = *world.portEntry("Set as redundancy for")->menu();
        QCOMPARE(primaries.actions().size(), 2);
        world.answers()->refused = {QStringLiteral("setPortRedundancy")};
        const QString yes = QStringLiteral("Yes");
        const QString ok = QStringLiteral("OK");
        const CMessageBoxAnswerer user({QStringLiteral("No"), yes, ok, yes, ok});
        entryOf(primaries, QStringLiteral("Port 1"))->trigger();
        QVERIFY(world.answers()->calls().filter(QStringLiteral("setPortRedundancy")).isEmpty());
        entryOf(primaries, QStringLiteral("Port 1"))->trigger();
        QCOMPARE(world.answers()->calls().filter(QStringLiteral("setPortRedundancy")),
                 QStringList{QStringLiteral("setPortRedundancy(0,2)")});
        QCOMPARE(user.boxes().first().details, QStringLiteral("These output ports hold cabinets:\nPort 3"));
        QCOMPARE(user.texts().last(), QStringLiteral("Set failed."));
        world.answers()->refused.clear();
        entryOf(primaries, QStringLiteral("Port 1"))->trigger();
        QCOMPARE(user.texts().last(), QStringLiteral("Set successful."));
    }

    void theStripsMenuEndsAndShowsPairs()
    {
        SPageWorld world;
        world.store.setCurrentPort(2);
        QVERIFY(!world.portEntry("Cancel redundancy")->isEnabled());
        bool shown = false;
        inNext<CPortBackupDialog>([&shown](CPortBackupDialog &dialog) {
            shown = true;
            dialog.reject();
        });
        world.portEntry("Port redundancy...")->trigger();
        QVERIFY(shown);
        world.answers()->layouts[world.a].layout.ports[2].redundancy = CabinetLayout::CabinetPort::Redundant;
        world.page.reload();
        QVERIFY(!world.portEntry("Set as redundancy for")->isEnabled());
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        world.portEntry("Cancel redundancy")->trigger();
        QCOMPARE(world.answers()->count(QStringLiteral("cancelPortRedundancy")), 1);
    }

    void theStripsPatternsAreThoseOfTheScene()
    {
        SPageWorld world;
        world.scene().backend().picks().port(1, true);
        QSet<QVector<int>> all;
        for (int i = 0; i < 8; ++i) {
            world.menu("Topology").actions().at(i)->trigger();
            const QVector<int> chosen = world.ranks(1);
            world.scene().topologyWiring(uint(i));
            QCOMPARE(world.ranks(1), chosen);
            all << chosen;
        }
        QCOMPARE(all.size(), 8);
    }

    void aPortThatBecomesARedundancyIsPrepared()
    {
        SPageWorld world;
        QCOMPARE(world.ranks(1), (QVector<int>{0, 1, 2, 3}));
        world.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        QTRY_COMPARE(world.ranks(1), QVector<int>(4, -1));
        QCOMPARE(world.ranks(0), (QVector<int>{0, 1, 2, 3}));
    }
};

ORVO_TEST_MAIN(QApplication, CEditorPageTest)
#include "tst_editor_page.moc"
