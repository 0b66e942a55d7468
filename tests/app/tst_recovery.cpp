// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CRecoveryCommands.h"
#include "host/app/CRecoveryDialog.h"
#include "host/app/start/CAppSettings.h"
#include "host/devices/CDeviceManager.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"
#include "tests/projects/ProjectSamples.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

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
    void leave(const char *name, bool project) const
    {
        SProcessorProject state = ProjectSamples::ofWall(CWallBuilder::Small);
        state.layout.processor = QUuid::createUuidV5(QUuid(), QLatin1String(name));
        state.name = QLatin1String(name);
        SJournalOwner owner;
        owner.processor = state.layout.processor;
        owner.name = state.name;
        owner.project = project;
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
    inOffer([](CRecoveryDialog &dialog) { buttonOf(dialog, QStringLiteral("Look at it first"))->click(); });
    bench.commands.offerAtStart();
    QCOMPARE(opened.count(), 1);
    QCOMPARE(bench.manager.keeper().offers().size(), 1);
}

void CRecoveryTest::whatCannotBeReadIsTold()
{
    SBench bench;
    bench.leave("Arena", true);
    ProjectSamples::setContent(bench.journals + QStringLiteral("/x.journal"),
                               QByteArray("ORVOJRNL\x02\x00\x00\x00", 12));
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

ORVO_TEST_MAIN(QApplication, CRecoveryTest)
#include "tst_recovery.moc"
