// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "layout/plugin/CProcessorCommands.h"
#include "layout/plugin/CProcessorMenu.h"
#include "layout/redundancy/CProcessorBackupDialog.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/SStoreWorld.h"

namespace {

struct SMenuScene final : SStoreWorld
{
    QUuid a = host.addProcessor(QStringLiteral("A"), 4);
    QUuid b = host.addProcessor(QStringLiteral("B"), 2);
    QWidget window;
    CProcessorCommands commands{store, window};
    QMenu menu;
    CProcessorMenu::Cabinets selected;

    SMenuScene() { host.choose(a); }

    void fill(const QString &block = {})
    {
        menu.clear();
        CProcessorMenu(menu, commands, a, block, selected).fill();
    }
    QAction *entry(const QString &path) const { return entryOf(menu, path); }
    bool enabled(const char *path) { return entry(QString::fromLatin1(path))->isEnabled(); }
    void trigger(const char *path) { entry(QString::fromLatin1(path))->trigger(); }
    QStringList commandCalls()
    {
        QStringList calls = answers()->calls().filter(
            QRegularExpression(QStringLiteral("^(import|export|copy|setC|setO|setP|cancel)")));
        calls.replaceInStrings(a.toString(QUuid::WithoutBraces), QStringLiteral("A"));
        calls.replaceInStrings(b.toString(QUuid::WithoutBraces), QStringLiteral("B"));
        return calls;
    }
};

/// The texts of the disabled entries of a menu and its submenus that do not tell why they are.
QStringList withoutReason(const QMenu &menu)
{
    QStringList texts = menu.toolTipsVisible() ? QStringList() : QStringList{menu.title()};
    for (const QAction *action : menu.actions()) {
        const bool told = action->toolTip() != action->text() && !action->toolTip().isEmpty();
        if (!action->isSeparator() && !action->isEnabled() && !told)
            texts << action->text();
        if (action->menu())
            texts << withoutReason(*action->menu());
    }
    return texts;
}

const QString Ok = QStringLiteral("OK");

} // namespace

class CProcessorMenuTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void opensTheRedundancyDialogAndTellsRefusals()
    {
        SMenuScene scene;
        scene.fill();
        scene.host.answers()->refused << QStringLiteral("applyProcessorRedundancy");
        CMessageBoxAnswerer user({QStringLiteral("OK"), QStringLiteral("OK")});
        inNext<CProcessorBackupDialog>([&scene](CProcessorBackupDialog &dialog) {
            QPushButton *apply = dialog.buttonBox()->button(QDialogButtonBox::Apply);
            QTest::mouseClick(apply, Qt::LeftButton);
            scene.host.answers()->refused.clear();
            QTest::mouseClick(apply, Qt::LeftButton);
            dialog.reject();
        });
        scene.entry(QStringLiteral("Redundant processor view..."))->trigger();
        QCOMPARE(user.texts(),
                 (QStringList{QStringLiteral("Set failed."), QStringLiteral("Set successful.")}));
        QCOMPARE(user.boxes().first().details, QStringLiteral("The processor does not answer."));
    }

    void enablesWhatThePartiesAllow()
    {
        struct SCase
        {
            const char *state;
            const char *enabled; // import, copy, export, LED, ports, redundancy
            const char *reason;
        };
        for (const auto &[state, enabled, reason] :
             {SCase{"", "111111", ""}, SCase{"blocked", "001101", "Blocked"},
              SCase{"offline", "111000", "The processor is offline."},
              SCase{"project", "111010", "A project is connected to nothing."},
              SCase{"fiber", "000000", "Fiber Optic Transceiver Mode is on"},
              SCase{"fiber blocked", "000000", "Fiber Optic Transceiver Mode is on"},
              SCase{"alone", "101110", "There is no other processor."},
              SCase{"not current", "111011", "The processor is not the current one."}}) {
            const QString is = QString::fromLatin1(state);
            SMenuScene scene;
            scene.answers()->nodes[0].online = is != QLatin1String("offline");
            if (is == QLatin1String("project"))
                scene.answers()->nodes[0].address = 0;
            if (is.startsWith(QLatin1String("fiber")))
                scene.answers()->fiber = {scene.a};
            if (is == QLatin1String("alone"))
                scene.answers()->nodes.removeLast();
            if (is == QLatin1String("not current"))
                scene.answers()->current = scene.b;
            scene.fill(is.contains(QLatin1String("blocked")) ? QStringLiteral("Blocked") : QString());
            QCOMPARE(withoutReason(scene.menu), QStringList());
            QString seen;
            for (const char *path :
                 {"Import mapping by processor...", "Copy mapping from", "Export mapping by processor...",
                  "Cabinet status LED", "Number of output ports", "Set as redundancy for"}) {
                const QAction *entry = scene.entry(QString::fromLatin1(path));
                seen += entry->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
                QVERIFY2(entry->isEnabled() || entry->toolTip() == QLatin1String(reason), path);
            }
            QCOMPARE(seen, QString::fromLatin1(enabled));
        }
        SMenuScene scene;
        scene.fill();
        QVERIFY(scene.menu.toolTipsVisible());
        QVERIFY(!scene.enabled("Cancel redundancy"));
        QVERIFY(scene.entry(QStringLiteral("Number of output ports>4"))->isChecked());
        QVERIFY(scene.enabled("Number of output ports>16"));
        QVERIFY(!scene.enabled("Number of output ports>20")); // of at most 16
        scene.answers()->fiber = {scene.b};
        scene.fill();
        QVERIFY(!scene.enabled("Copy mapping from>Fiber Optic Transceiver Mode is on"));
        QVERIFY(!scene.enabled("Set as redundancy for>Fiber Optic Transceiver Mode is on"));
    }

    void callsTheHostAndTellsTheResult()
    {
        const QVector<QPair<const char *, QString>> calls{
            {"Cabinet status LED>On", QStringLiteral("setCabinetStatusLed(true)")},
            {"Cabinet status LED>Off", QStringLiteral("setCabinetStatusLed(false)")},
            {"Number of output ports>12", QStringLiteral("setOutputPortCount(A,12)")},
            {"Set as redundancy for>B(127.0.0.1)", QStringLiteral("setProcessorRedundancy(B,A)")},
            {"Cancel redundancy", QStringLiteral("cancelProcessorRedundancy(A)")},
            {"Copy mapping from>B(127.0.0.1)", QStringLiteral("copyProcessorMapping(B,A,false)")}};
        for (const auto &[path, call] : calls) {
            SMenuScene scene;
            if (call.startsWith(QLatin1String("cancel")))
                scene.answers()->redundancies = {{scene.b, scene.a}};
            scene.fill();
            const CMessageBoxAnswerer user({Ok, Ok});
            scene.trigger(path);
            scene.answers()->refused = {call.section(QLatin1Char('('), 0, 0)};
            scene.trigger(path);
            QCOMPARE(scene.commandCalls(), (QStringList{call, call}));
            QVERIFY(user.texts().first().endsWith(QLatin1String(" successful.")));
            QVERIFY(user.texts().last().endsWith(QLatin1String(" failed.")));
            QCOMPARE(user.boxes().first().details, QString());
            QCOMPARE(user.boxes().last().details, scene.answers()->error);
        }
    }

    void offersNoPairThatTheHostRefuses()
    {
        const QString entry = QStringLiteral("Set as redundancy for>B(127.0.0.1)");
        SMenuScene scene;
        scene.fill();
        QVERIFY(scene.entry(entry)->isEnabled());
        const QUuid c = scene.host.addProcessor(QStringLiteral("C"), 2);
        scene.answers()->redundancies = {{scene.b, c}};
        scene.fill();
        QVERIFY(!scene.entry(entry)->isEnabled());
        QCOMPARE(scene.entry(entry)->toolTip(),
                 QStringLiteral("The processor is already in a redundancy pair."));
        scene.answers()->redundancies = {{scene.a, c}};
        scene.fill();
        QVERIFY(!scene.enabled("Set as redundancy for"));
        scene.answers()->redundancies.clear();
        scene.answers()->maximumPorts = 1;
        scene.answers()->layouts[scene.b].layout.ports[1].redundancy = CabinetLayout::CabinetPort::Primary;
        scene.fill();
        QVERIFY(!scene.entry(entry)->isEnabled());
        QCOMPARE(scene.entry(entry)->toolTip(),
                 QStringLiteral("A(127.0.0.1) has 1 output ports, but B(127.0.0.1) uses port 2."));
        scene.answers()->nodes[1].address = 0;
        scene.fill();
        const QString project = scene.answers()->nodes[1].displayText();
        QVERIFY(!scene.entry(QStringLiteral("Set as redundancy for>") + project)->isEnabled());
        QVERIFY(scene.entry(QStringLiteral("Copy mapping from>") + project)->isEnabled());
    }

    void offersNoPortCountThatTheHostRefuses()
    {
        using Port = CabinetLayout::CabinetPort;
        const QPair<std::function<void(QVector<Port> &)>, const char *> cases[] = {
            {[](QVector<Port> &ports) { ports[2].groups.resize(1), ports[2].groups[0].cabinets.resize(1); },
             "Output port 3 holds cabinets."},
            {[](QVector<Port> &ports) { ports[3].locked = true; }, "Output port 4 is locked."},
            {[](QVector<Port> &ports) { ports[3].redundancyProcessor = QUuid::createUuid(); },
             "Output port 4 is in a redundancy pair."},
            {[](QVector<Port> &ports) { ports[0].redundancyPort = 2; }, // the first that goes
             "Output port 1 has its redundancy on a port that would go."}};
        for (const auto &[occupy, reason] : cases) {
            SMenuScene scene;
            for (Port &port : scene.answers()->layouts[scene.a].layout.ports)
                port.groups.clear();
            scene.fill();
            QVERIFY(scene.enabled("Number of output ports>2"));
            occupy(scene.answers()->layouts[scene.a].layout.ports);
            scene.fill();
            QVERIFY(!scene.enabled("Number of output ports>2") && scene.enabled("Number of output ports>4"));
            QCOMPARE(scene.entry(QStringLiteral("Number of output ports>2"))->toolTip(),
                     QLatin1String(reason));
        }
    }

    void importAsksForLockedPortsOnly()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("wall.sprj"));
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        for (const char *answer : {"", "Yes", "No"}) { // "": nothing is locked
            SMenuScene scene;
            scene.answers()->layouts[scene.a].layout.ports[2].locked = *answer;
            scene.fill();
            const CFileDialogAnswerer chooser(file);
            const CMessageBoxAnswerer user((*answer ? QStringList(QLatin1String(answer)) : QStringList()) +
                                           QStringList(Ok));
            scene.trigger("Import mapping by processor...");
            const QString flag =
                qstrcmp(answer, "Yes") == 0 ? QStringLiteral("true") : QStringLiteral("false");
            QCOMPARE(scene.commandCalls(),
                     QStringList{QStringLiteral("importProcessorMapping(A,%1,%2)").arg(file, flag)});
            QCOMPARE(user.boxes().size(), *answer ? 2 : 1);
            QCOMPARE(scene.store.mappingFolder(), folder.path());
        }
    }

    void exportCompletesTheNameUnlessCancelled()
    {
        const QTemporaryDir folder;
        for (const bool cancelled : {true, false}) {
            SMenuScene scene;
            scene.fill();
            const CFileDialogAnswerer chooser(cancelled ? QString()
                                                        : folder.filePath(QStringLiteral("wall")));
            const CMessageBoxAnswerer user({Ok});
            scene.trigger("Export mapping by processor...");
            const QString call = QStringLiteral("exportProcessorMapping(A,%1)")
                                     .arg(folder.filePath(QStringLiteral("wall.sprj")));
            QCOMPARE(scene.commandCalls(), cancelled ? QStringList() : QStringList{call});
            QCOMPARE(user.boxes().isEmpty(), cancelled);
        }
    }

    void parametersAreNotSavedBeforeTheCabinetsAreChecked()
    {
        SMenuScene scene;
        scene.fill();
        CMessageBoxAnswerer user({Ok});
        scene.trigger("Cabinet parameters>Save parameters...");
        QCOMPARE(user.texts(), QStringList{QStringLiteral("There is no cabinet detected.")});
    }
};

ORVO_TEST_MAIN(QApplication, CProcessorMenuTest)
#include "tst_processor_menu.moc"
