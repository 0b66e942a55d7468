// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/projects/CNewProjectDialog.h"
#include "host/app/projects/CProjectCommands.h"
#include "host/app/projects/CSettingsDialog.h"
#include "host/app/start/CAppSettings.h"
#include "host/devices/CDeviceManager.h"
#include "host/devices/CPortPairs.h"
#include "host/devices/simulated/CProcessorKinds.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/SFileStamp.h"
#include "layout/resources/LayoutResources.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeWidget>

#include <functional>
#include <utility>

namespace {

/// The commands with everything that they work on.
struct SBench
{
    QTemporaryDir folder;
    CDeviceManager manager{SDeviceSettings{folder.path(), 0.0}};
    CAppSettings settings;
    QWidget window;
    std::function<void()> pending; ///< edits that the module has not handed over yet
    CProjectCommands commands{manager.services(), manager.projects(), settings, window};

    SBench()
    {
        manager.services().setFlush([this] {
            if (pending)
                std::exchange(pending, nullptr)();
        });
    }

    /// A project in a file, with a change that is not saved.
    QUuid editedProject(const QString &name)
    {
        const QUuid project = projectBeingEdited(name);
        manager.services().flush();
        return project;
    }

    /// A project in a file, with a change that the module still holds.
    QUuid projectBeingEdited(const QString &name)
    {
        const QUuid project = manager.projects().openDemo().value();
        Q_UNUSED(manager.projects().save(project, folder.filePath(name)));
        pending = [this, project] {
            manager.table().change(project, [](SDevice &device) { device.settings.frameRate = 50; });
        };
        return project;
    }

    int frameRateIn(const char *file) const
    {
        const auto project = CProcessorProject::read(folder.filePath(QLatin1String(file)));
        return project ? project.value().frameRate : -1;
    }
};

QSpinBox *numberIn(const CNewProjectDialog &dialog, const char *name)
{
    return dialog.findChild<QSpinBox *>(QLatin1String(name));
}

} // namespace

class CProjectsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { initLayoutResources(); }

    void closingAsksWhatBecomesOfEdits()
    {
        for (const char *answer : {"Save", "Discard", "Cancel"}) {
            const bool closed = qstrcmp(answer, "Cancel") != 0;
            SBench bench;
            const QUuid project = bench.editedProject(QStringLiteral("wall.sprj"));
            bench.window.show();
            QApplication::setActiveWindow(&bench.window);
            const CMessageBoxAnswerer user({QLatin1String(answer)});
            QCOMPARE(bench.commands.close(project), closed);
            QTRY_COMPARE(QApplication::activeWindow(), &bench.window);
            QVERIFY(user.texts().first().contains(QLatin1String("Demo wall")));
            QCOMPARE(bench.manager.table().isProject(project), !closed);
            QCOMPARE(bench.frameRateIn("wall.sprj"), qstrcmp(answer, "Save") == 0 ? 50 : 60);
        }
    }

    void whatCannotBeSavedStaysOpen()
    {
        SBench bench;
        const QUuid project = bench.editedProject(QStringLiteral("wall.sprj"));
        bench.manager.table().change(
            project, [](SDevice &device) { device.file = QStringLiteral("/nowhere/wall.sprj"); });
        CMessageBoxAnswerer user({QStringLiteral("Save"), QStringLiteral("OK")});
        QVERIFY(!bench.commands.close(project));
        QVERIFY(user.boxes().last().details.contains(QStringLiteral("/nowhere/wall.sprj")));
        QVERIFY(bench.manager.table().isModified(project));
    }

    void editsThatTheModuleStillHoldsAreSaved()
    {
        using Way = bool (*)(CProjectCommands &, const QUuid &);
        const Way ways[] = {[](CProjectCommands &commands, const QUuid &key) { return commands.save(key); },
                            [](CProjectCommands &commands, const QUuid &key) { return commands.close(key); },
                            [](CProjectCommands &commands, const QUuid &) { return commands.confirmQuit(); }};
        for (const Way way : ways) {
            SBench bench;
            const QUuid project = bench.projectBeingEdited(QStringLiteral("wall.sprj"));
            const CMessageBoxAnswerer user(way == ways[0] ? QStringList()
                                                          : QStringList(QStringLiteral("Save")));
            QVERIFY(way(bench.commands, project));
            QCOMPARE(user.boxes().size(), way == ways[0] ? 0 : 1);
            QCOMPARE(bench.frameRateIn("wall.sprj"), 50);
        }
    }

    void aFileThatAnotherWindowSavedIsNotReplacedUnasked()
    {
        SBench bench;
        const QUuid project = bench.editedProject(QStringLiteral("a.sprj"));
        QVERIFY(bench.commands.save(project)); // nobody else was there
        SBench other;
        const QString file = bench.folder.filePath(QStringLiteral("a.sprj"));
        const QUuid same = other.manager.projects().open(file).value();
        QVERIFY(other.manager.projects().save(same, file));
        const SFileStamp theirs = SFileStamp::of(file);
        const CMessageBoxAnswerer user(
            {QStringLiteral("Cancel"), QStringLiteral("Save as..."), QStringLiteral("Overwrite")});
        QVERIFY(!bench.commands.save(project));
        const CFileDialogAnswerer elsewhere{QString()}; // asked for another name, the user gives up
        QVERIFY(!bench.commands.save(project));
        QCOMPARE(elsewhere.title, QStringLiteral("Save project as"));
        QVERIFY(SFileStamp::of(file) == theirs);
        QVERIFY(bench.commands.save(project));
        QVERIFY(SFileStamp::of(file) != theirs);
        QVERIFY(bench.commands.save(project)); // is its own again
        QCOMPARE(user.boxes().size(), 3);
    }

    void whatSomebodyElseHasOpenIsOpenedAsTheUserWants()
    {
        SBench bench;
        const QString file = bench.folder.filePath(QStringLiteral("a.sprj"));
        QVERIFY(bench.manager.projects().save(bench.manager.projects().openDemo().value(), file));
        bench.manager.projects().close(bench.manager.table().devices().first().node.uuid);
        const QString lockFile = bench.folder.filePath(QStringLiteral(".a.sprj.lock"));
        QVERIFY(!QFile::exists(lockFile));
        SLockHolder anna = SLockHolder::ofThisProcess();
        anna.user = QStringLiteral("anna");
        anna.machine = QStringLiteral("studio-2");
        const auto lock = [&lockFile] {
            QFile content(lockFile);
            return content.open(QIODevice::ReadOnly) ? content.readAll() : QByteArray();
        };
        QFile theirs(lockFile);
        QVERIFY(theirs.open(QIODevice::WriteOnly) && theirs.write(anna.encode()) > 0);
        theirs.close();

        const CMessageBoxAnswerer user(
            {QStringLiteral("Cancel"), QStringLiteral("Read only"), QStringLiteral("Open anyway")});
        bench.commands.open({file});
        QVERIFY(user.boxes().first().details.contains(QStringLiteral("anna on studio-2")));
        QVERIFY(bench.manager.table().devices().isEmpty());
        bench.commands.open({file});
        const QUuid project = bench.manager.table().devices().value(0).node.uuid;
        const QModelIndex row = bench.manager.treeModel().indexOf(project);
        QCOMPARE(row.data().toString(), QStringLiteral("Demo wall (read only)"));
        QVERIFY(row.data(Qt::ToolTipRole).toString().contains(QStringLiteral("anna on studio-2")));
        {
            const CFileDialogAnswerer elsewhere{QString()}; // to save is to save as
            QVERIFY(!bench.commands.save(project));
            QCOMPARE(elsewhere.title, QStringLiteral("Save project as"));
        }
        SProjectSaving how;
        how.overHeld = false;
        const SFileStamp before = SFileStamp::of(file);
        QVERIFY(!bench.manager.projects().save(project, file, {}, &how));
        QVERIFY(how.heldBy && how.heldBy->user == anna.user && before == SFileStamp::of(file));
        const QString own = bench.folder.filePath(QStringLiteral("b.sprj"));
        QVERIFY(bench.manager.projects().save(project, own, QStringLiteral("b"), &how));
        QVERIFY(bench.commands.save(project));
        QCOMPARE(bench.manager.treeModel().indexOf(project).data().toString(), QStringLiteral("b"));
        QVERIFY(QFile::exists(bench.folder.filePath(QStringLiteral(".b.sprj.lock"))));
        QCOMPARE(lock(), anna.encode());

        bench.commands.open({file});
        QVERIFY(lock() != anna.encode()); // it is ours
        for (const SDevice &device : bench.manager.table().devices())
            bench.manager.projects().close(device.node.uuid);
        QCOMPARE(QDir(bench.folder.path()).entryList({QStringLiteral("*.lock")}, QDir::Files | QDir::Hidden),
                 QStringList());
        QCOMPARE(user.boxes().size(), 3);
    }

    void anEarlierVersionComesBackUnsaved()
    {
        SBench bench;
        const QUuid project = bench.editedProject(QStringLiteral("a.sprj")); // with 60 Hz
        {
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            bench.commands.restoreVersion(project); // there is none yet
        }
        const CabinetLayout wall = bench.manager.table().device(project)->working.layout();
        bench.manager.table().changeLayout(project, [](SDevice &device) { device.takeLayout({}); });
        QVERIFY(bench.commands.save(project));
        QCOMPARE(bench.frameRateIn("a.sprj"), 50);
        QTimer user;
        connect(&user, &QTimer::timeout, &user, [&user] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return; // the list of files is being read
            user.stop();
            auto *list = dialog->findChild<QTreeWidget *>(QStringLiteral("Versions"));
            QCOMPARE(list->topLevelItemCount(), 1);
            list->setCurrentItem(list->topLevelItem(0));
            auto *restore = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            QTRY_VERIFY(restore->isEnabled()); // once it has been read
            QCOMPARE(list->topLevelItem(0)->text(2), QStringLiteral("240 cabinets"));
            restore->click();
        });
        user.start(1);
        bench.commands.restoreVersion(project);
        const SDevice restored = *bench.manager.table().device(project);
        QCOMPARE(restored.settings.frameRate, 60);
        QCOMPARE(restored.working.layout().cabinetCount(), wall.cabinetCount());
        QVERIFY(restored.isModified());
        QCOMPARE(bench.frameRateIn("a.sprj"), 50);
        QVERIFY(bench.commands.save(project));
        QCOMPARE(bench.frameRateIn("a.sprj~"), 50); // can be undone in turn
    }

    void settingsAreShownAndStored()
    {
        CAppSettings settings;
        const auto number = [](QDialog &dialog, const char *name) {
            return dialog.findChild<QSpinBox *>(QLatin1String(name));
        };
        CSettingsDialog dialog(settings, nullptr);
        auto *keep = dialog.findChild<QCheckBox *>(QStringLiteral("KeepHistory"));
        QVERIFY(keep->isChecked());
        QCOMPARE(number(dialog, "Versions")->value(), 1);
        keep->setChecked(false);
        number(dialog, "Versions")->setValue(4);
        number(dialog, "HistoryMegabytes")->setValue(100);
        CSettingsDialog(settings, nullptr).reject();
        QVERIFY(CAppSettings().keepsHistory()); // not yet
        dialog.accept();
        QCOMPARE(CSafeFile::versions(), 4);
        QVERIFY(!CAppSettings().keepsHistory());
        QCOMPARE(CAppSettings().historyMegabytes(), 100);
        CSettingsDialog again(settings, nullptr);
        QCOMPARE(number(again, "Versions")->value(), 4);
        QCOMPARE(number(again, "HistoryMegabytes")->value(), 100);
        CSafeFile::setVersions(1);
    }

    void aLayoutIsExported()
    {
        SBench bench;
        const QUuid project = bench.manager.projects().openDemo().value();
        for (const QString &name : {QStringLiteral("wall"), QStringLiteral("wall.csv")}) {
            const CFileDialogAnswerer chooser(bench.folder.filePath(name));
            bench.commands.exportLayout(project);
        }
        for (const QString &name : {QStringLiteral("wall.png"), QStringLiteral("wall.csv")})
            QVERIFY2(QFileInfo(bench.folder.filePath(name)).size() > 1000, qPrintable(name));
        const CMessageBoxAnswerer user({QStringLiteral("OK")});
        const CFileDialogAnswerer chooser(bench.folder.filePath(QStringLiteral("wall.jpg")));
        bench.commands.exportLayout(project);
        QCOMPARE(user.boxes().first().details, QStringLiteral("The name must end in .png, .svg or .csv."));
    }

    void quittingAsksForEveryProject()
    {
        SBench bench;
        bench.editedProject(QStringLiteral("a.sprj"));
        bench.editedProject(QStringLiteral("b.sprj"));
        Q_UNUSED(bench.manager.projects().openDemo()); // without changes nobody is asked
        const CMessageBoxAnswerer user({QStringLiteral("Discard"), QStringLiteral("Cancel"),
                                        QStringLiteral("Save"), QStringLiteral("Discard")});
        QVERIFY(!bench.commands.confirmQuit());
        QCOMPARE(user.boxes().size(), 2);
        QVERIFY(bench.commands.confirmQuit());
        QCOMPARE(user.boxes().size(), 4);
    }

    void quittingOverEditsOfADeviceIsNoAccident()
    {
        SBench bench;
        SDevice device;
        device.node.uuid = QUuid::createUuid();
        device.node.name = QStringLiteral("Foyer");
        device.settings.portCount = 1;
        bench.manager.table().put(device); // it holds nothing
        bench.pending = [&] {              // but the module has got an edit
            bench.manager.table().changeLayout(device.node.uuid,
                                               [](SDevice &edited) { edited.takeLayout({}); });
        };
        const CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("Yes")});
        QVERIFY(!bench.commands.confirmQuit());
        QVERIFY(bench.commands.confirmQuit());
        QVERIFY(user.boxes().first().details.contains(QStringLiteral("Foyer")));
        QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("No"));
    }

    void oneMessageTellsOfAllFilesThatCannotBeOpened()
    {
        SBench bench;
        const QString good = bench.folder.filePath(QStringLiteral("wall.sprj"));
        QVERIFY(bench.manager.projects().save(bench.manager.projects().openDemo().value(), good));
        const QString missing = bench.folder.filePath(QStringLiteral("missing.sprj"));
        bench.settings.addRecentProject(missing);
        bench.settings.addRecentProject(bench.folder.path());
        QSignalSpy opened(&bench.commands, &CProjectCommands::notifyOpened);
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        bench.commands.open({missing, good, bench.folder.path()});
        QCOMPARE(user.texts(), QStringList(QStringLiteral("2 projects cannot be opened.")));
        QVERIFY(user.boxes().first().details.contains(missing));
        QCOMPARE(user.boxes().first().icon, QMessageBox::Warning);
        QCOMPARE(opened.size(), 1);
        QVERIFY(!bench.settings.recentProjects().contains(missing));
        QVERIFY(bench.settings.recentProjects().contains(good));
        QVERIFY(bench.settings.recentProjects().contains(bench.folder.path())); // it is there
    }

    void aNewProjectIsWhatWasAskedFor()
    {
        CNewProjectDialog dialog(CProcessorKinds::builtIn(), nullptr);
        const auto *name = dialog.findChild<QLineEdit *>(
            QStringLiteral("Name")); // typing takes the place of what is proposed
        QVERIFY(!name->text().isEmpty() && name->selectedText() == name->text());
        auto *type = dialog.findChild<QComboBox *>(QStringLiteral("CabinetType"));
        type->setCurrentIndex(type->findText(QStringLiteral("Rental indoor P2.6 tall")));
        Q_EMIT type->activated(type->currentIndex()); // sets the size
        numberIn(dialog, "Columns")->setValue(6);
        numberIn(dialog, "Rows")->setValue(2);
        numberIn(dialog, "Ports")->setValue(3);
        dialog.accept();
        const SProcessorProject &project = dialog.project();
        QCOMPARE(project.canvas, QSize(6 * 192, 2 * 384));
        QCOMPARE(project.layout.cabinetCount(), 12);
        QCOMPARE(project.portCount, 3);
        QVERIFY(CProcessorKinds::builtIn().find(project.kind)->ports >= 3);
        const auto cabinets = project.layout.ports.first().getAllCabinets();
        QVERIFY(!cabinets.first().type.isNull());
        QCOMPARE(cabinets.first().rects.size(), 2);
        numberIn(dialog, "CabinetWidth")->setValue(193); // no longer of the type
        QCOMPARE(type->currentIndex(), 0);

        SBench bench;
        const auto added = bench.manager.projects().add(project);
        QVERIFY(added);
        QVERIFY(bench.manager.table().isModified(added.value())); // nobody has saved it
    }

    void aNewWallMayHaveARedundancyForEachPort()
    {
        CNewProjectDialog dialog(CProcessorKinds::builtIn(), nullptr);
        numberIn(dialog, "Columns")->setValue(24);
        numberIn(dialog, "Rows")->setValue(10);
        dialog.findChild<QCheckBox *>(QStringLiteral("Redundancy"))->setChecked(true);
        const auto *summary = dialog.findChild<QLabel *>(QStringLiteral("Summary"));
        numberIn(dialog, "Ports")->setValue(4); // the smallest processor with eight ports cannot pair them
        QVERIFY2(summary->text().contains(QStringLiteral("processor: C10,")), qPrintable(summary->text()));
        numberIn(dialog, "Ports")->setValue(15);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        SBench bench;
        const QUuid added = bench.manager.projects().add(dialog.project()).value();
        const SDevice device = *bench.manager.table().device(added);
        QVERIFY(device.kind.portRedundancy);
        QCOMPARE(device.settings.portCount, 30);
        bench.manager.services().select({added}, PrcTreeNodeType::Processor);
        const QList<SPortPair> pairs = CPortPairs(bench.manager.services()).pairs();
        QCOMPARE(pairs.size(), 15); // unbroken ones
        for (const SPortPair &pair : pairs) {
            QCOMPARE(pair.second.port, pair.first.port + 15);
            const CabinetLayout &layout = device.working.layout();
            QVERIFY(PortPairs::cabinetsMatch(*layout.port(pair.second.port), *layout.port(pair.first.port)));
        }
    }

    void aWallThatCannotBeDrivenIsMadeOnlyIfTheUserAgrees()
    {
        CNewProjectDialog dialog(CProcessorKinds::builtIn(), nullptr);
        const auto *summary = dialog.findChild<QLabel *>(QStringLiteral("Summary"));
        numberIn(dialog, "Columns")->setValue(17); // one port carries 17.8 cabinets
        numberIn(dialog, "Rows")->setValue(1);
        numberIn(dialog, "Ports")->setValue(1);
        QVERIFY2(summary->text().endsWith(QStringLiteral("load of a port: 95%")),
                 qPrintable(summary->text()));
        numberIn(dialog, "Columns")->setValue(18);
        QVERIFY(summary->text().contains(QStringLiteral("101%\n663,552 pixels × 60 Hz × 24 bits")));
        const CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("Yes")});
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(user.boxes().first().details.startsWith(QStringLiteral("Port 1: 101%")));
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(user.boxes().size(), 2);
    }

    void impossibleWallsCannotBeConfirmed()
    {
        CNewProjectDialog dialog(CProcessorKinds::builtIn(), nullptr);
        for (const auto &[columns, rows, possible] :
             {std::tuple(64, 65, false), {170, 1, true}, {171, 1, false}, {1, 85, true}, {1, 86, false}}) {
            numberIn(dialog, "Columns")->setValue(columns);
            numberIn(dialog, "Rows")->setValue(rows);
            QCOMPARE(dialog.buttonBox()->button(QDialogButtonBox::Ok)->isEnabled(), possible);
        }
        numberIn(dialog, "Columns")->setValue(1);
        numberIn(dialog, "Rows")->setValue(3); // for four ports
        QVERIFY(!dialog.buttonBox()->button(QDialogButtonBox::Ok)->isEnabled());
        QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("Summary"))->text(),
                 QStringLiteral("3 cabinets are too few for 4 ports."));
    }
};

ORVO_TEST_MAIN(QApplication, CProjectsTest)
#include "tst_projects.moc"
