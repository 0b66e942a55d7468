// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/menus/CCabinetMenu.h"
#include "layout/editor/menus/CCanvasMenu.h"
#include "layout/editor/menus/CClearTopology.h"
#include "layout/editor/scene/CCabinetGraphicsScene.h"
#include "layout/editor/scene/CSceneBackend.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/CNotedCommands.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

namespace {

/// The texts of a menu's entries, those of sub-menus after a ">".
QStringList entriesOf(const QMenu &menu, const QString &prefix = {})
{
    QStringList entries;
    for (const QAction *action : menu.actions()) {
        entries << prefix + (action->isSeparator() ? QStringLiteral("-") : action->text());
        if (action->menu())
            entries << entriesOf(*action->menu(), QStringLiteral(">"));
    }
    return entries;
}

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
struct SMenuWorld
{
    SMenuWorld()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 3), SmallWorlds::nestedPort(1),
                                                   SmallWorlds::receiverPort(2), SmallWorlds::port(3, {})});
        scene.setLayoutData(SmallWorlds::node(data), data);
    }

    CGraphicsItemBase &top(int port, int place) { return *scene.portItem(port)->topItems().at(place); }
    /// What a right click on @p item shows when the given items are selected.
    QStringList cabinetEntries(CGraphicsItemBase &item, const QVector<CGraphicsItemBase *> &selected)
    {
        fill(item, selected);
        return entriesOf(*menu);
    }
    void fill(CGraphicsItemBase &item, const QVector<CGraphicsItemBase *> &selected)
    {
        scene.clearSelection();
        for (CGraphicsItemBase *one : selected)
            one->setSelected(true);
        menu = std::make_unique<QMenu>();
        CCabinetMenu(*menu, scene.backend(), &commands, item, nullptr).fill();
    }

    CFixedPortStates states;
    CNotedCommands commands;
    CCabinetGraphicsScene scene{states};
    std::unique_ptr<QMenu> menu;
};

QStringList words(const char *entries)
{
    return QString::fromLatin1(entries).split(QLatin1Char('|'));
}

} // namespace

class CEditorMenusTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void canvasMenuShowsWhatAppliesOnly()
    {
        SMenuWorld world;
        world.states.current = 3;
        QMenu unwired;
        CCanvasMenu(unwired, world.scene.backend(), &world.commands, nullptr).fill({});
        QCOMPARE(entriesOf(unwired),
                 words("Undo|Redo|-|Select all|Max frame rate and color depth settings...|"
                       "Canvas size settings...|Canvas fill settings..."));
        QVERIFY(!entry(unwired, "Undo")->isEnabled() && !entry(unwired, "Redo")->isEnabled());
        for (const char *text : {"Max frame rate and color depth settings...", "Canvas size settings...",
                                 "Canvas fill settings..."})
            entry(unwired, text)->trigger();
        QCOMPARE(world.commands.calls, words("frame rate|canvas size|canvas fill"));

        world.scene.selectAllItem();
        world.scene.selectedItemMoveDown();
        world.scene.backend().placing().copy();
        world.states.current = 0;
        world.states.block = CanvasBlock::Polling;
        QMenu wired;
        CCanvasMenu(wired, world.scene.backend(), &world.commands, nullptr).fill({});
        QVERIFY(entry(wired, "Clear topology") && entry(wired, "Paste"));
        QVERIFY(!entry(wired, "Canvas size settings... (Polling is enabled)")->isEnabled());
        QVERIFY(entry(wired, "Undo")->isEnabled());
        world.states.redundancy[0] = CabinetLayout::CabinetPort::Redundant;
        QMenu closed;
        CCanvasMenu(closed, world.scene.backend(), &world.commands, nullptr).fill({});
        for (const char *text : {"Clear topology", "Paste"})
            QVERIFY(!entry(closed, text)->isEnabled());
        QCOMPARE(entry(closed, "Paste")->toolTip(), QStringLiteral("Port 1 is a redundancy port."));
        world.states.current = -1;
        QMenu portless;
        CCanvasMenu(portless, world.scene.backend(), &world.commands, nullptr).fill({});
        QVERIFY(!entry(portless, "Clear topology") && !entry(portless, "Paste"));
    }

    void aYesForAnotherProcessorClearsNothing()
    {
        SMenuWorld world;
        world.states.current = 0;
        const LayoutData other = SmallWorlds::data({SmallWorlds::wiredPort(0, 3)});
        CMessageBoxAnswerer user({QStringLiteral("Yes"), QStringLiteral("OK")});
        QTimer::singleShot(0, &world.scene, [&world, &other] {
            QVERIFY(QApplication::activeModalWidget()); // asked, and not answered yet
            QCOMPARE(world.scene.backend().content().pointedOut(), world.scene.portItem(0));
            world.scene.setLayoutData(SmallWorlds::node(other), other);
        });
        CClearTopology::ask(nullptr, world.scene.backend(), 0);
        QCOMPARE(world.scene.portItem(0)->chain().order().size(), 3);
        QVERIFY(!world.scene.backend().content().pointedOut());
        QCOMPARE(user.texts().last(), QStringLiteral("Set failed."));
        QCOMPARE(user.boxes().last().details, QStringLiteral("The processor is no longer in view."));
    }

    void cabinetMenuFollowsTheSelection()
    {
        SMenuWorld world;
        const QString parameters = QStringLiteral(
            "|Cabinet fill|>Current output...|>Set all outputs to default|Cabinet parameters|"
            ">Markup custom-defined cabinets|>Select the same type|>Set type...|>Save parameters...");
        const auto expected = [&](const char *before, const char *files) {
            return (QLatin1String(before) + parameters + QLatin1String(files) +
                    QStringLiteral("|Cabinet information...."))
                .split(QLatin1Char('|'));
        };
        CGraphicsItemBase &wired = world.top(0, 0);
        QCOMPARE(world.cabinetEntries(wired, {&wired}),
                 expected("Undo|Redo|Select all|Cut|Copy|Delete cabinet|Clear topology",
                          "|>-|>Readback from connected cabinet..."));
        QCOMPARE(world.cabinetEntries(wired, {&wired, &world.top(0, 1)}),
                 expected("Undo|Redo|Group|Select all|Cut|Copy|Delete cabinet|Clear topology", ""));
        CGraphicsItemBase &group = world.top(1, 1);
        QCOMPARE(world.cabinetEntries(group, {&group}),
                 expected("Undo|Redo|Ungroup|Select all|Cut|Copy|Delete cabinet|Clear topology", ""));
        CGraphicsItemBase &typed = world.top(2, 0);
        QCOMPARE(world.cabinetEntries(typed, {&typed}),
                 expected("Undo|Redo|Select all|Cut|Copy|Delete cabinet|Clear topology",
                          "|>-|>Export cabinet configuration< .rcvbp> file...|>-|"
                          ">Readback from connected cabinet..."));
        QCOMPARE(world.menu->width(), 240);
        QCOMPARE(world.cabinetEntries(wired, {&wired, &typed}), words("Undo|Redo|Cut|Copy|Delete cabinet"));
        world.states.locked[0] = true;
        QCOMPARE(world.cabinetEntries(wired, {&wired, &world.top(0, 1)}),
                 expected("Undo|Redo|Select all|Cut|Copy|Delete cabinet", ""));
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
        world.commands.refusal.clear();
        world.fill(typed, {&typed});
        for (const char *text : {"Current output...", "Set all outputs to default", "Set type...",
                                 "Save parameters...", "Export cabinet configuration< .rcvbp> file...",
                                 "Readback from connected cabinet...", "Cabinet information...."})
            entry(*world.menu, text)->trigger();
        QCOMPARE(world.commands.calls, words("fill|reset fills|type|parameters|export|readback|information"));
        QCOMPARE(world.commands.cabinets, QList<CabinetLayout::CabinetPort::Cabinet>{typed.cabinet()});
        QVERIFY(entry(*world.menu, "Markup custom-defined cabinets")->isChecked());
        entry(*world.menu, "Markup custom-defined cabinets")->toggle();
        QCOMPARE(world.commands.calls.last(), QStringLiteral("unmark"));
        entry(*world.menu, "Select the same type")->trigger();
        QCOMPARE(world.scene.selection().count(), 2);
        entry(*world.menu, "Cut")->trigger();
        QVERIFY(world.scene.portItem(2)->cabinets(nullptr).isEmpty());
    }
};

ORVO_TEST_MAIN(QApplication, CEditorMenusTest)
#include "tst_editor_menus.moc"
