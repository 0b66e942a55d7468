// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CCabinetFiles.h"
#include "layout/plugin/CMappingCommands.h"
#include "layout/plugin/CParameterCheck.h"
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

} // namespace
Q_DECLARE_METATYPE(Command)

class CFlushTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void theHostKnowsAllEditsBeforeItIsAsked_data()
    {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<Command>("command");
        const auto row = [](const char *operation, Command command) {
            QTest::newRow(operation) << QString::fromLatin1(operation) << command;
        };
        using W = SEditedWorld;
        row("importProcessorMapping", [](W &w) { w.processors.importMapping(w.a); });
        row("exportProcessorMapping", [](W &w) { w.processors.exportMapping(w.a); });
        row("copyProcessorMapping", [](W &w) { w.processors.copyMapping(w.a, w.b); });
        row("setOutputPortCount", [](W &w) { w.processors.setPortCount(w.a, 4); });
        row("setCabinetStatusLed", [](W &w) { w.processors.setStatusLed(true); });
        row("setProcessorRedundancy", [](W &w) { w.processors.setRedundancyFor(w.b, w.a); });
        row("cancelProcessorRedundancy", [](W &w) { w.processors.cancelRedundancy(w.a); });
        row("processors", [](W &w) { QVERIFY(!CParameterCheck(w.store).run()); });
        row("readMapping", [](W &w) { w.mapping.readMapping(ReadSaveMappingRole::All, {}, [](bool) {}); });
        row("saveMapping", [](W &w) { w.mapping.saveMapping(ReadSaveMappingRole::All, [](bool) {}); });
        row("exportCabinetConfig",
            [](W &w) { CCabinetFiles(w.store, w.store, &w.window).exportConfiguration(w.cabinet()); });
        row("readbackCabinetConfig",
            [](W &w) { CCabinetFiles(w.store, w.store, &w.window).readBack(w.cabinet()); });
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

    void aLockThatWaitsIsAskedAbout()
    {
        SEditedWorld world;
        world.store.setPortLocked(1, true); // the host learns of it later
        const CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("OK")});
        world.processors.copyMapping(world.b, world.a);
        QCOMPARE(user.boxes().size(), 2);
        QCOMPARE(world.answers()->calls().filter(QStringLiteral("copyProcessorMapping(")).size(), 1);
        QCOMPARE(world.answers()->calls().filter(QStringLiteral(",false)")).size(), 1);
    }
};

ORVO_TEST_MAIN(QApplication, CFlushTest)
#include "tst_flush.moc"
