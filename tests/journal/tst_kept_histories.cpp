// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CTestBase.h"
#include "tests/journal/SJournalWorld.h"
#include "tests/projects/ProjectSamples.h"

#include <QElapsedTimer>

/// Histories of saved projects.
class CKeptHistoriesTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheHistoryOfAFile();
    void tellsWhatCannotBeRead();
    void waitsForNoHistory();
};

void CKeptHistoriesTest::keepsTheHistoryOfAFile()
{
    CRecordingEditor editor = smallEditor();
    SJournalWorld world;
    const QString file = world.root.filePath(QStringLiteral("wall.sprj"));
    SJournalOwner owner = ownerOf(editor, file);
    world.journals.begin(owner, editor.project());
    world.journals.note(editor.edit(QStringLiteral("one")));
    world.journals.note(editor.edit(QStringLiteral("two")));
    ProjectSamples::setContent(file, "saved");
    owner.stamp = SFileStamp::of(file);
    editor.save();
    world.journals.settle(owner);
    world.journals.sync();
    QVERIFY(world.strays().isEmpty()); // only the history is left
    const QString kept = world.folder + QLatin1Char('/') + world.files().value(0);
    QVERIFY(!(QFile::permissions(kept) & (QFile::ReadGroup | QFile::ReadOther)));
    SJournal history;
    QVERIFY(world.journals.folder().findHistory(file, history) == CJournalFolder::Kept::Same);
    CJournals next(world.folder, {});
    next.beginOpened(owner, editor.project());
    QVERIFY(sameHistory(next.history(owner.processor), editor.history()));
    SProcessorProject other = editor.project();
    other.layout.ports.clear();
    next.beginOpened(owner, other); // leads elsewhere
    QVERIFY(next.history(owner.processor).steps.isEmpty());
    next.setHistory(false, 100000);
    next.sync();
    QVERIFY(world.files().isEmpty());
    next.setHistory(true, 100000);
    next.begin(owner, editor.project());
    next.note(editor.edit(QStringLiteral("three")));
    next.settle(owner);
    next.sync();
    ProjectSamples::setContent(file, "changed");
    world.journals.beginOpened(owner, editor.project());
    QVERIFY(world.journals.history(owner.processor).steps.isEmpty());
    QCOMPARE(world.toldCount(), 1);
    QVERIFY(world.files().isEmpty());
    next.note(editor.edit(QStringLiteral("four")));
    next.settle(owner); // somebody has replaced the file since it was saved
    next.sync();
    QVERIFY(world.files().isEmpty());
}

void CKeptHistoriesTest::tellsWhatCannotBeRead()
{
    CRecordingEditor editor = smallEditor();
    SJournalWorld world;
    const QString file = world.root.filePath(QStringLiteral("wall.sprj"));
    ProjectSamples::setContent(file, "saved");
    SJournalOwner owner = ownerOf(editor, file);
    owner.stamp = SFileStamp::of(file);
    world.journals.begin(owner, editor.project());
    world.journals.note(editor.edit(QStringLiteral("one")));
    editor.save();
    world.journals.settle(owner);
    world.journals.sync();
    const QString kept = world.folder + QLatin1Char('/') + world.files().value(0);
    const QByteArray damaged = ProjectSamples::contentOf(kept).chopped(1);
    QByteArray newer = damaged;
    newer[8] = '\x7f'; // the version
    const auto open = [&](const QByteArray &history) {
        ProjectSamples::setContent(kept, history);
        world.journals.beginOpened(owner, editor.project());
        world.journals.sync();
        return world.told.value(world.toldCount() - 1);
    };
    QVERIFY(open(newer).endsWith(QStringLiteral(": they were written by a newer version of the program.")));
    QVERIFY(QFile::exists(kept));
    QVERIFY(open(damaged).endsWith(QStringLiteral(" are damaged and cannot be undone.")));
    QVERIFY(!QFile::exists(kept));
    CSwitchedDisk disk;
    disk.keepsFiles = true;
    ProjectSamples::setContent(kept, damaged);
    const int before = world.toldCount();
    for (int i = 0; i < 2; ++i) {
        world.journals.setHistory(false, 100000);
        world.journals.sync();
        QCOMPARE(world.toldCount(), before + 1);
        QVERIFY(world.told.last().contains(kept));
    }
    disk.keepsFiles = false;
    world.journals.setHistory(false, 100000);
    world.journals.sync();
    QVERIFY(!QFile::exists(kept));
    CJournals without(world.folder, [](const QString &) { throw std::bad_alloc(); });
    ProjectSamples::setContent(kept, damaged);
    without.beginOpened(owner, editor.project());
    without.sync();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(without.history(owner.processor).steps.isEmpty());
    QVERIFY(timer.elapsed() < 500); // nobody waits for what does not come
}

void CKeptHistoriesTest::waitsForNoHistory()
{
    CRecordingEditor editor = smallEditor();
    CSwitchedDisk disk;
    SJournalWorld world;
    const QString file = world.root.filePath(QStringLiteral("wall.sprj"));
    SJournalOwner owner = ownerOf(editor, file);
    const QUuid processor = owner.processor;
    world.journals.begin(owner, editor.project());
    world.journals.note(editor.edit(QStringLiteral("one")));
    ProjectSamples::setContent(file, "saved");
    owner.stamp = SFileStamp::of(file);
    editor.save();
    disk.held = ".history";
    world.journals.settle(owner);
    CRecordingEditor other = smallEditor(2);
    SJournalOwner another = ownerOf(other);
    another.processor = QUuid::createUuid();
    world.journals.begin(another, other.project());
    SEditRecord record = other.edit(QStringLiteral("other"));
    record.processor = another.processor;
    const int before = disk.syncs;
    world.journals.note(record);
    QTRY_VERIFY(disk.syncs > before); // confirmed nevertheless
    world.journals.beginOpened(owner, editor.project());
    QVERIFY(world.journals.history(processor).steps.isEmpty());
    QCOMPARE(world.arrived.load(), 0);
    disk.held = nullptr;
    QTRY_COMPARE(world.arrived.load(), 1);
    QVERIFY(world.journals.isUnedited(processor));
    QVERIFY(sameHistory(world.journals.history(processor), editor.history()));
    world.journals.note(editor.edit(QStringLiteral("two")));
    world.journals.stop();
    QList<SStrayJournal> strays = world.strays();
    QCOMPARE(strays.size(), 2);
    if (strays.first().journal.owner.processor != processor)
        strays.takeFirst();
    disk.held = ".journal~new"; // what was read is at hand at once
    CJournals next(world.folder, {});
    next.adopt(strays.first(), ownerOf(editor));
    const SEditHistory adopted = next.history(processor);
    disk.held = nullptr;
    QVERIFY(sameHistory(adopted, editor.history()));
}

ORVO_TEST_MAIN(QCoreApplication, CKeptHistoriesTest)
#include "tst_kept_histories.moc"
