// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CByteWriter.h"
#include "host/journal/CStateCodec.h"
#include "host/journal/SJournal.h"
#include "tests/harness/CTestBase.h"
#include "tests/journal/CRecordingEditor.h"
#include "tests/projects/ProjectSamples.h"

namespace {

/// The bytes of a journal, and where its entries end.
struct SWritten
{
    QByteArray bytes;
    quint64 last = 0;
    QVector<int> ends;

    SWritten(const CRecordingEditor &editor, CJournalState &state)
    {
        SJournalOwner owner;
        owner.processor = editor.project().layout.processor;
        owner.name = QStringLiteral("Wall");
        state = CJournalState(editor.project());
        bytes = SJournal::write(owner, state, last);
        ends << bytes.size();
    }
    void append(int entry, const QByteArray &content)
    {
        bytes += SJournal::append(entry, content, last);
        ends << bytes.size();
    }
};

bool restores(const QByteArray &bytes, const CRecordingEditor &editor)
{
    const SJournal journal = SJournal::read(bytes);
    return journal.problem == SJournal::None && journal.state.project() == editor.project() &&
           sameHistory(journal.state.history(), editor.history());
}

} // namespace

/// Journals as bytes: what was noted comes back, whatever happened to the file.
class CJournalCodecTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void restoresLayoutAndHistory_data();
    void restoresLayoutAndHistory();
    void restoresStatesOfTheHost();
    void knowsWhatTheEditsAreBasedOn();
    void tornTailLosesTheLastEntryOnly();
    void damageIsNoticed();
    void hostileEntriesAreBounded();
    void oldestStepsGoFirst();
    void aStepTakesWhatItChangesOnly();
    void countsWithAnEditorThatForgot();
    void saysWhatIsUnsaved();
};

void CJournalCodecTest::saysWhatIsUnsaved()
{
    CJournalState state;
    const auto after = [&state](SEditRecord::Kind kind, int index, int saved) {
        SJournalStep step;
        step.kind = kind;
        step.index = index;
        step.saved = saved;
        state.trail().note(step, {});
        quint64 last = 0; // as the next start reads it
        return SJournal::read(SJournal::write({}, state, last)).state.trail().unsavedText();
    };
    QCOMPARE(after(SEditRecord::Done, 1, 0), QStringLiteral("unsaved steps: 1"));
    QCOMPARE(after(SEditRecord::Moved, 0, 1), QStringLiteral("saved steps undone: 1"));
    QCOMPARE(after(SEditRecord::Moved, 0, -1), QStringLiteral("with unsaved changes"));
    state.trail().setOther(true);
    QCOMPARE(after(SEditRecord::Done, 1, 0), QStringLiteral("unsaved steps: 1 and changes without a step"));
    QCOMPARE(after(SEditRecord::Cleared, 0, 0), QStringLiteral("with unsaved changes"));
    state.trail().setSaved();
    QCOMPARE(after(SEditRecord::Done, 1, 0), QStringLiteral("unsaved steps: 1"));
}

void CJournalCodecTest::restoresLayoutAndHistory_data()
{
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 12; ++seed)
        QTest::addRow("%d", seed) << seed;
}

void CJournalCodecTest::restoresLayoutAndHistory()
{
    QFETCH(const int, seed);
    CRecordingEditor editor(seed % 2 ? ProjectSamples::withEverything()
                                     : ProjectSamples::ofWall(CWallBuilder::Small),
                            quint32(seed));
    CJournalState state;
    SWritten written(editor, state);
    for (int i = 0; i < 60; ++i) {
        const SEditRecord record = editor.anything();
        written.append(CJournalState::Step, state.note(record, i));
        QVERIFY2(sameHistory(state.history(), editor.history()), qPrintable(record.step.text));
    }
    QVERIFY(restores(written.bytes, editor));
    quint64 last = 0; // from a snapshot, too
    QVERIFY(restores(SJournal::write({}, state, last), editor));
}

void CJournalCodecTest::restoresStatesOfTheHost()
{
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Medium), 1);
    CJournalState state;
    SWritten written(editor, state);
    SProcessorProject project = editor.project();
    project.canvas = {4000, 3000};
    project.background.file = QStringLiteral("wall.png");
    project.print.venue = QStringLiteral("Hall");
    project.layout.ports.removeLast();
    project.layout.ports[0].locked = !project.layout.ports[0].locked;
    project.layout.ports[0].color = QColor(1, 2, 3);
    project.layout.ports.last().groups.clear();
    project.layout.ports.last().mirrored = editor.project().layout.ports[0].getAllCabinets();
    for (auto &cabinet : project.layout.ports.last().mirrored)
        cabinet.mappingIndex = -1;
    written.append(CJournalState::State, state.note(project, 7));
    const SJournal journal = SJournal::read(written.bytes);
    QCOMPARE(journal.problem, SJournal::None);
    QCOMPARE(journal.state.changed(), qint64(7));
    QVERIFY(journal.state.project() == project);
    QVERIFY(CStateCodec::sameState(journal.state.project(), project));
    project.layout.ports[0].locked = !project.layout.ports[0].locked;
    QVERIFY(!CStateCodec::sameState(journal.state.project(), project));
}

void CJournalCodecTest::knowsWhatTheEditsAreBasedOn()
{
    SJournalOwner owner;
    owner.name = QStringLiteral("Lobby");
    quint64 last = 0;
    QByteArray old = SJournal::write(owner, CJournalState(ProjectSamples::withEverything()), last);
    old[8] = 1; // as older programs wrote them
    QCOMPARE(SJournal::read(old).problem, SJournal::None);
    QVERIFY(SJournal::read(old).owner == owner && !owner.revision);
    for (const quint64 revision : {3ULL, 4ULL}) { // of what was read over the edits, say
        owner.revision = revision;
        CByteWriter out;
        owner.write(out);
        old += SJournal::append(CJournalState::Owner, out.bytes(), last);
        QVERIFY(SJournal::read(old).owner == owner);
    }
    QCOMPARE(SJournal::read(old).problem, SJournal::None);
}

void CJournalCodecTest::tornTailLosesTheLastEntryOnly()
{
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Small), 5);
    CJournalState state;
    SWritten written(editor, state);
    QVector<SProcessorProject> states{editor.project()};
    for (int i = 0; i < 5; ++i) {
        written.append(CJournalState::Step, state.note(editor.edit(QStringLiteral("Edit")), 0));
        states << editor.project();
    }
    const int whole = written.ends.first();
    for (int size = 0; size < written.bytes.size(); ++size) {
        if (size < whole && size % 97)
            continue;
        const SJournal journal = SJournal::read(written.bytes.left(size));
        QCOMPARE(journal.isUsable(), size >= whole);
        if (size < whole)
            continue;
        const int entries =
            int(std::upper_bound(written.ends.begin(), written.ends.end(), size) - written.ends.begin() - 1);
        const bool torn = size != written.ends.at(entries);
        QCOMPARE(journal.problem, torn ? SJournal::Torn : SJournal::None);
        QCOMPARE(journal.problemText().isEmpty(), !torn);
        QVERIFY(journal.state.project() == states.at(entries));
        QCOMPARE(journal.state.history().index, entries);
    }
}

void CJournalCodecTest::damageIsNoticed()
{
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Small), 6);
    CJournalState state;
    SWritten written(editor, state);
    QVector<SProcessorProject> states{editor.project()};
    for (int i = 0; i < 3; ++i) {
        written.append(CJournalState::Step, state.note(editor.edit(QStringLiteral("Edit")), 0));
        states << editor.project();
    }
    for (int at = 0; at < written.bytes.size(); at += at < written.ends.first() - 20 ? 61 : 1) {
        QByteArray damaged = written.bytes;
        damaged[at] = char(damaged[at] ^ (1 << (at % 8)));
        const SJournal journal = SJournal::read(damaged);
        QVERIFY(journal.problem != SJournal::None);
        const int before =
            int(std::upper_bound(written.ends.begin(), written.ends.end(), at) - written.ends.begin() - 1);
        QCOMPARE(journal.isUsable(), before >= 0);
        if (before >= 0)
            QVERIFY(journal.state.project() == states.at(before));
    }
    QByteArray newer = written.bytes;
    newer[8] = 4;
    QCOMPARE(SJournal::read(newer).problem, SJournal::Newer);
}

void CJournalCodecTest::hostileEntriesAreBounded()
{
    CRecordingEditor editor(ProjectSamples::withEverything(), 7);
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        CJournalState state;
        SWritten written(editor, state);
        quint64 last = 0;
        QByteArray bytes = written.bytes;
        for (int i = 0; i < 2; ++i) {
            QByteArray content = state.note(editor.anything(), 0);
            for (int flips = int(random() % 4); flips > 0; --flips)
                content[int(random() % quint32(content.size()))] = char(random());
            bytes += SJournal::append(CJournalState::Step, content, i ? last : (last = written.last));
        }
        const SJournal journal = SJournal::read(bytes);
        QVERIFY(journal.isUsable()); // the beginning was not touched
        QVERIFY(journal.state.history().steps.size() <= editor.history().steps.size() + 2);
        quint64 another = 0; // what was read can be written and read again
        QVERIFY(SJournal::read(SJournal::write({}, journal.state, another)).isUsable());
    }
}

void CJournalCodecTest::oldestStepsGoFirst()
{
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Small), 9);
    CJournalState state(editor.project());
    for (int i = 0; i < 20; ++i)
        state.note(editor.edit(QString::number(i)), 0);
    state.note(editor.undo(), 0);
    const SEditHistory all = state.history();
    for (qint64 bytes = 1 << 24; state.history().steps.size() > 10; bytes -= bytes / 8)
        state.trail().limit(bytes);
    const SEditHistory left = state.history();
    QVERIFY(left.steps.size() > 1);
    QCOMPARE(left.steps.last().text, all.steps.last().text);
    QCOMPARE(left.steps.size() - left.index, 1);
    QCOMPARE(left.dropped, 20 - left.steps.size());
    state.trail().renumber(state.project().layout.ports); // as an editor that begins with them
    SEditRecord next = editor.edit(QStringLiteral("next"));
    next.index = left.index + 1;
    next.saved = -1;
    state.note(next, 0);
    QCOMPARE(state.history().index, left.index + 1);
    QCOMPARE(state.history().steps.last().text, QStringLiteral("next"));
    quint64 last = 0;
    const SJournal written = SJournal::read(SJournal::write({}, state, last));
    QCOMPARE(written.state.history().dropped, left.dropped);
    state.trail().limit(0);
    QCOMPARE(state.history().steps.size(), 0);
}

void CJournalCodecTest::aStepTakesWhatItChangesOnly()
{
    constexpr int Steps = 300;
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Full), 12);
    CJournalState state(editor.project());
    SEditRecord record;
    SEditStep::SPort move{editor.project().layout.ports.first(), editor.project().layout.ports.first()};
    for (record.index = 1; record.index <= Steps; ++record.index) {
        move.before = move.after;
        move.after.groups[0].cabinets[record.index % move.after.groups[0].cabinets.size()].rect.translate(1,
                                                                                                          0);
        record.step.ports = {move};
        state.note(record, 0);
        state.trail().limit(qint64(Steps) * 1000);
    }
    QCOMPARE(state.history().steps.size(), Steps);
}

void CJournalCodecTest::countsWithAnEditorThatForgot()
{
    CRecordingEditor editor(ProjectSamples::ofWall(CWallBuilder::Small), 10);
    CJournalState state(editor.project());
    state.note(editor.edit(QStringLiteral("old")), 0);
    CRecordingEditor another(editor.project(), 11); // begins without a history
    state.note(another.edit(QStringLiteral("new")), 0);
    QVERIFY(sameHistory(state.history(), another.history()));
    SProcessorProject replaced = another.project(); // by the host: what was before leads nowhere
    for (auto &port : replaced.layout.ports)
        port.groups.clear();
    state.note(replaced, 0);
    QCOMPARE(state.history().steps.size(), 0);
}

ORVO_TEST_MAIN(QCoreApplication, CJournalCodecTest)
#include "tst_journal_codec.moc"
