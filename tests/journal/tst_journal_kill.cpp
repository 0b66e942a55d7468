// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CJournals.h"
#include "tests/harness/CTestBase.h"
#include "tests/journal/CRecordingEditor.h"
#include "tests/projects/ProjectSamples.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>

namespace {

constexpr int Rounds = 12;
constexpr int LongestNote = 200; // milliseconds; longer than any that waits for no disk
const char childOption[] = "--edit";

CRecordingEditor editorOf(int seed)
{
    return {ProjectSamples::ofWall(CWallBuilder::Small), quint32(seed)};
}

/// Edits until it is killed, and says so after each edit that was noted.
int editForEver(const QString &folder, int seed)
{
    CRecordingEditor editor = editorOf(seed);
    SJournalOwner owner;
    owner.processor = editor.project().layout.processor;
    CJournals journals(folder, {});
    journals.begin(owner, editor.project());
    for (;;) {
        const SEditRecord edit = editor.anything();
        QElapsedTimer taken;
        taken.start();
        journals.note(edit);
        if (taken.elapsed() > LongestNote)
            journals.sync(); // of a disk that takes longer nothing is promised until it has caught up
        if (std::fputc('.', stdout) == EOF || std::fflush(stdout) != 0)
            return 1;
    }
}

bool isThere(const SJournal &journal, const CRecordingEditor &editor)
{
    return journal.state.project() == editor.project() &&
           sameHistory(journal.state.history(), editor.history());
}

} // namespace

/// A process that edits is killed at any moment; what it was told to be noted is there.
class CJournalKillTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsLost();
};

void CJournalKillTest::nothingIsLost()
{
    QTemporaryDir root;
    const QString folder = root.filePath(QStringLiteral("journal"));
    for (int round = 1; round <= Rounds; ++round) {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {QString::fromLatin1(childOption), folder, QString::number(round)});
        QByteArray said;
        while (said.size() < 9 * round && child.waitForReadyRead(PatienceMilliseconds))
            said += child.readAll();
        child.kill();
        QVERIFY(child.waitForFinished(PatienceMilliseconds));
        said += child.readAll();
        const QList<SStrayJournal> strays = CJournalFolder(folder).strays();
        QCOMPARE(strays.size(), 1);
        const SJournal &journal = strays.first().journal;
        QVERIFY(journal.problem == SJournal::None || journal.problem == SJournal::Torn);
        CRecordingEditor editor = editorOf(round); // does the same
        for (int i = 0; i < said.size(); ++i)
            editor.anything();
        if (!isThere(journal, editor))
            editor.anything(); // was noted, but not said
        QVERIFY(isThere(journal, editor));
        QVERIFY(CJournalFolder::remove(strays.first()));
    }
}

int main(int argc, char **argv)
{
    if (argc == 4 && std::strcmp(argv[1], childOption) == 0) {
        QCoreApplication application(argc, argv);
        return editForEver(QString::fromLocal8Bit(argv[2]), QByteArray(argv[3]).toInt());
    }
    const CTestEnvironment environment;
    QCoreApplication application(argc, argv);
    CJournalKillTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_journal_kill.moc"
