// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LoadSum.h"
#include "layout/panels/ports/COverloadLine.h"
#include "layout/panels/ports/CPortList.h"
#include "layout/panels/ports/IPortCommands.h"
#include "layout/panels/ports/LoadText.h"
#include "layout/settings/CCabinetFillSetting.h"
#include "layout/settings/CPortAreaDialog.h"
#include "platform/widgets/CFlowListView.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/SStoreWorld.h"

#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSpinBox>
#include <QStackedLayout>
#include <QToolButton>
#include <QToolTip>

namespace {

using Port = CabinetLayout::CabinetPort;

/// Notes what the list asks for.
struct CNotedPortCommands final : IPortCommands
{
    void importMapping(int port) override { calls << QStringLiteral("import %1").arg(port); }
    void exportMapping(int port) override { calls << QStringLiteral("export %1").arg(port); }
    void setRedundancy(int primary, int backup) override
    {
        calls << QStringLiteral("pair %1 %2").arg(primary).arg(backup);
    }
    void cancelRedundancy(int port) override { calls << QStringLiteral("cancel %1").arg(port); }
    bool isWhollySelected(int) const override { return whole; }
    void tellRefusal(int port) override { calls << QStringLiteral("refusal %1").arg(port); }
    void pairPorts() override { calls << QStringLiteral("pairs"); }
    void adjustCurrentGain() override { calls << QStringLiteral("gain"); }
    QStringList calls;
    bool whole = true;
};

struct SListWorld final : SStoreWorld
{
    CNotedPortCommands commands;
    CPortList list{store, commands};

    SListWorld() { list.resize(340, 180); }
    QUuid open(int ports, int cabinets = 1)
    {
        const QUuid processor = host.addProcessor(QStringLiteral("Main"), ports, cabinets);
        show(processor);
        store.openProcessor(processor);
        list.onNotifyProcessorStateChanged();
        return processor;
    }
    CPort &port(int index) const { return *list.button(index); }
    void click(int index, CPortPainter::EArea area) const
    {
        QTest::mouseClick(&port(index), Qt::LeftButton, {}, CPortPainter::areaRect(area).center());
    }
    /// The context menu of a port's button, by keyboard.
    QMenu *menu(int index) const
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint());
        QApplication::sendEvent(&port(index), &event);
        return port(index).findChild<QMenu *>(QStringLiteral("PortMenu"));
    }
    void setRole(const QUuid &processor, int index, Port::Redundancy role, int other)
    {
        Port &record = host.answers()->layouts[processor].layout.ports[index];
        record.redundancy = role;
        record.redundancyPort = other;
    }
};

QStringList textsOf(const QMenu &menu)
{
    QStringList texts;
    for (const QAction *action : menu.actions())
        texts << action->text();
    return texts;
}

bool hasPixelsOf(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

} // namespace

class CPortListTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void withoutPortsItSaysSo()
    {
        SListWorld world;
        const auto *label = world.list.findChild<QStackedLayout *>()->currentWidget();
        QCOMPARE(qobject_cast<const QLabel *>(label)->text(), QStringLiteral("No output port is detected."));
        world.open(2);
        QVERIFY(label != world.list.findChild<QStackedLayout *>()->currentWidget());
    }

    void theColourOfALoadIsDecidedBeforeItsTextIsCut()
    {
        SListWorld world;
        world.open(1);
        const QVector<std::tuple<int, QString, QColor>> loads{
            {100, QStringLiteral("100%"), QColor(49, 194, 73)},
            {101, QStringLiteral("100%"), QColor(200, 53, 53)},
            {255, QStringLiteral("100%"), QColor(190, 163, 25)},
            {40, QStringLiteral("40%"), QColor(49, 194, 73)}};
        const auto *counts = world.list.findChild<QLabel *>(QStringLiteral("PortCounts"));
        QCOMPARE(counts->text(), QStringLiteral("0 in use, 0 redundancy"));
        for (const auto &[load, text, color] : loads) {
            Q_EMIT world.store.notifyProcessorPortPayloadChanged(0, load);
            QCOMPARE(world.port(0).face().loadText(), text);
            const QImage bar = world.port(0).grab(QRect(8, 30, 78, 5)).toImage();
            QVERIFY(hasPixelsOf(bar, color));
            QCOMPARE(bar.pixelColor(70, 2) == color, load >= 100); // its empty part
        }
        Q_EMIT world.store.notifyProcessorPortPayloadChanged(7, 1); // no such button
        QCOMPARE(counts->text(), QStringLiteral("1 in use, 0 redundancy"));
    }

    void tellsInToolTipsWhatIsBelowTheMouse()
    {
        SListWorld world;
        world.answers()->loads[1] = 130;
        world.answers()->details.bitsPerPixel = 24;
        world.open(2);
        world.list.show();
        const auto tip = [](QWidget &widget, const QPoint &place) {
            QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
            QApplication::sendEvent(&widget, &event);
            return QToolTip::text();
        };
        const auto areaTip = [&](CPortPainter::EArea area) {
            return tip(world.port(1), CPortPainter::areaRect(area).center());
        };
        QCOMPARE(areaTip(CPortPainter::Fill), QStringLiteral("Cabinet fill"));
        QCOMPARE(areaTip(CPortPainter::Append), QStringLiteral("Append(Ctrl+T)"));
        QCOMPARE(areaTip(CPortPainter::Lock), QStringLiteral("Lock"));
        world.store.setPortLocked(1, true);
        QCOMPARE(areaTip(CPortPainter::Lock), QStringLiteral("Unlock"));
        const QString sum = tip(world.port(1), QPoint(60, 15));
        QVERIFY2(sum.startsWith(QStringLiteral("Port 2: 130%\n")) && sum.contains(QStringLiteral("24 bits")),
                 qPrintable(sum));
        QCOMPARE(tip(*world.list.findChild<COverloadLine *>(), QPoint(5, 5)),
                 QStringLiteral("1 output port is overloaded: 2\n") + sum);
        QVERIFY(
            LoadText::ofProcessor(world.store, 65)
                .startsWith(QStringLiteral("System load: 65%, the mean of 2 output ports\nPort 2: 130%\n")));
    }

    void looksAsItIsUsed()
    {
        SListWorld world;
        world.open(2);
        CPort &port = world.port(1);
        QImage picture(CPortPainter::Size, QImage::Format_RGB32);
        const auto frame = [&](bool checked, bool hovered, bool focused = false) {
            QPainter painter(&picture);
            CPortPainter::SState state;
            state.checked = checked;
            state.hovered = hovered;
            state.focused = focused;
            CPortPainter(painter).paint(port.face(), state, QRect(QPoint(), CPortPainter::Size));
            return picture.pixelColor(47, 0);
        };
        QCOMPARE(frame(false, false), QColor(31, 31, 36));
        QCOMPARE(frame(false, true), QColor(QColor(202, 202, 210).lighter(110).rgb()));
        QCOMPARE(frame(true, false), QColor(240, 240, 246));
        QCOMPARE(frame(true, true), QColor(QColor(240, 240, 246).lighter(110).rgb()));
        frame(false, false, true);
        QVERIFY(hasPixelsOf(picture, QColor(94, 160, 255)));
        Q_EMIT world.store.notifyProcessorPortColorChanged(1, QColor(1, 2, 3));
        QVERIFY(
            hasPixelsOf(port.grab(CPortPainter::areaRect(CPortPainter::Fill)).toImage(), QColor(1, 2, 3)));
    }

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
        QCOMPARE(textsOf(*menu),
                 (QStringList{QStringLiteral("Import mapping..."), QStringLiteral("Export mapping..."),
                              QStringLiteral("Set as redundancy for"), QStringLiteral("Lock options"),
                              QStringLiteral("Cabinet fill"), QStringLiteral("Cabinet parameters")}));
        menu->actions().at(0)->trigger();
        menu->actions().at(1)->trigger();
        const QMenu &primaries = *menu->actions().at(2)->menu();
        QCOMPARE(textsOf(primaries), (QStringList{QStringLiteral("Port 1"), QStringLiteral("Port 3")}));
        primaries.actions().last()->trigger();
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

    void aRebuildKeepsButtonsScrollAndFocus()
    {
        SListWorld world;
        world.open(40);
        world.list.show();
        QVERIFY(QTest::qWaitForWindowActive(&world.list));
        auto *flow = world.list.findChild<CFlowListView *>();
        world.port(0).setFocus(Qt::TabFocusReason);
        for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_End, Qt::Key_Left})
            QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
        QTRY_COMPARE(QApplication::focusWidget(), &world.port(38));
        world.list.setCurrentSelectPort({36, 38});
        QVERIFY(flow->verticalScrollBar()->value() > 0);
        const int scrolled = flow->verticalScrollBar()->value();
        world.open(40, 2);
        QCOMPARE(QApplication::focusWidget(), &world.port(38));
        QCOMPARE(flow->verticalScrollBar()->value(), scrolled);
        QVERIFY(world.port(36).isChecked() && world.port(38).isChecked() && !world.port(37).isChecked());
        const QRect lock = CPortPainter::areaRect(CPortPainter::Lock);
        QTest::mouseMove(&world.port(38), lock.center());
        QTRY_VERIFY(world.port(38).underMouse());
        const QImage hovered = world.port(38).grab(lock).toImage();
        world.open(39);
        QVERIFY(world.port(38).underMouse());
        QVERIFY(world.port(38).grab(lock).toImage() == hovered);
        world.list.setCurrentSelectPort({38});
        world.commands.whole = false;
        CSignalLog clicked(&world.list, &CPortList::notifyPortClicked);
        QTest::keyClick(&world.port(38), Qt::Key_Space);
        QCOMPARE(clicked[0], (QVariantList{38, true}));
        QCOMPARE(world.store.currentPort(), 38);
        world.open(3);
        QCOMPARE(world.list.button(38), nullptr);
        QVERIFY(world.list.button(2));
    }

    void buttonsFillTheRowsAndAreOneStopOfTheTabKey()
    {
        SListWorld world;
        world.list.resize(340, 180);
        world.open(7);
        world.list.show();
        const auto stops = [&world] {
            int count = 0;
            for (int i = 0; i < 7; ++i)
                count += world.port(i).focusPolicy() & Qt::TabFocus ? 1 : 0;
            return count;
        };
        for (const auto &[width, perRow] : {std::pair(340, 3), {396, 4}, {395, 3}, {900, 9}}) {
            world.list.resize(width, 600);
            for (int i = 0; i < 7; ++i) {
                const QPoint place = world.port(i).pos() - world.port(0).pos();
                QCOMPARE(place, QPoint(i % perRow * 98, i / perRow * 68));
            }
        }
        QCOMPARE(stops(), 1);
        world.port(4).setFocus(Qt::MouseFocusReason);
        QCOMPARE(stops(), 1);
        world.open(3); // the one with the stop is gone
        QVERIFY(world.port(0).focusPolicy() & Qt::TabFocus);
    }

    void aNoteFollowsAnEditOfThePrimaryOnce()
    {
        SListWorld world;
        const QUuid processor = world.open(2, 2);
        world.setRole(processor, 0, Port::Primary, 1);
        world.setRole(processor, 1, Port::Redundant, 0);
        {
            const CFakeAnswers answers = world.answers();
            QVector<Port> &ports = answers->layouts[processor].layout.ports;
            ports[1].mirrored = PortPairs::mirrorOf(ports[0]);
        }
        world.host.notify(LayoutNotification::PortBackupChanged, SPortBackupChange{0, 1, true});
        QTRY_COMPARE(world.port(1).face().note, QStringLiteral("Redundancy for output port1"));
        CSignalLog notes(&world.store, &CLayoutData::notifyProcessorPortNoteChanged);
        world.answers()->layouts[processor].layout.ports[0].groups[0].cabinets[0].rect.translate(5, 0);
        world.host.notify(LayoutNotification::LayoutReplaced, processor);
        QTRY_VERIFY(world.port(1).face().needsReset);
        QCOMPARE(world.port(1).face().note,
                 QStringLiteral("Redundancy for output port1, please reset the mapping."));
        world.host.notify(LayoutNotification::LayoutReplaced, processor);
        settle(world.host, world.store);
        QCOMPARE(notes.count(), 1);
        QVERIFY(world.port(1).accessibleName().contains(QStringLiteral("please reset")));
    }

    void overloadsAreNamedAndSelected()
    {
        SListWorld world;
        {
            const CFakeAnswers answers = world.answers();
            for (const int port : {0, 1, 2, 4})
                answers->loads[port] = 224;
            answers->loads[5] = 224; // the redundancy port of the first one
            answers->details.pixelLimit = 100;
            answers->details.totalPixels = 100;
        }
        const QUuid processor = world.open(6);
        world.setRole(processor, 0, Port::Primary, 5);
        world.setRole(processor, 5, Port::Redundant, 0);
        world.store.openProcessor(processor);
        auto *line = world.list.findChild<COverloadLine *>();
        QTRY_COMPARE(line->text(), QStringLiteral("4 output ports are overloaded: 1 to 3, 5"));
        CSignalLog sought(&world.list, &CPortList::notifyPortsSought);
        line->click();
        QCOMPARE(sought[0].first().value<QVector<int>>(), (QVector<int>{0, 1, 2, 4}));
        world.answers()->details.totalPixels = 101;
        line->refresh();
        QCOMPARE(line->text(), QStringLiteral("The processor is overloaded"));
        QCOMPARE(line->accessibleName(), QStringLiteral("The processor is overloaded (up to 224%)"));
        world.answers()->loads.clear();
        for (const int port : {0, 1, 2, 4})
            world.store.updatePortLoad(port, false);
        QTRY_VERIFY(line->isHidden());
    }

    void theSumBehindALoadNamesTheLimit()
    {
        SPortLoad load;
        load.pixels = 655360;
        load.frameRate = 60;
        load.bitsPerPixel = 24;
        load.bitsPerSecond = 950000000;
        load.capacity = 659722;
        load.totalPixels = 9000001;
        load.pixelLimit = 9000000;
        QCOMPARE(
            LoadSum::sentences(load),
            (QStringList{QStringLiteral("655,360 pixels × 60 Hz × 24 bits ÷ 950,000,000 bits a second"),
                         QStringLiteral("The port's rate determines the load: it carries 659,722 pixels")}));
        load.limit = SPortLoad::ProcessorPixels;
        QVERIFY(LoadSum::sentences(load).last().endsWith(
            QStringLiteral("all ports have 9,000,001 of 9,000,000 pixels")));
    }
};

ORVO_TEST_MAIN(QApplication, CPortListTest)
#include "tst_port_list.moc"
