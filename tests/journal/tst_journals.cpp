// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournals.h"
#include "tests/harness/CTestBase.h"
#include "tests/journal/CRecordingEditor.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <atomic>
#include <cerrno>
#include <new>
#include <sys/stat.h>
#include <thread>

namespace {

/// A disk that fills up, in the middle of a write, and gets room again.
class CSwitchedDisk final : public CFileSystem
{
public:
    CSwitchedDisk() { setCurrent(this); }
    ~CSwitchedDisk() override { setCurrent(nullptr); }

    std::atomic<bool> full{false};
    std::atomic<bool> refusesSync{false};
    std::atomic<bool> hasNoMemory{false};
    std::atomic<int> syncs{0};
    /// Files whose names contain this are not opened before it is null.
    std::atomic<const char *> held{nullptr};

    int open(const QByteArray &path, int flags, mode_t mode) override
    {
        for (const char *name = held; name && path.contains(name); name = held)
            std::this_thread::yield();
        return CFileSystem::open(path, flags, mode);
    }
    qint64 write(int file, const char *data, qint64 size) override
    {
        if (hasNoMemory)
            throw std::bad_alloc();
        if (!full)
            return CFileSystem::write(file, data, size);
        if (size > 1)
            return CFileSystem::write(file, data, size / 2);
        errno = ENOSPC;
        return -1;
    }
    std::mutex syncGate; // who has it makes the disk hang
    std::mutex renameGate;
    std::atomic<int> renames{0}; // begun

    int rename(const QByteArray &from, const QByteArray &to) override
    {
        ++renames;
        const std::lock_guard<std::mutex> gate(renameGate);
        return CFileSystem::rename(from, to);
    }
    int sync(int file) override
    {
        ++syncs;
        const std::lock_guard<std::mutex> gate(syncGate);
        if (!refusesSync)
            return CFileSystem::sync(file);
        errno = EIO;
        return -1;
    }
};

/// A folder with journals, and what they told.
struct SWorld
{
    QTemporaryDir root;
    QString folder = root.filePath(QStringLiteral("state/journal"));
    std::mutex mutex;
    QStringList told;
    std::atomic<int> arrived{0};
    CJournals journals{folder,
                       [this](const QString &text) {
                           const std::lock_guard<std::mutex> lock(mutex);
                           told << text;
                       },
                       [this](const QUuid &) { ++arrived; }};

    int toldCount()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return told.size();
    }
    QStringList files() const { return QDir(folder).entryList(QDir::Files); }
    QList<SStrayJournal> strays() const { return CJournalFolder(folder).strays(); }
};

SJournalOwner ownerOf(const CRecordingEditor &editor, const QString &file = {})
{
    SJournalOwner owner;
    owner.processor = editor.project().layout.processor;
    owner.project = true;
    owner.name = editor.project().name;
    owner.file = file;
    return owner;
}

bool offers(const QList<SStrayJournal> &strays, const CRecordingEditor &editor)
{
    return strays.size() == 1 && strays.first().journal.problem == SJournal::None &&
           strays.first().journal.state.project() == editor.project() &&
           sameHistory(strays.first().journal.state.history(), editor.history());
}

CRecordingEditor smallEditor(quint32 seed = 1)
{
    return {ProjectSamples::ofWall(CWallBuilder::Small), seed};
}

} // namespace

/// Journals as files: written at once, in order, whole, and by nobody else.
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
    void goesOnWithAnotherRunsJournal();
    void offersAStoryOnce();
    void noEditIsLeftInTheQueue();
    void endsThoughTheDiskHangs();
    void noEditWaitsForARename();
    void keepsTheHistoryOfAFile();
    void waitsForNoHistory();
    void leavesOthersAlone();
    void forgetsWhatWasSavedOnceTheFileHasChanged();
    void sharesNoFile();
    void keepsAnotherRunsFileUntilItsOwnIsGood();
};

void CJournalsTest::keepsWhatWasEdited()
{
    CRecordingEditor editor = smallEditor();
    SWorld world;
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
    SWorld world;
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
    SWorld world;
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
    SWorld world;
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
    SWorld world;
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

void CJournalsTest::goesOnWithAnotherRunsJournal()
{
    CRecordingEditor editor = smallEditor();
    SWorld first;
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

void CJournalsTest::offersAStoryOnce()
{
    CRecordingEditor editor = smallEditor();
    SWorld first;
    first.journals.begin(ownerOf(editor), editor.project());
    first.journals.note(editor.edit(QStringLiteral("Edit")));
    first.journals.stop();
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
    CJournalFolder::remove(first.strays().value(0));
    QVERIFY(first.files().isEmpty());
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

void CJournalsTest::noEditWaitsForARename()
{
    CSwitchedDisk disk;
    CRecordingEditor editor = smallEditor();
    SWorld world;
    world.journals.begin(ownerOf(editor), editor.project());
    world.journals.note(editor.edit(QStringLiteral("Edit")));
    disk.full = true;
    world.journals.note(editor.edit(QStringLiteral("not kept")));
    std::unique_lock<std::mutex> hangs(disk.renameGate);
    const int before = disk.renames;
    disk.full = false;
    QTRY_VERIFY(disk.renames > before); // by the thread, which has begun a new file
    world.journals.note(editor.edit(QStringLiteral("meanwhile")));
    hangs.unlock();
    world.journals.stop();
    QVERIFY(offers(world.strays(), editor));
}

void CJournalsTest::keepsTheHistoryOfAFile()
{
    CRecordingEditor editor = smallEditor();
    SWorld world;
    const QString file = world.root.filePath(QStringLiteral("wall.sprj"));
    const SJournalOwner owner = ownerOf(editor, file);
    world.journals.begin(owner, editor.project());
    world.journals.note(editor.edit(QStringLiteral("one")));
    world.journals.note(editor.edit(QStringLiteral("two")));
    ProjectSamples::setContent(file, "saved");
    editor.save();
    world.journals.settle(owner);
    world.journals.sync();
    QVERIFY(world.strays().isEmpty()); // only the history is left
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
}

void CJournalsTest::waitsForNoHistory()
{
    CRecordingEditor editor = smallEditor();
    CSwitchedDisk disk;
    SWorld world;
    const QString file = world.root.filePath(QStringLiteral("wall.sprj"));
    const SJournalOwner owner = ownerOf(editor, file);
    const QUuid processor = owner.processor;
    world.journals.begin(owner, editor.project());
    world.journals.note(editor.edit(QStringLiteral("one")));
    ProjectSamples::setContent(file, "saved");
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

void CJournalsTest::noEditIsLeftInTheQueue()
{
    CSwitchedDisk disk;
    CRecordingEditor editor = smallEditor();
    SWorld first;
    first.journals.begin(ownerOf(editor), editor.project());
    first.journals.note(editor.edit(QStringLiteral("Edit")));
    first.journals.stop();
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

void CJournalsTest::leavesOthersAlone()
{
    CRecordingEditor editor = smallEditor();
    SWorld world;
    world.journals.begin(ownerOf(editor), editor.project());
    world.journals.note(editor.edit(QStringLiteral("Edit")));
    world.journals.stop();
    const QList<SStrayJournal> held = world.strays();
    QCOMPARE(held.size(), 1);
    QVERIFY(world.strays().isEmpty()); // somebody looks at it
    ProjectSamples::setContent(world.folder + QStringLiteral("/a.journal~new"), "half");
    ProjectSamples::setContent(world.folder + QStringLiteral("/b.journal"), "ORVOJRNL\x04");
    QCOMPARE(world.strays().size(), 1);
    QVERIFY(!world.strays().first().journal.isUsable());
    QVERIFY(!world.files().contains(QStringLiteral("a.journal~new")));
}

void CJournalsTest::forgetsWhatWasSavedOnceTheFileHasChanged()
{
    for (const bool changed : {false, true}) {
        CRecordingEditor editor = smallEditor();
        SWorld first;
        const QString file = first.root.filePath(QStringLiteral("wall.sprj"));
        ProjectSamples::setContent(file, "saved");
        SJournalOwner owner = ownerOf(editor, file);
        owner.stamp = SFileStamp::of(file);
        first.journals.begin(owner, editor.project());
        first.journals.note(editor.edit(QStringLiteral("one")));
        editor.save();
        first.journals.note(editor.edit(QStringLiteral("two")));
        first.journals.stop();
        if (changed)
            ProjectSamples::setContent(file, "changed elsewhere");
        CJournals next(first.folder, {});
        const SStrayJournal stray = first.strays().value(0);
        next.adopt(stray, stray.journal.owner);
        const SEditHistory history = next.history(owner.processor);
        QCOMPARE(history.steps.size(), 2);
        QCOMPARE(history.saved, changed ? -1 : 1);
    }
}

void CJournalsTest::sharesNoFile()
{
    CRecordingEditor editor = smallEditor();
    const CRecordingEditor untouched = editor;
    SWorld first;
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
    CJournalFolder::remove(renamed);
    QCOMPARE(first.files().size(), 4);
    QFile::remove(renamed.path);
    renamed.lock.reset();
    third.drop(later.project().layout.processor);
    QCOMPARE(first.files().size(), 2);
    second.stop();
    QCOMPARE(first.strays().size(), 2);
}

void CJournalsTest::keepsAnotherRunsFileUntilItsOwnIsGood()
{
    CRecordingEditor editor = smallEditor();
    CSwitchedDisk disk;
    SWorld first;
    first.journals.begin(ownerOf(editor), editor.project());
    first.journals.note(editor.edit(QStringLiteral("Edit")));
    first.journals.stop();
    const QString old = first.files().value(0);
    CJournals next(first.folder, {});
    disk.full = true;
    next.adopt(first.strays().value(0), ownerOf(editor));
    QVERIFY(sameHistory(next.history(editor.project().layout.processor), editor.history()));
    QVERIFY(first.files().contains(old));
    disk.full = false;
    QTRY_VERIFY(!first.files().contains(old));
    next.stop();
    QVERIFY(offers(first.strays(), editor));
}

ORVO_TEST_MAIN(QCoreApplication, CJournalsTest)
#include "tst_journals.moc"
