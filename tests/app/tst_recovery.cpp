// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CRecoveryCommands.h"
#include "host/app/CRecoveryDialog.h"
#include "host/app/help/CHelpCommands.h"
#include "host/app/help/CReportDialog.h"
#include "host/app/start/CAppSettings.h"
#include "host/app/start/CCrashHandler.h"
#include "host/devices/CDeviceManager.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/projects/CFaultyFileSystem.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

#include <cerrno>
#include <functional>

namespace {

/// The commands, with what an earlier run has left.
struct SBench
{
    QTemporaryDir folder;
    QString journals = folder.filePath(QStringLiteral("journal"));
    CDeviceManager manager{SDeviceSettings{folder.path(), 0.0, journals}};
    CAppSettings settings;
    QWidget window;
    CRecoveryCommands commands{manager.keeper(), settings, window};

    /// Leaves the edits of a project, or of a processor that nobody knows.
    void leave(const char *name, bool project, const QString &file = {}) const
    {
        SProcessorProject state = ProjectSamples::ofWall(CWallBuilder::Small);
        state.layout.processor = QUuid::createUuidV5(QUuid(), QLatin1String(name));
        state.name = QLatin1String(name);
        SJournalOwner owner;
        owner.processor = state.layout.processor;
        owner.name = state.name;
        owner.project = project;
        owner.file = file;
        CJournals left(journals, {});
        left.begin(owner, state);
        state.canvas = {800, 600};
        left.note(owner, state);
    }
};

/// Calls @p act once the offer is on the screen; journals are read before.
void inOffer(const std::function<void(CRecoveryDialog &)> &act)
{
    auto *watch = new QTimer(qApp);
    QObject::connect(watch, &QTimer::timeout, watch, [watch, act] {
        auto *dialog = qobject_cast<CRecoveryDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        watch->stop();
        watch->deleteLater();
        act(*dialog);
    });
    watch->start(1);
}

} // namespace

/// What the user is offered after the program has ended unexpectedly, and what each answer does.
class CRecoveryTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsOfferedWithoutACrash();
    void everyEntryHasItsAnswer();
    void whatIsLookedAtStays();
    void whatCannotBeReadIsTold();
    void whatCannotBeReadNowStays();
    void whatCannotBeDiscardedStays();
    void anOpenProjectIsAskedFor();
    void theCrashIsReportedInTheOffer();
};

void CRecoveryTest::nothingIsOfferedWithoutACrash()
{
    SBench bench;
    bench.commands.offerAtStart(); // no box
    CMessageBoxAnswerer user({QStringLiteral("OK")});
    bench.commands.offer();
    QCOMPARE(user.boxes().size(), 1);
}

void CRecoveryTest::everyEntryHasItsAnswer()
{
    SBench bench;
    bench.leave("Arena", true);
    bench.leave("Bar", false);
    bench.leave("Club", true);
    QSignalSpy opened(&bench.commands, &CRecoveryCommands::notifyOpened);
    QSignalSpy told(&bench.commands, &CRecoveryCommands::notifyTold);
    CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("Yes")});
    inOffer([](CRecoveryDialog &dialog) {
        auto *list = dialog.findChild<QListWidget *>();
        QCOMPARE(list->count(), 3);
        const auto choose = [&](const char *name, const char *button) {
            for (int row = 0; row < list->count(); ++row) {
                if (list->item(row)->text().startsWith(QLatin1String(name)))
                    list->setCurrentRow(row);
            }
            buttonOf(dialog, QLatin1String(button))->click();
        };
        choose("Club", "Discard...");
        QCOMPARE(list->count(), 3); // the user thought better of it
        choose("Club", "Discard...");
        QCOMPARE(list->count(), 2);
        choose("Bar", "Restore"); // once it is detected
        choose("Arena", "Restore");
    });
    bench.commands.offerAtStart();
    QCOMPARE(opened.count(), 1);
    QCOMPARE(told.count(), 1);
    const std::optional<SDevice> arena = bench.manager.table().device(opened.first().first().toUuid());
    QVERIFY(arena && arena->settings.canvas == QSize(800, 600) && arena->isModified());
    QVERIFY(bench.manager.keeper().offers().isEmpty());
}

void CRecoveryTest::whatIsLookedAtStays()
{
    SBench bench;
    bench.leave("Arena", true);
    QSignalSpy opened(&bench.commands, &CRecoveryCommands::notifyOpened);
    inOffer([](CRecoveryDialog &dialog) {
        const QIcon picture = dialog.findChild<QListWidget *>()->item(0)->icon();
        QCOMPARE(picture.pixmap(192, QIcon::Selected).toImage(), picture.pixmap(192).toImage());
        buttonOf(dialog, QStringLiteral("Look at it first"))->click();
    });
    bench.commands.offerAtStart();
    QCOMPARE(opened.count(), 1);
    QCOMPARE(bench.manager.keeper().offers().size(), 1);
}

void CRecoveryTest::whatCannotBeReadIsTold()
{
    SBench bench;
    bench.leave("Arena", true);
    ProjectSamples::setContent(bench.journals + QStringLiteral("/x.journal"),
                               QByteArray("ORVOJRNL\x09\x00\x00\x00", 12));
    ProjectSamples::setContent(bench.journals + QStringLiteral("/y.journal"), "garbage");
    CMessageBoxAnswerer user({QStringLiteral("Yes")});
    inOffer([](CRecoveryDialog &dialog) {
        auto *list = dialog.findChild<QListWidget *>();
        for (int row = 0; row < list->count(); ++row) {
            list->setCurrentRow(row);
            const QString text = list->currentItem()->text();
            const bool usable = text.startsWith(QStringLiteral("Arena"));
            QCOMPARE(buttonOf(dialog, QStringLiteral("Restore"))->isEnabled(), usable);
            QCOMPARE(buttonOf(dialog, QStringLiteral("Look at it first"))->isEnabled(), usable);
            QVERIFY(buttonOf(dialog, QStringLiteral("Discard..."))->isEnabled());
        }
        for (int row = list->count() - 1; row >= 0; --row) {
            list->setCurrentRow(row);
            if (list->currentItem()->text().contains(QStringLiteral("newer")))
                buttonOf(dialog, QStringLiteral("Discard..."))->click();
        }
        QCOMPARE(list->count(), 2);
        dialog.reject();
    });
    bench.commands.offerAtStart();
    QVERIFY(!QFile::exists(bench.journals + QStringLiteral("/x.journal")));
}

void CRecoveryTest::whatCannotBeReadNowStays()
{
    SBench bench;
    bench.leave("Arena", true);
    for (const char *call : {"open", "lock", "read"}) {
        const CFaultyFileSystem disk({call, 1, EIO, true}); // outlives the handles of the offers
        const QList<SStrayJournal> offers = CJournalFolder(bench.journals).strays();
        QCOMPARE(offers.size(), 1);
        const CRecoveryDialog dialog(offers, nullptr);
        const QString text = dialog.findChild<QListWidget *>()->currentItem()->text();
        QVERIFY2(text.contains(QStringLiteral("cannot be read now: Input/output error")), qPrintable(text));
        QVERIFY(!buttonOf(dialog, QStringLiteral("Restore"))->isEnabled());
        QVERIFY(!buttonOf(dialog, QStringLiteral("Discard..."))->isEnabled());
    }
}

void CRecoveryTest::whatCannotBeDiscardedStays()
{
    const CFaultyFileSystem disk({"unlink", 1, EIO, true});
    SBench bench;
    bench.leave("Arena", true);
    CMessageBoxAnswerer user({QStringLiteral("Yes"), QStringLiteral("OK")});
    inOffer([](CRecoveryDialog &dialog) {
        buttonOf(dialog, QStringLiteral("Discard..."))->click();
        QCOMPARE(dialog.findChild<QListWidget *>()->count(), 1);
        dialog.reject();
    });
    bench.commands.offerAtStart();
    QCOMPARE(user.boxes().size(), 2);
    QVERIFY(user.boxes().last().details.contains(bench.journals));
}

void CRecoveryTest::anOpenProjectIsAskedFor()
{
    SBench bench;
    const QString file = bench.folder.filePath(QStringLiteral("arena.sprj"));
    QVERIFY(CProcessorProject::write(file, ProjectSamples::ofWall(CWallBuilder::Small)));
    CFileLock other(file);
    for (const char *answer : {"Read only", "Open anyway"}) {
        bench.leave("Arena", true, file);
        QCOMPARE(other.take(CFileLock::Replace), CFileLock::Taken);
        QSignalSpy opened(&bench.commands, &CRecoveryCommands::notifyOpened);
        CMessageBoxAnswerer user({QStringLiteral("Cancel"), QLatin1String(answer)});
        inOffer([](CRecoveryDialog &dialog) {
            buttonOf(dialog, QStringLiteral("Restore"))->click();
            QCOMPARE(dialog.findChild<QListWidget *>()->count(), 1);
            buttonOf(dialog, QStringLiteral("Restore"))->click();
        });
        bench.commands.offerAtStart();
        QCOMPARE(opened.count(), 1);
        const QUuid project = opened.first().first().toUuid();
        const QString readOnly = bench.manager.table().device(project)->readOnly;
        QCOMPARE(readOnly.isEmpty(), user.boxes().size() == 2 && answer[0] == 'O');
        bench.manager.projects().close(project);
    }
}

void CRecoveryTest::theCrashIsReportedInTheOffer()
{
    const auto reports = [](const QWidget &parent) {
        QStringList texts;
        for (const auto *dialog : parent.findChildren<CReportDialog *>())
            texts << dialog->findChild<QPlainTextEdit *>()->toPlainText();
        return texts;
    };
    expectWarning(QRegularExpression(QStringLiteral("has crashed before")));
    SBench bench;
    const QString folder = CCrashHandler::defaultFolder();
    QVERIFY(QDir().mkpath(folder));
    for (const bool offered : {true, false}) {
        const QString name = QStringLiteral("crash-%1-1.txt").arg(offered ? 20260102 : 20260103);
        ProjectSamples::setContent(QDir(folder).filePath(name), "signal: 11\n");
        if (offered) {
            bench.leave("Arena", true);
            inOffer([&](CRecoveryDialog &dialog) {
                buttonOf(dialog, QStringLiteral("Crash report..."))->click();
                QCOMPARE(reports(dialog).size(), 1);
                QVERIFY(CCrashHandler::latest(folder)); // until it was read
                dialog.findChild<CReportDialog *>()->reject();
                dialog.reject();
            });
            bench.commands.offerAtStart();
        }
        CHelpCommands::showCrash(bench.window);
        QCOMPARE(reports(bench.window).size(), offered ? 0 : 1); // each once
        QVERIFY(!CCrashHandler::latest(folder));
    }
    QVERIFY(reports(bench.window).first().startsWith(QStringLiteral("signal: 11\n")));
}

ORVO_TEST_MAIN(QApplication, CRecoveryTest)
#include "tst_recovery.moc"
