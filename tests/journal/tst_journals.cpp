// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CTestBase.h"
#include "tests/journal/SJournalWorld.h"
#include "tests/projects/ProjectSamples.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QRegularExpression>

#include <sys/stat.h>

namespace {

/// A journal with a disk that can be stopped. @p local: on this machine.
struct SDiskWorld
{
    explicit SDiskWorld(bool local)
        : disk(local)
    {
        world.journals.begin(ownerOf(editor), editor.project());
    }
    void edit() { world.journals.note(editor.edit(QStringLiteral("Edit"))); }

    CSwitchedDisk disk;
    CRecordingEditor editor = smallEditor();
    SJournalWorld world;
};

} // namespace

/// Journals as files: written at once, in order and whole.
class CJournalsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsWhatWasEdited();
    void isPrivate();
    void keepsTheOrder();
    void tellsOfAFullDiskAndRecovers_data();
    void tellsOfAFullDiskAndRecovers();
    void staysSmall();
    void endsThoughTheDiskHangs();
    void noEditWaitsForAWriteThatHangs_data();
    void noEditWaitsForAWriteThatHangs();
    void writesWhileTheDiskConfirms_data();
    void writesWhileTheDiskConfirms();
};

void CJournalsTest::keepsWhatWasEdited()
{
    CRecordingEditor editor = smallEditor();
    SJournalWorld world;
    world.journals.begin(ownerOf(editor), editor.project());
    QVERIFY(world.files().isEmpty()); // nothing was edited
    for (int i = 0; i < 10; ++i)
        world.journals.note(editor.anything());
    QVERIFY(world.strays().isEmpty()); // belongs to a process that runs
    QVERIFY(sameHistory(world.journals.history(editor.project().layout.processor), editor.history()));
    SProcessorProject locked = editor.project();
    locked.layout.ports[0].locked = true;
    world.journals.note(ownerOf(editor), locked);
    world.journals.stop();
    QCOMPARE(world.strays().size(), 1);
    QVERIFY(world.strays().first().journal.state.project() == locked);
}

void CJournalsTest::isPrivate()
{
    CRecordingEditor editor = smallEditor();
    SJournalWorld world;
    world.journals.begin(ownerOf(editor), editor.project());
    world.journals.note(editor.edit(QStringLiteral("Edit")));
    struct stat status = {};
    QCOMPARE(stat(QFile::encodeName(world.folder).constData(), &status), 0);
    QCOMPARE(int(status.st_mode & 0777), 0700);
    const QString file = world.folder + QLatin1Char('/') + world.files().value(0);
    QCOMPARE(stat(QFile::encodeName(file).constData(), &status), 0);
    QCOMPARE(int(status.st_mode & 0777), 0600);
    world.journals.drop(editor.project().layout.processor);
    QVERIFY(world.files().isEmpty());
}

void CJournalsTest::keepsTheOrder()
{
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Full), 2);
    QVERIFY(editor.project().layout.cabinetCount() > 10000);
    SJournalWorld world;
    world.journals.begin(ownerOf(editor), editor.project());
    for (int i = 0; i < 3; ++i) {
        world.journals.note(editor.nudgeAll()); // by the thread
        world.journals.note(editor.edit(QStringLiteral("small")));
    }
    world.journals.stop();
    QVERIFY(offers(world.strays(), editor));
}

void CJournalsTest::tellsOfAFullDiskAndRecovers_data()
{
    QTest::addColumn<int>("fault");
    QTest::addRow("write") << 0;
    QTest::addRow("sync") << 1;
    QTest::addRow("memory") << 2;
}

void CJournalsTest::tellsOfAFullDiskAndRecovers()
{
    QFETCH(const int, fault);
    CRecordingEditor editor = smallEditor();
    CSwitchedDisk disk;
    std::atomic<bool> &failing = fault == 0 ? disk.full : fault == 1 ? disk.refusesSync : disk.hasNoMemory;
    SJournalWorld world;
    world.journals.begin(ownerOf(editor), editor.project());
    world.journals.note(editor.edit(QStringLiteral("before")));
    SJournalOwner other = ownerOf(editor);
    SProcessorProject another = editor.project();
    other.processor = QUuid::createUuid();
    world.journals.begin(other, another);
    failing = true;
    for (int i = 0; i < 3; ++i)
        world.journals.note(editor.edit(QStringLiteral("lost")));
    QTRY_COMPARE(world.toldCount(), 1);
    another.canvas += QSize(1, 1);
    world.journals.note(other, another); // is not told, too
    world.journals.drop(other.processor);
    QVERIFY(world.told.first().contains(editor.project().name));
    for (int i = 0; i < 3; ++i)
        world.journals.note(editor.edit(QStringLiteral("lost")));
    QCOMPARE(world.toldCount(), 1);
    failing = false;
    QTRY_COMPARE(world.toldCount(), 2); // a new file holds what was lost
    world.journals.note(editor.edit(QStringLiteral("after")));
    world.journals.stop();
    QCOMPARE(world.toldCount(), 2);
    QVERIFY(offers(world.strays(), editor));
}

void CJournalsTest::staysSmall()
{
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Medium), 1);
    SJournalWorld world;
    const SJournalOwner owner = ownerOf(editor);
    SProcessorProject empty = editor.project();
    for (auto &port : empty.layout.ports)
        port.groups.clear();
    world.journals.begin(owner, editor.project());
    world.journals.note(owner, empty);
    const QString file = world.folder + QLatin1Char('/') + world.files().value(0);
    qint64 largest = 0;
    for (qint64 size = 0; size >= largest && size < 8 * 1024 * 1024; size = QFileInfo(file).size()) {
        largest = size; // it is smaller once it was replaced
        world.journals.note(owner, editor.project());
        world.journals.note(owner, empty);
    }
    QTRY_VERIFY(QFileInfo(file).size() < 1024 * 1024);
    world.journals.note(editor.edit(QStringLiteral("last")));
    world.journals.note(owner, editor.project());
    world.journals.stop();
    QVERIFY(offers(world.strays(), editor));
    QCOMPARE(world.files().size(), 1);
}

void CJournalsTest::endsThoughTheDiskHangs()
{
    CSwitchedDisk disk;
    CRecordingEditor editor = smallEditor();
    const QTemporaryDir folder;
    const auto journals = std::make_shared<CJournals>(folder.path(), CJournals::Tell());
    journals->begin(ownerOf(editor), editor.project());
    journals->sync();
    std::unique_lock<std::mutex> hangs(disk.syncGate);
    journals->note(editor.edit(QStringLiteral("Edit")));
    expectWarning(QRegularExpression(QStringLiteral("The disk does not answer")));
    CJournals::stop(journals, std::chrono::milliseconds(0));
    hangs.unlock();
    QTRY_VERIFY(offers(CJournalFolder(folder.path()).strays(), editor)); // the thread lets go of the file
}

void CJournalsTest::noEditWaitsForAWriteThatHangs_data()
{
    QTest::addColumn<bool>("local");
    QTest::addRow("of another machine") << false;
    QTest::addRow("of a disk that does not answer") << true;
}

void CJournalsTest::noEditWaitsForAWriteThatHangs()
{
    QFETCH(const bool, local);
    SDiskWorld on(local);
    std::unique_lock<std::mutex> confirms(on.disk.syncGate);
    on.edit();
    const int before = on.disk.syncs;
    QElapsedTimer timer;
    QTRY_VERIFY(!local || on.disk.syncs > before);
    timer.start();
    QTRY_VERIFY(!local || timer.elapsed() > 300);
    on.disk.hangs = true;
    timer.start();
    for (int i = 0; i < 20; ++i) { // only the first one waits, and not for long
        on.edit();
        QVERIFY(on.world.journals.history(on.editor.project().layout.processor).steps.isEmpty());
    }
    QVERIFY(timer.elapsed() < 4000);
    on.disk.hangs = false;
    confirms.unlock();
    QTRY_COMPARE(int(on.world.arrived), 1); // the history that was asked for
    on.world.journals.stop();
    QVERIFY(offers(on.world.strays(), on.editor));
}

void CJournalsTest::writesWhileTheDiskConfirms_data()
{
    noEditWaitsForAWriteThatHangs_data();
}

void CJournalsTest::writesWhileTheDiskConfirms()
{
    QFETCH(const bool, local);
    SDiskWorld on(local);
    on.edit();
    std::unique_lock<std::mutex> confirms(on.disk.syncGate);
    on.edit();
    const int before = on.disk.syncs;
    QTRY_VERIFY(on.disk.syncs > before);
    const QString file = on.world.folder + QLatin1Char('/') + on.world.files().value(0);
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 400) {
        const qint64 size = QFileInfo(file).size();
        on.edit();
        QVERIFY(QFileInfo(file).size() > size);
    }
    confirms.unlock();
    on.world.journals.stop();
    QVERIFY(offers(on.world.strays(), on.editor));
}

ORVO_TEST_MAIN(QCoreApplication, CJournalsTest)
#include "tst_journals.moc"
