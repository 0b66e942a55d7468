// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/PortPairs.h"
#include "layout/panels/ports/SOverload.h"
#include "layout/plugin/CCabinetFiles.h"
#include "layout/plugin/CMappingCommands.h"
#include "layout/plugin/CParameterCheck.h"
#include "layout/plugin/CPrintCommand.h"
#include "layout/plugin/CProcessorCommands.h"
#include "layout/settings/CCabinetParaSave.h"
#include "layout/settings/CProcessorInView.h"
#include "tests/harness/CFakeEditor.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/SStoreWorld.h"

#include <QTemporaryDir>

#include <atomic>

namespace {

/// An editor with an edit that the host does not know of yet, and all commands that ask the host.
struct SEditedWorld final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 2, 2);
    QUuid b = host.addProcessor(QStringLiteral("B"), 2, 2);
    CFakeEditor editor;
    QWidget window;
    CProcessorCommands processors{store, window};
    CMappingCommands mapping{store, window};
    QTemporaryDir folder;

    SEditedWorld()
    {
        store.setLayoutSource(&editor);
        show(a);
        editor.load(store.openProcessor(a));
        editor.move(1);
        answers()->forgetCalls();
    }
    ~SEditedWorld() { store.setLayoutSource(nullptr); }
    CabinetLayout::CabinetPort::Cabinet cabinet() const
    {
        return editor.shown.ports[1].groups[0].cabinets[0];
    }
};

using Command = void (*)(SEditedWorld &);
using Port = CabinetLayout::CabinetPort;
using Cabinet = CabinetLayout::CabinetPort::Cabinet;

SSettings::TypeLibrary::STreeNode typeNode(const char *name, bool damaged)
{
    SSettings::TypeLibrary::STreeNode node;
    node.key = node.info.key = SMD5::ofContent(name);
    node.name = node.info.name = QString::fromLatin1(name);
    node.info.damaged = damaged;
    return node;
}

/// Two detected processors with two good cabinets each, and a project that does not count.
struct SParameterWorld final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 2, 1);
    QUuid b = host.addProcessor(QStringLiteral("B"), 1, 2);
    QUuid project = host.addProcessor(QStringLiteral("P"), 1, 1);

    SParameterWorld()
    {
        {
            const auto known = answers();
            known->nodes[2].index = -1;
            known->library = {typeNode("P2", false), typeNode("broken", true)};
            int index = 0;
            for (const QUuid &processor : {a, b}) {
                for (CabinetLayout::CabinetPort &port : known->layouts[processor].layout.ports) {
                    for (Cabinet &cabinet : port.groups[0].cabinets) {
                        cabinet.type = SMD5::ofContent("P2");
                        cabinet.mappingIndex = index++;
                    }
                }
            }
        }
        show(a);
    }
    QVector<Cabinet> cabinets(const QUuid &processor)
    {
        QVector<Cabinet> all;
        for (const auto &port : answers()->layouts[processor].layout.ports)
            all += port.getAllCabinets();
        return all;
    }
    CResult<QList<Cabinet>> check() const { return CParameterCheck(store).run(); }
};

} // namespace
Q_DECLARE_METATYPE(Command)

/// What the host is asked for, when, and what the user is told of it.
class CHostCommandsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void transceiversHaveNoMappingThatCouldBeReadOrSaved()
    {
        SEditedWorld world;
        QVERIFY(world.mapping.refusalForAll().isEmpty());
        for (auto &node : world.answers()->nodes)
            node.fiberTransceiver = true;
        QCOMPARE(world.mapping.refusalForAll(), QStringLiteral("No processor is online."));
    }

    void theHostKnowsAllEditsBeforeItIsAsked_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<Command>("command");
        const auto row = [](const char *operation, Command command) {
            QTest::newRow(operation) << QString::fromLatin1(operation) << command;
        };
        using W = SEditedWorld;
        row("importProcessorMapping", [](W &w) { w.processors.importMapping(w.a); });
        row("saveMapping", [](W &w) { w.mapping.saveMapping(ReadSaveMappingRole::All, [](bool) {}); });
        row("areOnPrimaryPorts", [](W &w) { CCabinetParaSave({w.cabinet()}, {}, &w.window).accept(); });
        row("sendCurrentGains", [](W &w) {
            CProcessorInView::carryOut(
                w.a, &w.window, [](ILayoutInterfaceHandler &host) { return host.sendCurrentGains({}); });
        });
    }
    void theHostKnowsAllEditsBeforeItIsAsked()
    {
        QFETCH(QString, operation);
        QFETCH(Command, command);
        SEditedWorld world;
        std::atomic<bool> asked{false}; // the hand-over's thread calls the host, too
        std::atomic<bool> knew{false};
        world.answers()->onCalled = [&](const QString &call) {
            if (call == QLatin1String("layoutData") && !asked)
                world.editor.move(0); // while the user is asked about locked ports
            if (asked || call.section(QLatin1Char('('), 0, 0) != operation)
                return;
            asked = true;
            knew = world.answers()->layouts[world.a].layout == world.editor.shown;
        };
        const QString file = world.folder.filePath(QStringLiteral("wall.sprj"));
        if (operation.startsWith(QLatin1String("import")))
            QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        const CFileDialogAnswerer chooser(file);
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        command(world);
        world.answers()->onCalled = nullptr;
        QVERIFY(asked);
        QVERIFY(knew);
    }

    void lockedPortsAreAskedAboutBeforeTheyAreReplaced()
    {
        SEditedWorld world;
        world.store.setPortLocked(1, true);
        const CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("OK")});
        world.processors.copyMapping(world.b, world.a);
        QCOMPARE(user.boxes().size(), 2);
        QCOMPARE(world.answers()->calls().filter(QStringLiteral("copyProcessorMapping(")).size(), 1);
        QCOMPARE(world.answers()->calls().filter(QStringLiteral(",false)")).size(), 1);
    }

    void readsAndSavesTellHowTheyEnded()
    {
        using R = SDeviceOutcome::Result;
        for (const auto &[save, result, message] : {std::tuple(false, R::Done, "Read mapping successful."),
                                                    {false, R::Failed, "Read mapping failed."},
                                                    {true, R::Done, "Save mapping successful."},
                                                    {true, R::Failed, "Save mapping failed."},
                                                    {false, R::Cancelled, "Read mapping failed."}}) {
            SEditedWorld world;
            world.answers()->outcome = {result, QStringLiteral("A is silent.")};
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            QVector<bool> ends;
            const auto ended = [&ends](bool done) { ends << done; };
            if (save)
                world.mapping.saveMapping(ReadSaveMappingRole::All, ended);
            else
                world.mapping.readMapping(ReadSaveMappingRole::Current, {true, false, true}, ended);
            QCOMPARE(user.texts().join(QLatin1Char('|')), QLatin1String(message));
            if (result == R::Done)
                QCOMPARE(user.boxes().first().details, QStringLiteral("A is silent."));
            else
                QCOMPARE(user.boxes().first().details,
                         result == R::Cancelled ? QStringLiteral("A is silent.\nThe rest was cancelled.")
                                                : QStringLiteral("A is silent."));
            QCOMPARE(ends, QVector<bool>{result == R::Done});
            QCOMPARE(world.answers()->role, save ? ReadSaveMappingRole::All : ReadSaveMappingRole::Current);
            if (save)
                QCOMPARE(world.answers()->saved.layout, world.editor.shown);
            else
                QVERIFY(world.answers()->readOptions.numberMapping);
        }
    }

    void savingAnOverloadedMappingAsksFirst()
    {
        for (const auto &[role, answer, processors] :
             {std::tuple(ReadSaveMappingRole::Current, "Yes", 1), {ReadSaveMappingRole::All, "No", 2}}) {
            SEditedWorld world;
            for (const char *left : {"Project", "Offline", "Fiber"}) // are not saved with all
                world.host.addProcessor(QLatin1String(left), 2, 2);
            world.answers()->nodes[2].address = 0;
            world.answers()->nodes[3].online = false;
            world.answers()->nodes[4].fiberTransceiver = true;
            world.answers()->loads[1] = 101;
            const bool saves = qstrcmp(answer, "Yes") == 0;
            CMessageBoxAnswerer user(saves ? QStringList{QLatin1String(answer), QStringLiteral("OK")}
                                           : QStringList(QLatin1String(answer)));
            QVector<bool> ends;
            world.mapping.saveMapping(role, [&ends](bool done) { ends << done; });
            QCOMPARE(ends, QVector<bool>{saves});
            const CMessageBoxAnswerer::SBox asked = user.boxes().first();
            QCOMPARE(asked.defaultButton, QStringLiteral("No"));
            QVERIFY(asked.details.startsWith(QStringLiteral("A(127.0.0.1): 1 output port is overloaded: 2")));
            QCOMPARE(asked.details.split(QLatin1Char('\n')).size(), processors);
            QCOMPARE(world.answers()->count(QStringLiteral("saveMapping")), saves ? 1 : 0);
        }
    }

    void aRedundancyPortIsJudgedAndPrintedByItsPrimaryOnAnotherProcessor()
    {
        SParameterWorld world;
        {
            const CFakeAnswers answers = world.answers();
            QVector<Port> &backups = answers->layouts[world.b].layout.ports;
            PortPairs::setPair(answers->layouts[world.a].layout.ports[1], world.a, Port::Primary,
                               {world.b, 0});
            PortPairs::setPair(backups[0], world.b, Port::Redundant, {world.a, 1});
            answers->loads[1] = 120;
        }
        const CabinetLayout layout = world.answers()->layouts[world.b].layout;
        QCOMPARE(SOverload::asked(layout).ports, QVector<int>{0});
        const SPrintedProcessor printed = CPrintCommand::input().processors.at(1);
        QCOMPARE(printed.node.uuid, world.b);
        QCOMPARE(printed.loads.value(0).percent, 120);
    }

    void anEndThatComesTooLateIsIgnored()
    {
        SEditedWorld world;
        world.answers()->answerLater = true;
        CMappingCommands(world.store, world.window).saveMapping(ReadSaveMappingRole::All, [](bool) {
            QFAIL("somebody heard of it");
        });
        world.host.endWaiting({SDeviceOutcome::Done, {}}); // a message would fail the test
    }

    void parametersAreSavedForTheCabinetsOfAllDetectedProcessors()
    {
        SParameterWorld world;
        const CResult<QList<Cabinet>> found = world.check();
        QVERIFY2(found, qPrintable(found.error()));
        QCOMPARE(found.value().toVector(), world.cabinets(world.a) + world.cabinets(world.b));
        for (const QUuid &processor : {world.a, world.b})
            world.answers()->layouts[processor].layout.ports.clear();
        QCOMPARE(world.check().error(), QStringLiteral("There is no cabinet detected."));
        world.answers()->detected = 0;
        QCOMPARE(world.check().error(), QStringLiteral("No processor is detected."));
    }

    void theFirstCabinetWhoseParametersCannotBeSavedIsTold()
    {
        const SMD5 broken = SMD5::ofContent("broken");
        const SMD5 unknown = SMD5::ofContent("elsewhere");
        for (const auto &[type, place, text] :
             {std::tuple(SMD5(), -1, QStringLiteral("Unable to save processor B(127.0.0.1)'s cabinet, ")),
              {SMD5(), 7, QStringLiteral("Unable to save processor B(127.0.0.1)'s cabinet, ")},
              {broken, -1, QStringLiteral("Please setup processor B(127.0.0.1)'s mapping first.")},
              {broken, 7, QStringLiteral("Type file broken is damaged.")},
              {unknown, 7,
               QStringLiteral("Type file %1 is damaged.").arg(QLatin1String(unknown.toText()))}}) {
            SParameterWorld world;
            {
                const auto known = world.answers();
                auto &cabinets = known->layouts[world.b].layout.ports[0].groups[0].cabinets;
                cabinets[0].type = type;
                cabinets[0].mappingIndex = place;
                cabinets[1].type = SMD5(); // comes later
            }
            QVERIFY2(world.check().error().startsWith(text), qPrintable(text));
        }
    }
};

ORVO_TEST_MAIN(QApplication, CHostCommandsTest)
#include "tst_host_commands.moc"
