// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CPortCommands.h"
#include "layout/plugin/CViewPortPanel.h"
#include "tests/editor/SceneParts.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CSignalLog.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SPageWorld.h"

#include <QApplication>
#include <QGraphicsSceneMouseEvent>
#include <QTemporaryDir>

/// Commands of output ports, and what follows their list, with the whole page.
class CPagePortsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
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
        QTest::mouseClick(&world.port(1), Qt::LeftButton, {}, QPoint(60, 20));
        Q_EMIT world.port(2).notifyAppendCabinet(2, QSize(64, 32));
        QCOMPARE(world.checked(), QList<int>{2});
        QCOMPARE(world.store.currentPort(), 2);
        QCOMPARE(world.scene().property("pendingAppendCabinetPort").toInt(), 2);
        QCOMPARE(world.scene().property("pendingAppendCabinetSize").toSize(), QSize(64, 32));
        QTest::mouseClick(&world.port(1), Qt::LeftButton, {}, QPoint(60, 20));
        QCOMPARE(world.scene().property("pendingAppendCabinetPort").toInt(), 1);
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

ORVO_TEST_MAIN(QApplication, CPagePortsTest)
#include "tst_page_ports.moc"
