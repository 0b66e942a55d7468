// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CTestBase.h"
#include "tests/journal/SJournalWorld.h"
#include "tests/projects/ProjectSamples.h"

#include <thread>

/// Journals of other runs: gone on with once, and else left alone.
class CStrayJournalsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void goesOnWithAnotherRunsJournal();
    void offersAStoryOnce();
    void noEditIsLeftInTheQueue();
    void leavesOthersAlone();
    void sharesNoFile();
    void keepsAnotherRunsFileUntilItsOwnIsGood();
};

void CStrayJournalsTest::goesOnWithAnotherRunsJournal()
{
    CRecordingEditor editor = smallEditor();
    SJournalWorld first;
    first.journals.begin(ownerOf(editor), editor.project());
    for (int i = 0; i < 5; ++i)
        first.journals.note(editor.edit(QStringLiteral("Edit")));
    first.journals.note(editor.undo());
    first.journals.stop();
    for (const bool same : {true, false}) { // with the same key, and with another one
        CJournals next(first.folder, {});
        SJournalOwner owner = ownerOf(editor);
        owner.processor = same ? owner.processor : QUuid::createUuid();
        next.adopt(first.strays().value(0), owner);
        QVERIFY(sameHistory(next.history(owner.processor), editor.history()));
        SEditRecord record = editor.edit(QStringLiteral("more"));
        record.processor = owner.processor;
        next.note(record);
        next.stop();
        QVERIFY(offers(first.strays(), editor));
        QCOMPARE(first.files().size(), 1);
    }
}

void CStrayJournalsTest::offersAStoryOnce()
{
    CRecordingEditor editor = smallEditor();
    SJournalWorld first;
    first.editOnceAndEnd(editor);
    const QString old = first.folder + QLatin1Char('/') + first.files().value(0);
    const QByteArray content = ProjectSamples::contentOf(old);
    CJournals next(first.folder, {});
    next.adopt(first.strays().value(0), ownerOf(editor));
    next.note(editor.edit(QStringLiteral("more")));
    next.sync();
    const QString last = first.folder + QLatin1Char('/') + first.files().value(0);
    ProjectSamples::setContent(old, content); // as if a kill had come before it was removed
    QVERIFY(last != old && first.strays().isEmpty());
    next.stop();
    QCOMPARE(first.strays().size(), 1);
    QVERIFY(offers(first.strays(), editor));

    const QByteArray whole = ProjectSamples::contentOf(last);
    const QByteArray damaged = whole.left(100);
    ProjectSamples::setContent(last, damaged);
    {
        const QList<SStrayJournal> both = first.strays();
        QCOMPARE(both.size(), 2); // the old one is better than none
        CJournals after(first.folder, {});
        after.adopt(both.at(both.first().journal.isUsable() ? 0 : 1), ownerOf(editor));
        after.stop();
        QCOMPARE(ProjectSamples::contentOf(last), damaged); // a newer version of the program may read it
        for (const QString &name : first.files()) {
            if (!last.endsWith(name))
                QVERIFY(QFile::remove(first.folder + QLatin1Char('/') + name));
        }
    }
    ProjectSamples::setContent(old, content);
    ProjectSamples::setContent(last, whole);
    const QString moved = first.folder + QStringLiteral(".moved");
    {
        const SStrayJournal stray = first.strays().value(0);
        QVERIFY(QDir().rename(first.folder, moved));
        QVERIFY(QFile::link(first.folder, first.folder)); // leads nowhere
        QVERIFY(!CJournalFolder::remove(stray));          // it may still be there
    }
    QVERIFY(QFile::remove(first.folder) && QDir().rename(moved, first.folder));
    QVERIFY(CJournalFolder::remove(first.strays().value(0)));
    QVERIFY(first.files().isEmpty());
}

void CStrayJournalsTest::noEditIsLeftInTheQueue()
{
    CSwitchedDisk disk;
    CRecordingEditor editor = smallEditor();
    SJournalWorld first;
    first.editOnceAndEnd(editor);
    CJournals next(first.folder, {});
    next.sync();
    disk.held = ".journal~new"; // the file of what is restored
    next.adopt(first.strays().value(0), ownerOf(editor));
    std::thread release([&disk] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        disk.held = nullptr;
    });
    next.note(editor.edit(QStringLiteral("more")));
    const QStringList written = first.files().filter(QStringLiteral("+1.journal"));
    release.join();
    QCOMPARE(written.size(), 1);
}

void CStrayJournalsTest::leavesOthersAlone()
{
    CRecordingEditor editor = smallEditor();
    SJournalWorld world;
    world.editOnceAndEnd(editor);
    const QList<SStrayJournal> held = world.strays();
    QCOMPARE(held.size(), 1);
    QVERIFY(world.strays().isEmpty()); // somebody looks at it
    ProjectSamples::setContent(world.folder + QStringLiteral("/a.journal~new"), "half");
    ProjectSamples::setContent(world.folder + QStringLiteral("/b.journal"), "ORVOJRNL\x04");
    QCOMPARE(world.strays().size(), 1);
    QVERIFY(!world.strays().first().journal.isUsable());
    QVERIFY(!world.files().contains(QStringLiteral("a.journal~new")));
}

void CStrayJournalsTest::sharesNoFile()
{
    CRecordingEditor editor = smallEditor();
    const CRecordingEditor untouched = editor;
    SJournalWorld first;
    first.journals.begin(ownerOf(editor), editor.project());
    first.journals.note(editor.edit(QStringLiteral("crashed")));
    first.journals.stop();
    CRecordingEditor later = untouched;
    CJournals second(first.folder, {}); // the user will decide later
    CJournals third(first.folder, {});
    for (CJournals *journals : {&second, &third}) {
        journals->begin(ownerOf(later), later.project());
        journals->note(later.edit(QStringLiteral("of another run")));
    }
    QVERIFY(offers(first.strays(), editor));
    SStrayJournal renamed = first.strays().value(0);
    renamed.path += QStringLiteral(".old");
    ProjectSamples::setContent(renamed.path, "of somebody else");
    QVERIFY(CJournalFolder::remove(renamed));
    QCOMPARE(first.files().size(), 4);
    QFile::remove(renamed.path);
    renamed.lock.reset();
    third.drop(later.project().layout.processor);
    QCOMPARE(first.files().size(), 2);
    second.stop();
    QCOMPARE(first.strays().size(), 2);
}

void CStrayJournalsTest::keepsAnotherRunsFileUntilItsOwnIsGood()
{
    CRecordingEditor editor = smallEditor();
    CSwitchedDisk disk;
    SJournalWorld first;
    first.editOnceAndEnd(editor);
    const QString old = first.files().value(0);
    CJournals next(first.folder, {});
    disk.full = true;
    next.adopt(first.strays().value(0), ownerOf(editor));
    QVERIFY(sameHistory(next.history(editor.project().layout.processor), editor.history()));
    QVERIFY(first.files().contains(old));
    disk.full = false;
    disk.keepsFiles = true;
    const int before = disk.syncs;
    QTRY_VERIFY(disk.syncs > before && first.files().size() == 2);
    next.sync();
    disk.keepsFiles = false;
    QTRY_VERIFY(!first.files().contains(old)); // without another edit
    next.stop();
    QVERIFY(offers(first.strays(), editor));
}

ORVO_TEST_MAIN(QCoreApplication, CStrayJournalsTest)
#include "tst_stray_journals.moc"
