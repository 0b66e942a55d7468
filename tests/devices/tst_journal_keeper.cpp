// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CPortCodec.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QFileInfo>
#include <QSignalSpy>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace {

/// The same disk in several runs of the program.
struct SRuns
{
    QTemporaryDir root;
    std::unique_ptr<CDeviceFixture> run;
    QStringList told;

    SRuns() { start(); }
    QString file() const { return root.filePath(QStringLiteral("wall.sprj")); }
    /// The one before, if there is one, ends without asking.
    void start(bool detected = true)
    {
        run.reset();
        run = std::make_unique<CDeviceFixture>(detected ? 0 : 0.001, root.filePath(QStringLiteral("devices")),
                                               root.filePath(QStringLiteral("journal")));
        QObject::connect(&run->manager.keeper(), &CJournalKeeper::notifyTold,
                         [this](const QString &text) { told << text; });
    }
    CJournalKeeper &keeper() const { return run->manager.keeper(); }
    CProjectShelf &shelf() const { return run->manager.projects(); }
    QUuid savedProject() const
    {
        const QUuid project = shelf().openDemo().value();
        return shelf().save(project, file()) ? project : QUuid();
    }
    /// Edits as the editor would: hands the layout over, and tells of the step.
    void edit(const QUuid &processor, int index, int saved = -1)
    {
        SEditRecord record;
        record.processor = processor;
        record.index = index;
        record.saved = saved;
        record.step.text = QStringLiteral("Move %1").arg(index);
        SEditStep::SPort port{run->layoutOf(processor).ports.at(0), {}};
        run->edit(processor);
        port.after = run->layoutOf(processor).ports.at(0);
        record.step.ports << port;
        run->handler.recordEdit(record);
    }
    /// Undoes the only step, which led from @p before.
    void undo(const QUuid &processor, const CabinetLayout &before) const
    {
        SEditRecord record;
        record.processor = processor;
        record.kind = SEditRecord::Moved;
        record.saved = 0;
        record.step.ports << SEditStep::SPort{run->layoutOf(processor).ports.at(0), before.ports.at(0)};
        run->handler.recordEdit(record);
        LayoutData undone = run->handler.layoutData(processor);
        undone.layout = before;
        run->handler.commitLayoutData(undone);
    }
    QStringList journals() const
    {
        return QDir(root.filePath(QStringLiteral("journal")))
            .entryList({QStringLiteral("*.journal")}, QDir::Files);
    }
    SStrayJournal offer() const { return keeper().offers().value(0); }
};

/// A disk that does not open histories for a while.
class CSlowDisk final : public CFileSystem
{
public:
    CSlowDisk() { setCurrent(this); }
    ~CSlowDisk() override { setCurrent(nullptr); }

    std::atomic<bool> isSlow{true};
    std::atomic<int> begun{0}; // journals

    int open(const QByteArray &path, int flags, mode_t mode) override
    {
        if (path.endsWith(".journal~new"))
            ++begun;
        while (isSlow && path.endsWith(".history"))
            std::this_thread::yield();
        return CFileSystem::open(path, flags, mode);
    }
};

bool sameCabinets(const CabinetLayout &a, const CabinetLayout &b)
{
    return std::equal(a.ports.begin(), a.ports.end(), b.ports.begin(), b.ports.end(),
                      [](const auto &x, const auto &y) { return CPortCodec::samePort(x, y); });
}

} // namespace

/// What the host keeps of unsaved edits, and how the next run gets it back.
class CJournalKeeperTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void restoresAProject();
    void noStepOfAnotherFileCountsAsSaved();
    void restoresAProcessorOnceItIsDetected();
    void restoresOneOfTwoJournalsOfAProcessor();
    void asksBeforeItSavesRestoredEditsOverAnotherMapping();
    void keepsNothingThatIsSaved();
    void keepsWhatTheHostChanges();
    void notesALockAtOnce();
    void forgetsWhatIsSavedOrGivenUp();
    void looksWithoutChangingAnything();
    void keepsTheHistoryOfAProject();
    void offersAHistoryThatComesLate();
};

void CJournalKeeperTest::restoresAProject()
{
    CSlowDisk disk;
    disk.isSlow = false;
    SRuns runs;
    const QUuid project = runs.savedProject();
    runs.edit(project, 1);
    runs.edit(project, 2);
    runs.run->lockPort(project, 1);
    const CabinetLayout edited = runs.run->layoutOf(project);
    QVERIFY(runs.keeper().offers().isEmpty()); // this run has it
    runs.start();
    const SStrayJournal offer = runs.offer();
    QCOMPARE(offer.journal.owner.file, runs.file());
    QCOMPARE(offer.journal.state.trail().unsavedText(),
             QStringLiteral("unsaved steps: 2 and changes without a step"));
    const int begun = disk.begun;
    const CResult<QUuid> restored = runs.keeper().restore(offer);
    QVERIFY2(bool(restored), qPrintable(restored.error()));
    QTRY_VERIFY(runs.journals() != QStringList(QFileInfo(offer.path).fileName()));
    QCOMPARE(disk.begun - begun, 1); // nothing else that a kill would leave to be offered
    QVERIFY(sameCabinets(runs.run->layoutOf(restored.value()), edited));
    QVERIFY(runs.run->handler.unsavedEdits(restored.value()).any());
    QCOMPARE(runs.shelf().fileOf(restored.value()), runs.file());
    const SEditHistory history = runs.run->handler.editHistory(restored.value());
    QCOMPARE(history.steps.size(), 2);
    QCOMPARE(history.index, 2);
    QCOMPARE(history.steps.last().text, QStringLiteral("Move 2"));
    QVERIFY(!runs.keeper().restore(offer)); // is open
    runs.edit(restored.value(), 3);
    runs.start(); // ends unexpectedly again
    QCOMPARE(runs.offer().journal.state.trail().count(), 3);
    CFileLock elsewhere(runs.file());
    QCOMPARE(elsewhere.take(), CFileLock::Taken);
    const QUuid second = runs.keeper().restore(runs.offer()).value();
    QVERIFY(!runs.run->manager.table().device(second)->readOnly.isEmpty());
}

void CJournalKeeperTest::noStepOfAnotherFileCountsAsSaved()
{
    for (const bool changed : {false, true}) {
        SRuns runs;
        runs.edit(runs.savedProject(), 1, 0);
        if (changed)
            ProjectSamples::setContent(runs.file(), "of somebody else");
        runs.start();
        const CResult<QUuid> restored = runs.keeper().restore(runs.offer());
        QVERIFY(restored);
        const SEditHistory history = runs.run->handler.editHistory(restored.value());
        QCOMPARE(history.steps.size(), 1);
        QCOMPARE(history.saved, changed ? -1 : 0);
    }
}

void CJournalKeeperTest::restoresAProcessorOnceItIsDetected()
{
    SRuns runs;
    const QUuid lobby = runs.run->lobby;
    runs.edit(lobby, 1);
    const CabinetLayout edited = runs.run->layoutOf(lobby);
    runs.start(false);
    const SStrayJournal offer = runs.offer();
    const CResult<QUuid> restored = runs.keeper().restore(offer);
    QVERIFY(restored && restored.value().isNull()); // it is not known yet
    runs.run->detect();
    QTRY_VERIFY(sameCabinets(runs.run->layoutOf(lobby), edited));
    QVERIFY(runs.run->handler.unsavedEdits(lobby).any());
    QCOMPARE(runs.run->handler.editHistory(lobby).steps.size(), 1);
    QVERIFY(!runs.keeper().restore(offer)); // would replace edits
}

/// One that was not restored, and one of the run after it.
void CJournalKeeperTest::restoresOneOfTwoJournalsOfAProcessor()
{
    SRuns runs;
    const QUuid lobby = runs.run->lobby;
    runs.edit(lobby, 1);
    runs.start();
    runs.edit(lobby, 1);
    runs.edit(lobby, 2);
    const CabinetLayout later = runs.run->layoutOf(lobby);
    runs.start(false);
    QList<SStrayJournal> offers = runs.keeper().offers();
    QCOMPARE(offers.size(), 2);
    QVERIFY(runs.keeper().restore(offers.at(0)));
    QVERIFY(!runs.keeper().restore(offers.at(1)));
    runs.run->detect();
    QTRY_VERIFY(sameCabinets(runs.run->layoutOf(lobby), later));
    offers.clear(); // unlocks them
    QCOMPARE(runs.keeper().offers().size(), 1);
}

void CJournalKeeperTest::asksBeforeItSavesRestoredEditsOverAnotherMapping()
{
    for (const bool changed : {false, true}) {
        SRuns runs;
        const QUuid lobby = runs.run->lobby;
        runs.edit(lobby, 1);
        QVERIFY(runs.run->save(lobby).isDone());
        runs.edit(lobby, 2, 1);
        runs.start();
        if (changed) { // by somebody else
            runs.run->edit(lobby, 1);
            QVERIFY(runs.run->save(lobby).isDone());
        }
        QVERIFY(runs.keeper().restore(runs.offer()));
        QCOMPARE(runs.run->handler.editHistory(lobby).saved, changed ? -1 : 1);
        runs.start(); // and ends unexpectedly again
        QVERIFY(runs.keeper().restore(runs.offer()));
        int questions = 0;
        runs.run->manager.jobs().setConfirm([&](const QString &) { return ++questions == 0; });
        QCOMPARE(runs.run->save(lobby).isDone(), !changed);
        QCOMPARE(questions, changed ? 1 : 0);
    }
}

void CJournalKeeperTest::keepsNothingThatIsSaved()
{
    SRuns runs;
    const QUuid project = runs.savedProject();
    const QUuid lobby = runs.run->lobby;
    runs.run->manager.table().change(lobby, [](SDevice &device) { device.settings.frameRate += 1; });
    (void)runs.run->handler.editHistory(lobby); // for which the change is noted
    QVERIFY(runs.journals().isEmpty());         // the processor has it
    for (const QUuid &processor : {project, lobby}) {
        const CabinetLayout before = runs.run->layoutOf(processor);
        runs.edit(processor, 1);
        QCOMPARE(runs.journals().size(), 1);
        runs.undo(processor, before);
        QVERIFY(runs.journals().isEmpty());
    }
    runs.start();
    QVERIFY(runs.keeper().offers().isEmpty());
    const QUuid opened = runs.shelf().open(runs.file()).value();
    const SEditHistory history = runs.run->handler.editHistory(opened);
    QCOMPARE(history.steps.size(), 1); // can be done again
    QCOMPARE(history.index, 0);
}

void CJournalKeeperTest::keepsWhatTheHostChanges()
{
    SRuns runs;
    runs.edit(runs.run->left, 1);
    QVERIFY(runs.run->handler.copyProcessorMapping(runs.run->left, runs.run->right, true));
    const CabinetLayout copied = runs.run->layoutOf(runs.run->right);
    runs.run->save(runs.run->left);
    const QUuid unnamed = runs.shelf().openDemo().value();
    runs.run->edit(unnamed); // an edit that the editor does not tell
    const CabinetLayout edited = runs.run->layoutOf(unnamed);
    QTRY_COMPARE(runs.journals().size(), 2);
    runs.start();
    const QList<SStrayJournal> offers = runs.keeper().offers();
    QCOMPARE(offers.size(), 2);
    for (const SStrayJournal &offer : offers) {
        const bool isProject = offer.journal.owner.project;
        QVERIFY(sameCabinets(offer.journal.state.project().layout, isProject ? edited : copied));
    }
}

void CJournalKeeperTest::notesALockAtOnce()
{
    SRuns runs;
    const QUuid project = runs.savedProject();
    runs.edit(project, 1);
    const auto size = [&runs] {
        return QFileInfo(runs.root.filePath(QStringLiteral("journal/")) + runs.journals().value(0)).size();
    };
    const LayoutData data = runs.run->handler.layoutData(project);
    std::thread([&] { runs.run->handler.commitLayoutData(data); }).join(); // what was handed over late
    const qint64 before = size();
    runs.run->lockPort(project, 1);
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(PatienceMilliseconds);
    while (size() == before && std::chrono::steady_clock::now() < end) // without events
        std::this_thread::yield();
    QVERIFY(size() > before);
}

void CJournalKeeperTest::forgetsWhatIsSavedOrGivenUp()
{
    SRuns runs;
    const QUuid project = runs.savedProject();
    runs.edit(runs.run->lobby, 1);
    runs.edit(runs.run->stage, 1);
    runs.edit(project, 1);
    runs.run->save(runs.run->lobby);
    runs.shelf().close(project);
    runs.start();
    const QList<SStrayJournal> offers = runs.keeper().offers();
    QCOMPARE(offers.size(), 1);
    QCOMPARE(offers.first().journal.owner.processor, runs.run->stage);
    QVERIFY(CJournalKeeper::discard(offers.first()));
    runs.edit(runs.run->stage, 1);
    runs.keeper().finish(); // the user has been asked
    runs.start();
    QVERIFY(runs.keeper().offers().isEmpty());
}

void CJournalKeeperTest::looksWithoutChangingAnything()
{
    SRuns runs;
    runs.edit(runs.run->stage, 1);
    runs.start();
    const CResult<QUuid> copy = runs.keeper().look(runs.offer());
    QVERIFY(copy && runs.shelf().fileOf(copy.value()).isEmpty());
    runs.start();
    QCOMPARE(runs.keeper().offers().size(), 1); // and none of the copy
    const QUuid again = runs.keeper().look(runs.offer()).value();
    runs.edit(again, 1);
    runs.start();
    QCOMPARE(runs.keeper().offers().size(), 2);
    const QUuid renamed = runs.keeper().look(runs.offer()).value();
    runs.run->lockPort(renamed, 1); // not by the editor
    runs.start();
    QCOMPARE(runs.keeper().offers().size(), 3);
}

void CJournalKeeperTest::keepsTheHistoryOfAProject()
{
    SRuns runs;
    const QUuid project = runs.savedProject();
    runs.edit(project, 1);
    QVERIFY(runs.shelf().save(project, runs.file()));
    runs.start();
    const QUuid opened = runs.shelf().open(runs.file()).value();
    SEditHistory history = runs.run->handler.editHistory(opened);
    QCOMPARE(history.steps.size(), 1);
    QCOMPARE(history.index, 1);
    QCOMPARE(history.saved, 1);
    runs.start();
    QFile(runs.file()).rename(runs.file() + QStringLiteral(".old"));
    runs.savedProject(); // another wall of that name
    const QUuid another = runs.shelf().open(runs.file()).value();
    QVERIFY(runs.run->handler.editHistory(another).steps.isEmpty());
}

void CJournalKeeperTest::offersAHistoryThatComesLate()
{
    CSlowDisk disk;
    SRuns runs;
    const QUuid project = runs.savedProject();
    runs.edit(project, 1);
    QVERIFY(runs.shelf().save(project, runs.file()));
    runs.start();
    const QUuid opened = runs.shelf().open(runs.file()).value();
    const bool early = !runs.run->handler.editHistory(opened).steps.isEmpty();
    QSignalSpy found(&runs.keeper(), &CJournalKeeper::notifyHistoryFound);
    disk.isSlow = false;
    QVERIFY(!early);
    QVERIFY(found.wait(PatienceMilliseconds));
    QCOMPARE(found.first().first().toUuid(), opened);
    QCOMPARE(runs.run->handler.editHistory(opened).steps.size(), 1);
    runs.run.reset();
}

ORVO_TEST_MAIN(QCoreApplication, CJournalKeeperTest)
#include "tst_journal_keeper.moc"
