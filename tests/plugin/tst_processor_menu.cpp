// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "layout/plugin/CProcessorCommands.h"
#include "layout/plugin/CProcessorMenu.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/harness/SStoreWorld.h"

#include <QMenu>

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

    void fill(bool editable = true)
    {
        menu.clear();
        CProcessorMenu(menu, commands, a, editable, selected).fill();
    }
    QAction *entry(const QString &path)
    {
        const QMenu *level = &menu;
        QAction *found = nullptr;
        const QStringList texts = path.split(QLatin1Char('>'));
        for (const QString &text : texts) {
            found = nullptr;
            for (QAction *action : level->actions())
                found = action->text() == text ? action : found;
            if (!found)
                return nullptr;
            level = found->menu();
        }
        return found;
    }
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

/// Closes the next dialog and notes its @p title.
void closeNext(QString &title)
{
    inNext<QDialog>([&title](QDialog &dialog) {
        title = dialog.windowTitle();
        dialog.reject();
    });
}

const QString Ok = QStringLiteral("OK");

} // namespace

class CProcessorMenuTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsADeadClick()
    {
        SMenuScene scene;
        scene.fill();
        QVERIFY(scene.menu.toolTipsVisible());
        const QAction *later = scene.entry(QStringLiteral("Redundant processor view..."));
        QVERIFY(!later->isEnabled());
        QCOMPARE(later->toolTip(), QStringLiteral("Available in a later version"));
        QVERIFY(!scene.enabled("Cancel redundancy"));
        QCOMPARE(scene.entry(QStringLiteral("Cancel redundancy"))->toolTip(),
                 QStringLiteral("The processor is not in a redundancy pair"));
        QVERIFY(scene.entry(QStringLiteral("Number of output ports>4"))->isChecked());
        QVERIFY(scene.enabled("Number of output ports>16"));
        QVERIFY(!scene.enabled("Number of output ports>20")); // of at most 16
    }

    void enablesWhatThePartiesAllow_data()
    {
        QTest::addColumn<bool>("fiber");
        QTest::addColumn<bool>("editable");
        QTest::addColumn<bool>("online");
        QTest::addColumn<bool>("alone");
        QTest::addColumn<bool>("current");
        QTest::addColumn<QString>("enabled"); // import, copy, export, LED, ports, redundancy
        QTest::addColumn<QString>("reason");
        const auto row = [](const char *name, std::initializer_list<bool> state, const char *enabled,
                            const char *reason) {
            QTestData &data = QTest::newRow(name);
            for (const bool is : state)
                data << is;
            data << QString::fromLatin1(enabled) << QString::fromLatin1(reason);
        };
        row("all", {false, true, true, false, true}, "111111", "");
        row("blocked", {false, false, true, false, true}, "001101", "Editing is locked");
        row("offline", {false, true, false, false, true}, "111011", "The processor is offline");
        row("fibre", {true, true, true, false, true}, "000000", "Fiber Optic Transceiver Mode is on");
        row("fibre and blocked", {true, false, true, true, true}, "000000",
            "Fiber Optic Transceiver Mode is on");
        row("alone", {false, true, true, true, true}, "101110", "There is no other processor");
        row("not current", {false, true, true, false, false}, "111011",
            "The processor is not the current one");
    }
    void enablesWhatThePartiesAllow()
    {
        QFETCH(bool, fiber);
        QFETCH(bool, editable);
        QFETCH(bool, online);
        QFETCH(bool, alone);
        QFETCH(bool, current);
        QFETCH(QString, enabled);
        QFETCH(QString, reason);
        SMenuScene scene;
        scene.answers()->nodes[0].online = online;
        if (fiber)
            scene.answers()->fiber = {scene.a};
        if (alone)
            scene.answers()->nodes.removeLast();
        if (!current)
            scene.answers()->current = scene.b;
        scene.fill(editable);
        QCOMPARE(withoutReason(scene.menu), QStringList());
        QString seen;
        for (const char *path :
             {"Import mapping by processor...", "Copy mapping from", "Export mapping by processor...",
              "Cabinet status LED", "Number of output ports", "Set as redundancy for"}) {
            const QAction *entry = scene.entry(QString::fromLatin1(path));
            seen += entry->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
            QVERIFY2(entry->isEnabled() || entry->toolTip() == reason, path);
        }
        QCOMPARE(seen, enabled);
    }

    void othersInFiberModeCannotBeChosen()
    {
        SMenuScene scene;
        scene.answers()->fiber = {scene.b};
        scene.fill();
        for (const char *path : {"Copy mapping from>Fiber Optic Transceiver Mode is on",
                                 "Set as redundancy for>Fiber Optic Transceiver Mode is on"}) {
            QVERIFY2(scene.entry(QString::fromLatin1(path)), path);
            QVERIFY2(!scene.enabled(path), path);
        }
    }

    void callsTheHostAndTellsTheResult_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("call");
        QTest::addColumn<QString>("messages"); // success|failure
        const QString set = QStringLiteral("Set successful.|Set failed.");
        QTest::newRow("LED on") << QByteArray("Cabinet status LED>On")
                                << QStringLiteral("setCabinetStatusLed(true)") << set;
        QTest::newRow("LED off") << QByteArray("Cabinet status LED>Off")
                                 << QStringLiteral("setCabinetStatusLed(false)") << set;
        QTest::newRow("ports") << QByteArray("Number of output ports>12")
                               << QStringLiteral("setOutputPortCount(A,12)") << set;
        QTest::newRow("redundancy") << QByteArray("Set as redundancy for>B(127.0.0.1)")
                                    << QStringLiteral("setProcessorRedundancy(B,A)") << set;
        QTest::newRow("no redundancy")
            << QByteArray("Cancel redundancy") << QStringLiteral("cancelProcessorRedundancy(A)") << set;
        QTest::newRow("copy") << QByteArray("Copy mapping from>B(127.0.0.1)")
                              << QStringLiteral("copyProcessorMapping(B,A,false)")
                              << QStringLiteral("Import mapping successful.|Import mapping failed.");
    }
    void callsTheHostAndTellsTheResult()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, call);
        QFETCH(QString, messages);
        SMenuScene scene;
        scene.answers()->redundancies = {{scene.b, scene.a}};
        scene.fill();
        CMessageBoxAnswerer user({Ok, Ok});
        scene.trigger(path.constData());
        scene.answers()->refused = {call.section(QLatin1Char('('), 0, 0)};
        scene.trigger(path.constData());
        QCOMPARE(scene.commandCalls(), (QStringList{call, call}));
        QCOMPARE(user.texts().join(QLatin1Char('|')), messages);
        QCOMPARE(user.boxes().first().details, QString());
        QCOMPARE(user.boxes().last().details, scene.answers()->error);
    }

    void importAsksForLockedPortsOnly_data()
    {
        QTest::addColumn<bool>("locked");
        QTest::addColumn<QStringList>("answers");
        QTest::addColumn<QString>("flag");
        QTest::newRow("unlocked") << false << QStringList{Ok} << QStringLiteral("false");
        QTest::newRow("overwrite") << true << QStringList{QStringLiteral("Yes"), Ok}
                                   << QStringLiteral("true");
        QTest::newRow("keep") << true << QStringList{QStringLiteral("No"), Ok} << QStringLiteral("false");
    }
    void importAsksForLockedPortsOnly()
    {
        QFETCH(bool, locked);
        QFETCH(QStringList, answers);
        QFETCH(QString, flag);
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("wall.sprj"));
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        SMenuScene scene;
        scene.answers()->layouts[scene.a].layout.ports[2].locked = locked;
        scene.fill();
        CFileDialogAnswerer chooser(file);
        CMessageBoxAnswerer user(answers);
        scene.trigger("Import mapping by processor...");
        QCOMPARE(chooser.title, QStringLiteral("Import..."));
        QCOMPARE(scene.commandCalls(),
                 QStringList{QStringLiteral("importProcessorMapping(A,%1,%2)").arg(file, flag)});
        QCOMPARE(user.texts().last(), QStringLiteral("Import mapping successful."));
        if (locked)
            QCOMPARE(
                user.texts().first(),
                QStringLiteral("The output port has been locked in the current layout, want to overwrite?"));
        QCOMPARE(scene.store.mappingFolder(), folder.path());
    }

    void exportProposesANameAndCompletesIt()
    {
        QTemporaryDir folder;
        SMenuScene scene;
        scene.store.setMappingFolder(folder.path());
        scene.fill();
        CFileDialogAnswerer chooser(folder.filePath(QStringLiteral("wall")));
        CMessageBoxAnswerer user({Ok});
        scene.trigger("Export mapping by processor...");
        QCOMPARE(chooser.title, QStringLiteral("Export..."));
        QCOMPARE(scene.commandCalls(), QStringList{QStringLiteral("exportProcessorMapping(A,%1)")
                                                       .arg(folder.filePath(QStringLiteral("wall.sprj")))});
        QCOMPARE(user.texts(), QStringList{QStringLiteral("Export mapping successful.")});
    }

    void aCancelledFileDialogEndsSilently()
    {
        SMenuScene scene;
        scene.fill();
        for (const char *path : {"Import mapping by processor...", "Export mapping by processor..."}) {
            CFileDialogAnswerer chooser{QString()};
            scene.trigger(path);
            QVERIFY(!chooser.title.isEmpty());
        }
        QCOMPARE(scene.commandCalls(), QStringList());
    }

    void describesTheSelectedCabinets()
    {
        SMenuScene scene;
        scene.fill();
        const QString path = QStringLiteral("Cabinet information...");
        QVERIFY(!scene.entry(path)->isEnabled());
        QCOMPARE(scene.entry(path)->toolTip(), QStringLiteral("No cabinet is selected"));
        scene.selected << CabinetLayout::CabinetPort::Cabinet();
        scene.fill();
        QString title;
        closeNext(title);
        scene.entry(path)->trigger();
        QCOMPARE(title, QStringLiteral("Cabinet information"));
    }

    void parametersAreSavedOnceTheCabinetsAreChecked()
    {
        SMenuScene scene;
        const char *path = "Cabinet parameters>Save parameters...";
        scene.fill();
        CMessageBoxAnswerer user({Ok});
        scene.trigger(path);
        QCOMPARE(user.texts(), QStringList{QStringLiteral("There is no cabinet detected.")});

        SSettings::TypeLibrary::STreeNode type;
        type.key = type.info.key = SMD5::ofContent("P2");
        scene.answers()->library = {type};
        scene.host.notify(LayoutNotification::TypeLibraryChanged);
        CabinetLayout::CabinetPort::Cabinet cabinet;
        cabinet.type = type.key;
        cabinet.mappingIndex = 0;
        CabinetLayout::CabinetPort::CabinetGroup group;
        group.cabinets << cabinet;
        scene.answers()->layouts[scene.a].layout.ports[0].groups << group;
        QString title;
        closeNext(title);
        scene.trigger(path);
        QCOMPARE(title, QStringLiteral("Save parameters"));
        QCOMPARE(user.texts().size(), 1);
    }

    void markupIsKeptInTheStore()
    {
        SMenuScene scene;
        scene.fill();
        scene.trigger("Cabinet parameters>Markup custom-defined cabinets");
        QVERIFY(scene.store.options().markupCustomCabinets);
        scene.fill();
        QVERIFY(
            scene.entry(QStringLiteral("Cabinet parameters>Markup custom-defined cabinets"))->isChecked());
    }
};

ORVO_TEST_MAIN(QApplication, CProcessorMenuTest)
#include "tst_processor_menu.moc"
