// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CCommandLine.h"
#include "host/journal/CJournals.h"
#include "tests/harness/CTestBase.h"
#include "tests/journal/CRecordingEditor.h"
#include "tests/projects/CFaultyFileSystem.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cerrno>
#include <memory>

namespace {

constexpr int Reasons[] = {ENOSPC, EIO, EACCES, EROFS, EDQUOT};
constexpr int PairsOfEach = 12;
constexpr int AllPairsOfEach = 300;

using Fault = CFaultyFileSystem::SFault;

int pairsOfEach()
{
    return qEnvironmentVariable("ORVO_FAULTS") == QLatin1String("all") ? AllPairsOfEach : PairsOfEach;
}

Fault faultAt(int number, bool onward, int second = 0)
{
    return {"any", number, Reasons[number % int(std::size(Reasons))], onward, second};
}

QString textOf(const Fault &fault)
{
    return QStringLiteral("call %1%2 fails, and %3: %4; ")
        .arg(fault.number)
        .arg(fault.onward ? QStringLiteral(" and all after it") : QString())
        .arg(fault.second)
        .arg(qt_error_string(fault.reason));
}

/// What happens to a project in a run of the program.
class CStory
{
public:
    CStory()
    {
        ProjectSamples::setContent(file(), "saved");
        states << m_editor;
    }

    QString file() const { return m_root.filePath(QStringLiteral("wall.sprj")); }
    CJournalFolder folder() const { return CJournalFolder(m_root.filePath(QStringLiteral("journal"))); }
    QStringList files(const char *pattern) const
    {
        return QDir(folder().path()).entryList({QLatin1String(pattern)}, QDir::Files);
    }

    void start()
    {
        m_journals = std::make_unique<CJournals>(folder().path(), [this](const QString &text) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            told << text;
        });
    }
    void begin() { m_journals->begin(owner(), m_editor.project()); }
    void edit()
    {
        if (!m_journals)
            return;
        m_journals->note(m_editor.edit(QStringLiteral("Edit %1").arg(states.size())));
        m_journals->sync();
        note(true);
    }
    void save()
    {
        ProjectSamples::setContent(file(), QByteArray::number(states.size()));
        m_editor.save();
        m_journals->settle(owner());
        m_journals->sync();
        note(false);
    }
    void drop()
    {
        m_journals->drop(owner().processor);
        m_journals->sync();
        note(false);
    }
    /// The user tries it twice.
    void restore()
    {
        for (int i = 0; i < 2; ++i) {
            const SStrayJournal stray = folder().strays().value(0);
            if (!stray.journal.isUsable())
                continue;
            m_journals->adopt(stray, owner());
            m_journals->sync();
            return;
        }
        m_journals.reset();
    }
    void open()
    {
        m_journals->beginOpened(owner(), m_editor.project());
        m_journals->sync();
        hasSteps = sameHistory(m_journals->history(owner().processor), m_editor.history());
    }
    void stop() { m_journals.reset(); }

    CFaultyFileSystem *disk = nullptr;
    QVector<CRecordingEditor> states; ///< each that was on the screen
    int sure = 0;                     ///< the last one before anything failed
    bool wasUnsaved = false;          ///< that one, and was not saved since
    bool isUnsaved = false;
    bool hasSteps = true; ///< as far as they are kept
    QStringList told;

private:
    SJournalOwner owner() const
    {
        SJournalOwner owner;
        owner.processor = m_editor.project().layout.processor;
        owner.project = true;
        owner.name = QStringLiteral("Foyer");
        owner.file = file();
        owner.stamp = SFileStamp::of(file());
        return owner;
    }
    void note(bool unsaved)
    {
        states << m_editor;
        isUnsaved = unsaved;
        if (disk && disk->hasFailed()) {
            wasUnsaved = wasUnsaved && unsaved;
            return;
        }
        sure = states.size() - 1;
        wasUnsaved = unsaved;
    }

    CRecordingEditor m_editor{ProjectSamples::ofWall(CWallBuilder::Small), 1};
    QTemporaryDir m_root;
    std::mutex m_mutex; // guards what was told
    std::unique_ptr<CJournals> m_journals;
};

struct SScenario
{
    const char *name;
    void (*prepare)(CStory &story); ///< nothing fails
    void (*run)(CStory &story);
};

const QVector<SScenario> &scenarios()
{
    using S = CStory;
    const auto leave = [](S &s) { s.start(), s.begin(), s.edit(), s.edit(), s.stop(); };
    const auto keep = [](S &s) { s.start(), s.begin(), s.edit(), s.edit(), s.save(), s.stop(); };
    const auto nothing = [](S &) {};
    const auto begin = [](S &s) { s.start(), s.stop(); };
    static const QVector<SScenario> all{
        {"edits", nothing, [](S &s) { s.start(), s.begin(), s.edit(), s.edit(), s.edit(), s.stop(); }},
        {"edits after a save", begin,
         [](S &s) { s.start(), s.begin(), s.edit(), s.save(), s.edit(), s.edit(), s.stop(); }},
        {"a save", begin, [](S &s) { s.start(), s.begin(), s.edit(), s.save(), s.stop(); }},
        {"nothing to keep", begin, [](S &s) { s.start(), s.begin(), s.edit(), s.drop(), s.stop(); }},
        {"edits that were restored", leave,
         [](S &s) { s.start(), s.restore(), s.edit(), s.edit(), s.stop(); }},
        {"a history", keep, [](S &s) { s.start(), s.open(), s.edit(), s.edit(), s.stop(); }}};
    return all;
}

/// What is wrong with the offers of the next start.
QString faultOfOffers(const CStory &story, const Fault &fault)
{
    const QList<SStrayJournal> strays = story.folder().strays();
    const bool once = !fault.onward && fault.second == 0;
    if (!story.isUnsaved)
        return strays.isEmpty() || (!once && !story.told.isEmpty())
                   ? QString()
                   : QStringLiteral("offers what is saved or discarded");
    if (strays.size() != 1)
        return strays.isEmpty() && !once && !story.wasUnsaved && !story.told.isEmpty()
                   ? QString()
                   : QStringLiteral("offers: %1").arg(strays.size());
    const CJournalState &found = strays.first().journal.state;
    int state = story.states.size() - 1;
    while (state >= 0 &&
           !(found.project() == story.states.at(state).project() &&
             (!story.hasSteps || sameHistory(found.history(), story.states.at(state).history()))))
        --state;
    if (state < (once ? story.states.size() - 1 : story.sure))
        return QStringLiteral("offers state %1 of %2").arg(state).arg(story.states.size());
    return state < story.states.size() - 1 && story.told.isEmpty() ? QStringLiteral("tells nothing")
                                                                   : QString();
}

QString faultOf(const CStory &story, const Fault &fault)
{
    QStringList told = story.told;
    for (const QString &text : qAsConst(told)) {
        const bool names = text.contains(QStringLiteral("Foyer"));
        if (!names && text != QStringLiteral("Edits are kept for a crash again."))
            return QStringLiteral("names nothing");
    }
    if (told.removeDuplicates() > 0 && fault.second == 0)
        return QStringLiteral("tells it again");
    if (!story.hasSteps && told.isEmpty())
        return QStringLiteral("loses the history");
    QString wrong = faultOfOffers(story, fault);
    SJournal history;
    if (wrong.isEmpty() && !story.isUnsaved && story.states.last().history().saved >= 0 && told.isEmpty() &&
        story.folder().findHistory(story.file(), history) != CJournalFolder::Kept::Same)
        wrong = QStringLiteral("keeps no history");
    if (wrong.isEmpty() && !story.files("*~new").isEmpty())
        wrong = QStringLiteral("leaves files");
    return wrong;
}

/// Tells the scenario while the disk fails like that. False: it did not.
bool tellStory(const SScenario &scenario, const Fault &fault, QString &wrong)
{
    CStory story;
    {
        const CFaultyFileSystem quick;
        scenario.prepare(story);
    }
    const bool hasFolder = QFileInfo::exists(story.folder().path());
    bool failed = false;
    {
        CFaultyFileSystem disk(fault);
        story.disk = &disk;
        scenario.run(story);
        failed = disk.hasFailed();
        if (hasFolder && disk.calls().value(fault.number - 1) == "sync" && story.told.isEmpty())
            wrong = QStringLiteral("what the disk has not confirmed is not told");
    }
    if (wrong.isEmpty())
        wrong = faultOf(story, fault);
    if (!wrong.isEmpty())
        wrong = textOf(fault) + wrong + QStringLiteral("; told: ") + story.told.join(QLatin1Char('|'));
    return failed;
}

/// What an earlier run has left, for the command line.
struct SLeft
{
    QTemporaryDir target;
    QString file = target.filePath(QStringLiteral("out.sprj"));
    const CJournalFolder folder{CJournalFolder::defaultPath()};
    CRecordingEditor editor{ProjectSamples::ofWall(CWallBuilder::Small), 1};
    const SProcessorProject before = editor.project();
    int status = -1;
    QString errors;

    SLeft()
    {
        const CFaultyFileSystem quick;
        QDir(folder.path()).removeRecursively();
        CJournals journals(folder.path(), {});
        journals.begin(owner(), before);
        journals.note(editor.edit(QStringLiteral("Edit")));
        (void)CProcessorProject::write(file, before);
    }
    SJournalOwner owner() const
    {
        SJournalOwner owner;
        owner.processor = before.layout.processor;
        owner.name = QStringLiteral("Foyer");
        return owner;
    }
    void run(const QStringList &arguments)
    {
        QString out;
        QTextStream outStream(&out);
        QTextStream errorStream(&errors);
        status =
            CCommandLine::run(QStringList(QStringLiteral("recover")) + arguments, outStream, errorStream);
    }
    void restore() { run({QStringLiteral("--restore"), QStringLiteral("1"), file}); }
    bool isOffered() const
    {
        const QList<SStrayJournal> strays = folder.strays();
        return strays.size() == 1 && strays.first().journal.state.project() == editor.project() &&
               sameHistory(strays.first().journal.state.history(), editor.history());
    }
    bool holds(const SProcessorProject &project) const
    {
        const auto read = CProcessorProject::read(file);
        return read && read.value() == project;
    }
};

enum class Command { List, Restore, Discard };

QString faultOf(const SLeft &left, Command command)
{
    const bool offered = left.isOffered();
    const bool restored = left.holds(left.editor.project());
    if (left.status != 0 && left.status != 1)
        return QStringLiteral("ends with %1").arg(left.status);
    if (!restored && !left.holds(left.before))
        return QStringLiteral("the file is neither the old nor the new one");
    if (command == Command::List)
        return offered && left.status == 0 ? QString() : QStringLiteral("does not list them");
    if (offered == (left.status == 0))
        return QStringLiteral("ends with %1, but offers them: %2").arg(left.status).arg(offered);
    SJournal history;
    if (left.status == 0 && command == Command::Restore &&
        (!restored || left.folder.findHistory(left.file, history) != CJournalFolder::Kept::Same))
        return QStringLiteral("a success that is none");
    const bool told = left.errors.startsWith(QLatin1String("orvo: ")) &&
                      left.errors.contains(QLatin1Char('/')) && left.errors.count(QLatin1Char('\n')) == 1;
    return left.status == 0 || told ? QString() : QStringLiteral("says ") + left.errors;
}

/// Runs the command while the disk fails like that. False: it did not.
bool recover(Command command, const Fault &fault, QString &wrong)
{
    SLeft left;
    bool failed = false;
    {
        const CFaultyFileSystem disk(fault);
        if (command == Command::List)
            left.run({});
        else if (command == Command::Restore)
            left.restore();
        else
            left.run({QStringLiteral("--discard"), QStringLiteral("1")});
        failed = disk.hasFailed();
    }
    wrong = faultOf(left, command);
    if (!wrong.isEmpty())
        wrong = textOf(fault) + wrong;
    return failed;
}

} // namespace

/// Journals, kept histories and the recovery of both, while every single call to the disk fails, once or from
/// then on, and two of them at once.
class CJournalFaultsTest final : public CTestBase
{
    Q_OBJECT

    /// @p run returns whether the fault came, and what is wrong then. There are more than @p least calls.
    template <typename Run>
    static void failEachCall(int least, const Run &run)
    {
        QString wrong;
        int calls = 0;
        for (const bool onward : {true, false}) {
            calls = 0;
            while (run(faultAt(calls + 1, onward), wrong) && wrong.isEmpty())
                ++calls;
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
            QVERIFY(calls > least);
        }
        QRandomGenerator random(13);
        for (int i = 0; i < pairsOfEach(); ++i) {
            run(faultAt(1 + random.bounded(calls), false, 1 + random.bounded(calls)), wrong);
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        }
    }

private Q_SLOTS:
    void whatWasOnTheScreenIsKeptOrTold_data()
    {
        QTest::addColumn<int>("number");
        for (int number = 0; number < scenarios().size(); ++number)
            QTest::newRow(scenarios().at(number).name) << number;
    }
    void whatWasOnTheScreenIsKeptOrTold()
    {
        QFETCH(int, number);
        const SScenario &scenario = scenarios().at(number);
        failEachCall(
            8, [&scenario](const Fault &fault, QString &wrong) { return tellStory(scenario, fault, wrong); });
    }

    void recoveringLosesNothing_data()
    {
        QTest::addColumn<int>("number");
        QTest::newRow("list") << int(Command::List);
        QTest::newRow("restore") << int(Command::Restore);
        QTest::newRow("discard") << int(Command::Discard);
    }
    void recoveringLosesNothing()
    {
        QFETCH(int, number);
        const Command command = Command(number);
        failEachCall(
            2, [command](const Fault &fault, QString &wrong) { return recover(command, fault, wrong); });
    }
    void aHistoryThatStaysIsToldWithoutOfferingTheEditsAgain()
    {
        SLeft left;
        left.restore();
        const QDir folder(left.folder.path());
        const QString history = folder.entryList({QStringLiteral("*.history")}).value(0);
        QVERIFY(QFile::remove(folder.filePath(history)) && folder.mkpath(history)); // no file to remove
        SProcessorProject changed = left.editor.project();
        ++changed.frameRate; // no step
        {
            CJournals journals(folder.path(), {});
            journals.begin(left.owner(), left.editor.project());
            journals.note(left.owner(), changed);
        }
        QCOMPARE(left.folder.strays().size(), 1);
        left.restore();
        QVERIFY2(left.errors.contains(QLatin1String("an older history of ")), qPrintable(left.errors));
        QVERIFY(left.status == 0 && left.holds(changed) && left.folder.strays().isEmpty());
    }
};

ORVO_TEST_MAIN(QCoreApplication, CJournalFaultsTest)
#include "tst_journal_faults.moc"
