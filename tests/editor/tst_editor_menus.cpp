// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/menus/CCanvasMenu.h"
#include "layout/editor/menus/CClearTopology.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CMouseTester.h"
#include "tests/editor/CNotedCommands.h"
#include "tests/editor/CSceneVerifier.h"
#include "tests/editor/SPortsScene.h"
#include "tests/editor/SceneParts.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

namespace {

QAction *entry(const QMenu &menu, const char *text)
{
    for (QAction *action : menu.actions()) {
        if (action->text() == QLatin1String(text))
            return action;
        QAction *inner = action->menu() ? entry(*action->menu(), text) : nullptr;
        if (inner)
            return inner;
    }
    return nullptr;
}

/// Port 0: three wired cabinets; 1: an untyped pair in a group and one beside it; 2: two typed ones; 3:
/// empty.
struct SMenuWorld : SPortsScene
{
    SMenuWorld()
        : SPortsScene({SmallWorlds::wiredPort(0, 3), SmallWorlds::nestedPort(1), SmallWorlds::receiverPort(2),
                       SmallWorlds::port(3, {})})
    {
    }

    CGraphicsItemBase &top(int port, int place)
    {
        return *scene.backend().content().portItem(port)->topItems().at(place);
    }
    /// Those of the entries that depend on what is selected, as a right click on @p item offers them.
    QString offered(CGraphicsItemBase &item, const QVector<CGraphicsItemBase *> &selected)
    {
        fill(item, selected);
        QStringList offered;
        for (const char *text :
             {"Group", "Ungroup", "Clear topology", "Set type...",
              "Export cabinet configuration< .rcvbp> file...", "Readback from connected cabinet..."}) {
            if (entry(*menu, text))
                offered << QString::fromLatin1(text).section(QLatin1Char(' '), 0, 0);
        }
        return offered.join(QLatin1Char(' '));
    }
    void fill(CGraphicsItemBase &item, const QVector<CGraphicsItemBase *> &selected)
    {
        scene.clearSelection();
        for (CGraphicsItemBase *one : selected)
            one->setSelected(true);
        menu = std::make_unique<QMenu>();
        CCabinetMenu(*menu, scene.backend().targets(), &commands, item, nullptr).fill();
    }

    void fillCanvas(int port, const QPointF &place)
    {
        states.current = port;
        menu = std::make_unique<QMenu>();
        CCanvasMenu(*menu, scene.backend().targets(), &commands, nullptr).fill(place);
    }

    CNotedCommands commands;
    std::unique_ptr<QMenu> menu;
};

/// A right click, and what it opens.
void askForMenu(CMouseTester &mouse, const QPoint &place)
{
    mouse.pressRight(place);
    mouse.contextMenu(place);
}

/// Acts in the next menu that opens, as a user does, and closes it.
class CMenuUser final : public QObject
{
public:
    explicit CMenuUser(const std::function<void(QMenu &)> &act)
    {
        connect(&m_watch, &QTimer::timeout, this, [this, act] {
            const QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            if (!menu)
                return;
            m_watch.stop();
            act(*menu);
            if (menu)
                menu->close();
        });
        m_watch.start(1);
    }
    static void click(QMenu &menu, const char *text)
    {
        QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(entry(menu, text)).center());
    }

private:
    QTimer m_watch;
};

} // namespace

class CEditorMenusTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void canvasMenuShowsWhatAppliesOnly()
    {
        SMenuWorld world;
        world.fillCanvas(3, {});
        QVERIFY(!entry(*world.menu, "Clear topology") && !entry(*world.menu, "Paste"));
        QVERIFY(!entry(*world.menu, "Undo")->isEnabled() && !entry(*world.menu, "Redo")->isEnabled());
        for (const char *text : {"Max frame rate and color depth settings...", "Canvas size settings...",
                                 "Canvas fill settings..."})
            entry(*world.menu, text)->trigger();
        QCOMPARE(world.commands.calls.join(QLatin1Char('|')),
                 QStringLiteral("frame rate|canvas size|canvas fill"));

        world.scene.selectAllItem();
        world.scene.selectedItemMoveDown();
        world.scene.backend().placing().copy();
        world.states.block = CanvasBlock::Polling;
        world.fillCanvas(0, {});
        QVERIFY(entry(*world.menu, "Clear topology") && entry(*world.menu, "Paste"));
        QVERIFY(!entry(*world.menu, "Canvas size settings... (Polling is enabled)")->isEnabled());
        QVERIFY(entry(*world.menu, "Undo")->isEnabled());
        world.states.redundancy[0] = CabinetLayout::CabinetPort::Redundant;
        world.fillCanvas(0, {});
        for (const char *text : {"Clear topology", "Paste"})
            QVERIFY(!entry(*world.menu, text)->isEnabled());
        QCOMPARE(entry(*world.menu, "Paste")->toolTip(), QStringLiteral("Port 1 is a redundancy port."));
        world.fillCanvas(-1, {});
        QVERIFY(!entry(*world.menu, "Clear topology") && !entry(*world.menu, "Paste"));
    }

    void aYesForAnotherProcessorClearsNothing()
    {
        SMenuWorld world;
        world.states.current = 0;
        const LayoutData other = SmallWorlds::data({SmallWorlds::wiredPort(0, 3)});
        CMessageBoxAnswerer user({QStringLiteral("Yes"), QStringLiteral("OK")});
        const auto pictured = [&world] {
            QImage image(300, 300, QImage::Format_RGB32);
            QPainter painter(&image);
            world.scene.render(&painter);
            return image;
        };
        const QImage before = pictured();
        QTimer::singleShot(0, &world.scene, [&world, &other, &pictured, &before] {
            QVERIFY(QApplication::activeModalWidget()); // asked, and not answered yet
            QCOMPARE(world.scene.backend().content().pointedOut(),
                     world.scene.backend().content().portItem(0));
            QVERIFY(pictured() != before);
            world.scene.setLayoutData(SmallWorlds::node(other), other);
        });
        CClearTopology::ask(nullptr, world.scene.backend().content(), world.scene.backend().operations(), 0);
        QCOMPARE(world.scene.backend().content().portItem(0)->chain().order().size(), 3);
        QVERIFY(!world.scene.backend().content().pointedOut());
        QCOMPARE(user.texts().last(), QStringLiteral("Set failed."));
        QCOMPARE(user.boxes().last().details, QStringLiteral("The processor is no longer in view."));
    }

    void cabinetMenuFollowsTheSelection()
    {
        SMenuWorld world;
        CGraphicsItemBase &wired = world.top(0, 0);
        CGraphicsItemBase &second = world.top(0, 1);
        CGraphicsItemBase &unwired = world.top(1, 0);
        CGraphicsItemBase &group = world.top(1, 1);
        CGraphicsItemBase &typed = world.top(2, 0);
        auto &member = *static_cast<CGraphicsGroupItem &>(group).cabinets().first();
        auto record = member.cabinet();
        record.type = SMD5::ofContent("a type");
        member.setCabinet(record);
        QCOMPARE(world.offered(wired, {&wired}), QStringLiteral("Clear Set Readback"));
        QCOMPARE(world.offered(unwired, {&unwired}), QStringLiteral("Clear Set"));
        QCOMPARE(world.offered(wired, {&wired, &second}), QStringLiteral("Group Clear Set"));
        QCOMPARE(world.offered(group, {&group}), QStringLiteral("Ungroup Clear Set"));
        QCOMPARE(world.offered(member, {&group}), QStringLiteral("Ungroup Clear Set"));
        QCOMPARE(world.offered(member, {&member}), QStringLiteral("Clear Set Export Readback"));
        QCOMPARE(world.offered(typed, {&typed}), QStringLiteral("Clear Set Export Readback"));
        QCOMPARE(world.offered(wired, {&wired, &typed}), QString());
        world.states.locked[0] = true;
        QCOMPARE(world.offered(wired, {&wired, &second}), QStringLiteral("Set"));
        world.states.locked[1] = true;
        QCOMPARE(world.offered(group, {&group}), QStringLiteral("Set"));
        QVERIFY(entry(*world.menu, "Current output...")->isEnabled());
        world.states.redundancy[1] = CabinetLayout::CabinetPort::Redundant;
        world.offered(group, {&group});
        QVERIFY(!entry(*world.menu, "Current output...")->isEnabled());
        world.offered(wired, {&wired, &second});
        QVERIFY(!entry(*world.menu, "Set type...")->isEnabled());
        QCOMPARE(entry(*world.menu, "Set type...")->toolTip(), QStringLiteral("Port 1 is locked."));
    }

    void cabinetEntriesDoWhatTheySay()
    {
        SMenuWorld world;
        CGraphicsItemBase &typed = world.top(2, 0);
        world.states.marksCustom = true;
        world.commands.refusal = QStringLiteral("The processor is offline.");
        world.fill(typed, {&typed});
        QAction *readback = entry(*world.menu, "Readback from connected cabinet...");
        QVERIFY(!readback->isEnabled());
        QCOMPARE(readback->toolTip(), world.commands.refusal);
        QCOMPARE(entry(*world.menu, "Save parameters...")->toolTip(), world.commands.refusal);
        QVERIFY(!entry(*world.menu, "Save parameters...")->isEnabled());
        QVERIFY(!entry(*world.menu, "Export cabinet configuration< .rcvbp> file...")->isEnabled());
        world.commands.refusal.clear();
        world.fill(typed, {&typed});
        for (const char *text : {"Current output...", "Set all outputs to default", "Set type...",
                                 "Save parameters...", "Export cabinet configuration< .rcvbp> file...",
                                 "Readback from connected cabinet...", "Cabinet information...."})
            entry(*world.menu, text)->trigger();
        QCOMPARE(world.commands.calls.join(QLatin1Char('|')),
                 QStringLiteral("fill|reset fills|type|parameters|export|readback|information"));
        QCOMPARE(world.commands.cabinets, QList<CabinetLayout::CabinetPort::Cabinet>{typed.cabinet()});
        QVERIFY(entry(*world.menu, "Markup custom-defined cabinets")->isChecked());
        entry(*world.menu, "Markup custom-defined cabinets")->toggle();
        QCOMPARE(world.commands.calls.last(), QStringLiteral("unmark"));
    }

    void entriesEditTheSelection()
    {
        SMenuWorld world;
        CGraphicsItemBase &first = world.top(0, 0);
        const auto choose = [&world](CGraphicsItemBase &item, const char *text) {
            world.fill(item, world.scene.selection().sorted());
            entry(*world.menu, text)->trigger();
        };
        const auto countIn = [&world](int port) {
            return world.scene.backend().content().portItem(port)->cabinets(nullptr).size();
        };
        first.setSelected(true);
        choose(first, "Select the same type");
        QCOMPARE(world.scene.selection().count(), 3);
        choose(first, "Group");
        QCOMPARE(world.scene.selection().groups().size(), 1);
        choose(first.outermost(), "Copy");
        world.fillCanvas(3, {500, 500});
        entry(*world.menu, "Select all")->trigger();
        QCOMPARE(world.scene.selection().count(), 5);
        entry(*world.menu, "Paste")->trigger();
        QCOMPARE(world.scene.selection().extent().topLeft(), QPoint(500, 500));
        choose(world.top(3, 0), "Undo");
        QCOMPARE(countIn(3), 0);
        world.fillCanvas(3, {});
        entry(*world.menu, "Redo")->trigger();
        QCOMPARE(countIn(3), 3);
    }

    void rightClicksOpenTheMenuOfWhatIsThere()
    {
        struct SCase
        {
            QPoint place;
            CEditorToolBar::ETool tool;
            QString menu;
        };
        const QString cabinet = QStringLiteral("CabinetMenu");
        const QString none = QStringLiteral("none");
        const SCase cases[] = {{{64, 64}, CEditorToolBar::Arrow, cabinet},
                               {{64, 392}, CEditorToolBar::Arrow, cabinet},    // the gap of a group
                               {{700, 400}, CEditorToolBar::Arrow, QString()}, // the canvas
                               {{464, 564}, CEditorToolBar::Arrow, none},      // a redundancy port
                               {{64, 64}, CEditorToolBar::Pen, none},
                               {{64, 64}, CEditorToolBar::Calibrate, cabinet}};
        CMouseTester mouse;
        mouse.showAtActualSize();
        mouse.states().redundancy[2] = CabinetLayout::CabinetPort::Redundant;
        for (const SCase &one : cases) {
            mouse.view().toolBar().chooseMode(one.tool);
            QString seen = none;
            const CMenuUser user([&seen](QMenu &menu) { seen = menu.objectName(); });
            askForMenu(mouse, one.place);
            QCOMPARE(seen, one.menu);
            if (seen == cabinet)
                QCOMPARE(mouse.selected().size(), 1); // the press has selected what the menu is for
        }
    }

    void whatWasClickedMayGo()
    {
        CMouseTester mouse;
        mouse.showAtActualSize();
        const QPoint cabinet(64, 64);
        const QPoint group(64, 264);
        const QPair<QPoint, const char *> cases[] = {
            {cabinet, "Cut"}, {cabinet, "Delete cabinet"}, {group, "Delete cabinet"}, {group, "Ungroup"}};
        for (const auto &[place, entry] : cases) {
            const CMenuUser user([entry = entry](QMenu &menu) { CMenuUser::click(menu, entry); });
            askForMenu(mouse, place);
            QVERIFY(mouse.layout() != mouse.original());
            QCOMPARE(CSceneVerifier::faultIn(mouse.scene()), QString());
            const QPoint another(192, 64);
            mouse.click(another); // it is the mouse's again
            QCOMPARE(mouse.selected(), CMouseTester::Items{mouse.at(another)});
            mouse.scene().undo(nullptr);
            QCOMPARE(mouse.layout(), mouse.original());
        }
    }

    void theWallMayGo()
    {
        CMouseTester mouse;
        mouse.showAtActualSize();
        const LayoutData other = SmallWorlds::data({SmallWorlds::wiredPort(0, 3)});
        const CMenuUser user([&mouse, &other](QMenu &menu) {
            mouse.view().showLayout(SmallWorlds::node(other), other);
            CMenuUser::click(menu, "Delete cabinet");
        });
        askForMenu(mouse, {64, 64});
        CabinetLayout shown;
        mouse.scene().getLayoutData(shown, other.processor);
        QCOMPARE(shown, other.layout);
        QCOMPARE(CSceneVerifier::faultIn(mouse.scene()), QString());
    }
};

ORVO_TEST_MAIN(QApplication, CEditorMenusTest)
#include "tst_editor_menus.moc"
