// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetFillSetting.h"
#include "layout/settings/CPortAreaDialog.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/panels/SListWorld.h"

#include <QSpinBox>
#include <QToolButton>

namespace {

using Port = CabinetLayout::CabinetPort;

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text();
    return texts;
}

/// All entries in their order, "Lock options>Lock all processors"; submenus before what is in them.
QStringList pathsOf(const QMenu &menu, const QString &before = {})
{
    QStringList paths;
    for (const QAction *action : menu.actions()) {
        paths << before + action->text();
        if (action->menu())
            paths += pathsOf(*action->menu(), paths.last() + QLatin1Char('>'));
    }
    return paths;
}

} // namespace

/// What can be done to ports from their list: by the pictures in a button, and by menus.
class CPortMenusTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void theTitleRowHasWhatIsAboutAllPorts()
    {
        SListWorld world;
        world.open(2);
        const QMenu &menu = *named<QToolButton>(world.list, "Redundancy and current gain")->menu();
        for (const QAction *entry : menu.actions())
            const_cast<QAction *>(entry)->trigger();
        QCOMPARE(world.commands.calls, (QStringList{QStringLiteral("pairs"), QStringLiteral("gain")}));
        world.host.answers()->nodes[0].address = 0; // a project
        Q_EMIT const_cast<QMenu &>(menu).aboutToShow();
        QCOMPARE(menu.actions().last()->toolTip(),
                 QStringLiteral("A project has no cabinets that are connected."));
        QVERIFY(menu.actions().first()->isEnabled() && !menu.actions().last()->isEnabled());
        inNext<CPortAreaDialog>([](CPortAreaDialog &dialog) { dialog.reject(); });
        named<QAbstractButton>(world.list, "Port area")->click();
    }

    void locksFillsAndAppendsByItsAreas()
    {
        SListWorld world;
        world.open(2);
        world.click(1, CPortPainter::Lock);
        QVERIFY(world.store.isPortLocked(1) && world.port(1).face().locked);
        CSignalLog appended(&world.list, &CPortList::notifyAppendCabinet);
        world.click(1, CPortPainter::Append);
        QVERIFY(!world.port(1).findChild<QMenu *>()); // a locked port takes none
        QCOMPARE(world.commands.calls, QStringList{QStringLiteral("refusal 1")});
        world.click(1, CPortPainter::Lock);
        QVERIFY(!world.store.isPortLocked(1));
        world.click(1, CPortPainter::Append);
        world.port(1).findChild<QMenu *>()->actions().first()->trigger();
        QCOMPARE(appended[0].mid(0, 2), (QVariantList{1, world.store.recentCabinets().customSize()}));
        inNext<CCabinetFillSetting>([](CCabinetFillSetting &dialog) {
            named<QSpinBox>(dialog, "Red")->setValue(77);
            dialog.accept();
        });
        world.click(0, CPortPainter::Fill);
        QCOMPARE(world.store.port(0).color.red(), 77);
        QCOMPARE(world.port(0).face().fill.red(), 77);
    }

    void appendsTypesThatWereUsedIfTheyFit()
    {
        SListWorld world;
        for (const auto &[name, width] : {std::pair("Flat", 100), {"Huge", 2049}}) {
            SSettings::TypeLibrary::STreeNode node;
            node.name = node.info.name = QString::fromLatin1(name);
            node.key = node.info.key = SMD5::ofContent(name);
            node.info.width = width;
            node.info.height = 100;
            node.info.receivers = {QRect(0, 0, width, 100)};
            world.answers()->library << node;
            world.store.recentCabinets().noteType(node.info.key);
        }
        world.open(2);
        CSignalLog appended(&world.list, &CPortList::notifyAppendCabinet);
        const auto recent = [&world] { // of a menu of its own, as one that was used goes
            world.click(1, CPortPainter::Append);
            const QAction *first = world.port(1)
                                       .findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly)
                                       .last()
                                       ->actions()
                                       .first();
            return first->text() == QLatin1String("Use recent") ? first->menu()->actions()
                                                                : QList<QAction *>();
        };
        {
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            const QList<QAction *> types = recent();
            QCOMPARE(types.size(), 2);
            types.first()->trigger();
            QCOMPARE(user.texts(),
                     QStringList{QStringLiteral(
                         "Cabinet height or width must be between 8-2048, the WxH (2049x100) of this "
                         "cabinet type already exceeds the limit.")});
        }
        QCOMPARE(appended.count(), 0);
        recent().last()->trigger();
        QCOMPARE(appended[0].mid(0, 2), (QVariantList{1, QSize(100, 100)}));
    }

    void theLastCabinetOfAPortCanBeAppended()
    {
        SListWorld world;
        world.open(1, 1023);
        world.port(0).openAppendMenu();
        QVERIFY(world.port(0).findChild<QMenu *>());
        SListWorld full;
        full.open(1, 1024);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        full.port(0).openAppendMenu();
        QVERIFY(!full.port(0).findChild<QMenu *>());
        QCOMPARE(user.texts(), QStringList{QStringLiteral(
                                   "The number of cabinet in a single output port can not be over 1024.")});
    }

    void theMenuOffersWhatThePortAllows()
    {
        SListWorld world;
        const QUuid processor = world.open(3);
        const QMenu *menu = world.menu(1);
        const char *const entries[] = {"Import mapping...",
                                       "Export mapping...",
                                       "Set as redundancy for",
                                       "Set as redundancy for>Port 1",
                                       "Set as redundancy for>Port 3",
                                       "Lock options",
                                       "Lock options>Lock current output port",
                                       "Lock options>Lock current processor",
                                       "Lock options>Lock all processors",
                                       "Cabinet fill",
                                       "Cabinet fill>Current output...",
                                       "Cabinet fill>Set all outputs to default",
                                       "Cabinet parameters",
                                       "Cabinet parameters>Markup custom cabinets",
                                       "Cabinet parameters>Save parameters...",
                                       "Cabinet parameters>Cabinet information..."};
        QStringList wanted;
        for (const char *entry : entries)
            wanted << QString::fromLatin1(entry);
        QCOMPARE(pathsOf(*menu), wanted);
        QCOMPARE(QSize(menu->minimumWidth(), menu->maximumWidth()), QSize(200, 200));
        menu->actions().at(0)->trigger();
        menu->actions().at(1)->trigger();
        menu->actions().at(2)->menu()->actions().last()->trigger();
        QCOMPARE(world.commands.calls, (QStringList{QStringLiteral("import 1"), QStringLiteral("export 1"),
                                                    QStringLiteral("pair 2 1")}));
        CSignalLog information(&world.list, &CPortList::notifyShowCabinetInfo);
        entryOf(*menu, QStringLiteral("Cabinet parameters>Cabinet information..."))->trigger();
        QCOMPARE(information[0], QVariantList{1});
        CSignalLog marked(&world.list, &CPortList::notifyMarkupCustomCabinet);
        entryOf(*menu, QStringLiteral("Cabinet parameters>Markup custom cabinets"))->toggle();
        QCOMPARE(marked[0], QVariantList{true});
        world.store.setPortColor(0, Qt::green);
        world.store.setPortColor(1, Qt::green);
        entryOf(*menu, QStringLiteral("Cabinet fill>Set all outputs to default"))->trigger();
        QVERIFY(!world.store.port(0).color.isValid() && !world.store.port(1).color.isValid());

        world.setRole(processor, 0, Port::Primary, 2);
        world.setRole(processor, 2, Port::Redundant, 0);
        world.store.openProcessor(processor);
        QCOMPARE(textsOf(*world.menu(2)), QStringList{QStringLiteral("Cancel redundancy")});
        world.menu(2)->actions().first()->trigger();
        QCOMPARE(world.commands.calls.last(), QStringLiteral("cancel 2"));
        QVERIFY(!textsOf(*world.menu(0)).contains(QStringLiteral("Set as redundancy for")));
        QCOMPARE(textsOf(*world.menu(0)).last(), QStringLiteral("Cancel redundancy"));
        world.answers()->redundancyBlocked = true;
        delete menu;
        QVERIFY(!textsOf(*world.menu(1)).contains(QStringLiteral("Set as redundancy for")));
    }

    void whatCanOnlyFailIsNotOffered()
    {
        SListWorld world;
        const QUuid processor = world.open(3);
        world.store.setPortLocked(0, true);
        world.store.setPortLocked(2, true);
        const QMenu &menu = *world.menu(1);
        const QAction *locked = entryOf(menu, QStringLiteral("Set as redundancy for>Port 1"));
        QVERIFY(!locked->isEnabled());
        QCOMPARE(locked->toolTip(), QStringLiteral("Port 1 is locked."));
        QVERIFY(!entryOf(*world.menu(2), QStringLiteral("Set as redundancy for"))->isEnabled());
        delete &menu;
        const auto parametersTip = [&world] {
            const std::unique_ptr<QMenu> opened(world.menu(1));
            const QAction *save = entryOf(*opened, QStringLiteral("Cabinet parameters>Save parameters..."));
            return save->isEnabled() ? QString() : save->toolTip();
        };
        QCOMPARE(parametersTip(), QStringLiteral("The cabinet is not in the processor's saved mapping."));
        world.answers()->layouts[processor].layout.ports[1].groups[0].cabinets[0].mappingIndex = 0;
        QCOMPARE(parametersTip(), QString());
        CSignalLog saved(&world.list, &CPortList::notifySaveCabinetPara);
        std::unique_ptr<QMenu> connected(world.menu(1));
        entryOf(*connected, QStringLiteral("Cabinet parameters>Save parameters..."))->trigger();
        QCOMPARE(saved[0], QVariantList{1});
        connected.reset();
        world.answers()->nodes[0].address = 0; // a project
        QCOMPARE(parametersTip(), QStringLiteral("A project has no cabinets that are connected."));
        world.open(2, 0);
        QCOMPARE(parametersTip(), QStringLiteral("There are no cabinets."));
    }

    void locksAreKeptWhereTheyHold()
    {
        SListWorld world;
        const QUuid other = world.host.addProcessor(QStringLiteral("Other"), 2);
        world.open(2);
        const auto toggle = [&world](const char *text) {
            const std::unique_ptr<QMenu> menu(world.menu(0));
            QAction *action = entryOf(*menu, QStringLiteral("Lock options>") + QLatin1String(text));
            action->toggle();
            return action->isChecked();
        };
        QVERIFY(toggle("Lock current processor"));
        QVERIFY(world.store.isPortLocked(1) && world.port(1).face().locked);
        QVERIFY(!world.answers()->layouts[other].layout.ports[1].locked);
        QVERIFY(toggle("Lock all processors"));
        QVERIFY(world.answers()->layouts[other].layout.ports[1].locked);
        QVERIFY(!toggle("Lock current output port"));
        QVERIFY(!world.store.isPortLocked(0) && !world.store.areAllProcessorsLocked());
        QVERIFY(toggle("Lock all processors")); // not all were
        QVERIFY(!toggle("Lock all processors"));
        QVERIFY(!world.answers()->layouts[other].layout.ports[1].locked && !world.store.isProcessorLocked());
    }
};

ORVO_TEST_MAIN(QApplication, CPortMenusTest)
#include "tst_port_menus.moc"
