// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/CCabinetGraphicsScene.h"
#include "layout/editor/CCanvasMenu.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/resources/LayoutResources.h"
#include "tests/editor/CFixedPortStates.h"
#include "tests/editor/SmallWorlds.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QMenu>

namespace {

QStringList entriesOf(const QMenu &menu)
{
    QStringList entries;
    for (const QAction *action : menu.actions())
        entries << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return entries;
}

QAction *entry(const QMenu &menu, const char *text)
{
    for (QAction *action : menu.actions()) {
        if (action->text() == QLatin1String(text))
            return action;
    }
    return nullptr;
}

} // namespace

class CCanvasMenuTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void showsWhatAppliesOnly()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 3), SmallWorlds::port(1, {})});
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        QMenu unwired;
        CCanvasMenu::fill(unwired, scene, 1, CanvasBlock::None, nullptr);
        const QStringList always = {QStringLiteral("Undo"),
                                    QStringLiteral("Redo"),
                                    QStringLiteral("-"),
                                    QStringLiteral("Select all"),
                                    QStringLiteral("Max frame rate and color depth settings..."),
                                    QStringLiteral("Canvas size settings..."),
                                    QStringLiteral("Canvas fill settings...")};
        QCOMPARE(entriesOf(unwired), always);
        QVERIFY(!entry(unwired, "Undo")->isEnabled() && !entry(unwired, "Redo")->isEnabled());

        scene.selectAllItem();
        scene.selectedItemMoveDown();
        QMenu wired;
        CCanvasMenu::fill(wired, scene, 0, CanvasBlock::Polling, nullptr);
        QVERIFY(entry(wired, "Clear topology"));
        QVERIFY(entry(wired, "Canvas size settings... (Polling is enabled)"));
        QVERIFY(entry(wired, "Undo")->isEnabled());
    }

    void clearsAPortOnlyAfterAYes()
    {
        const LayoutData data = SmallWorlds::data({SmallWorlds::wiredPort(0, 3)});
        CFixedPortStates states;
        CCabinetGraphicsScene scene(states);
        scene.setLayoutData(SmallWorlds::node(data), data);
        QMenu menu;
        CCanvasMenu::fill(menu, scene, 0, CanvasBlock::None, nullptr);
        CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("Yes")});
        entry(menu, "Clear topology")->trigger();
        QCOMPARE(scene.portItem(0)->chain().order().size(), 3);
        entry(menu, "Clear topology")->trigger();
        QCOMPARE(scene.portItem(0)->chain().order().size(), 0);
        const QString question =
            QStringLiteral("Are you sure you want to clear topology for the output port?");
        QCOMPARE(user.texts(), (QStringList{question, question}));
    }
};

ORVO_TEST_MAIN(QApplication, CCanvasMenuTest)
#include "tst_canvas_menu.moc"
