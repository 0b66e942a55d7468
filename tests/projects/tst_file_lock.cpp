// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CFileLock.h"
#include "host/projects/CSafeFile.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/CChildProcess.h"
#include "tests/projects/CFaultyFileSystem.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QSysInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <optional>
#include <unistd.h>

namespace {

SLockHolder ofAnotherMachine()
{
    SLockHolder holder = SLockHolder::ofThisProcess();
    holder.machine = QStringLiteral("studio-2");
    holder.user = QStringLiteral("anna");
    return holder;
}

} // namespace

/// Who has a file open: other processes, other machines, the dead, and disks that fail.
class CFileLockTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    const QString m_file = m_folder.filePath(QStringLiteral("wall.sprj"));
    const QString m_lock = m_folder.filePath(QStringLiteral(".wall.sprj.lock"));

    QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }
    void clear() const
    {
        for (const QString &name : names())
            QFile::remove(m_folder.filePath(name));
    }

    void tearDown() override { clear(); }

private Q_SLOTS:
    void anotherProcessHoldsItUntilItDies()
    {
        std::optional<CFileLock> theirs; // in the child
        CChildProcess other({[&] { return theirs.emplace(m_file).take() == CFileLock::Taken; }});
        QVERIFY(other.next());
        CFileLock lock(m_file);
        QCOMPARE(lock.take(), CFileLock::Held);
        QCOMPARE(lock.holder().process, qint64(other.number()));
        QVERIFY(!lock.holder().isThisProcess());
        QVERIFY2(lock.holder().text().contains(QSysInfo::machineHostName()),
                 qPrintable(lock.holder().text()));
        lock.release(); // was never its own
        QCOMPARE(names().size(), 1);
        other.kill();
        QCOMPARE(lock.take(), CFileLock::Taken); // without a question
        CFileLock third(m_file);
        QCOMPARE(third.take(), CFileLock::Held);
        QVERIFY(third.holder().isThisProcess());
        lock.release();
        QCOMPARE(third.take(), CFileLock::Taken);
    }

    void whoReplacesALockIsNotDeprivedOfIt()
    {
        CFileLock first(m_file);
        QCOMPARE(first.take(), CFileLock::Taken);
        QCOMPARE(first.take(), CFileLock::Taken);
        QVERIFY(QFile::link(m_file, m_folder.filePath(QStringLiteral("link.sprj"))));
        ProjectSamples::setContent(m_file, "content");
        CFileLock second(m_folder.filePath(QStringLiteral("link.sprj"))); // the same file
        QCOMPARE(second.lockFile(), m_lock);
        QCOMPARE(second.take(CFileLock::Replace), CFileLock::Taken);
        first.release();
        QVERIFY(QFile::exists(m_lock));
        QCOMPARE(first.take(), CFileLock::Held);
        second.release();
        QVERIFY(!QFile::exists(m_lock));
    }

    void onlyTheDeadOfThisMachineAreTakenOver()
    {
        SLockHolder rebooted = SLockHolder::ofThisProcess();
        rebooted.boot = QStringLiteral("another");
        const bool isKnownMachine = !rebooted.installation.isEmpty();
        SLockHolder namesake = rebooted; // another machine of the same name
        namesake.installation = QStringLiteral("another");
        SLockHolder unknown = rebooted;
        unknown.installation.clear();
        SLockHolder reused = SLockHolder::ofThisProcess(); // the number was given to another process
        ++reused.started;
        SLockHolder container = reused; // shares the machine's start
        container.machine = QStringLiteral("another");
        const QByteArray whole = ofAnotherMachine().encode();
        for (const auto &[content, taken] : {std::pair(rebooted.encode(), isKnownMachine),
                                             {namesake.encode(), false},
                                             {unknown.encode(), false},
                                             {reused.encode(), true},
                                             {container.encode(), false},
                                             {whole, false},
                                             {whole.left(whole.size() / 2), false},
                                             {QByteArray(), false},
                                             {"[]", false}}) {
            ProjectSamples::setContent(m_lock, content);
            CFileLock lock(m_file);
            QCOMPARE(lock.take(), taken ? CFileLock::Taken : CFileLock::Held);
            QCOMPARE(ProjectSamples::contentOf(m_lock) == content, !taken);
            QVERIFY(taken || !lock.holder().text().isEmpty());
            QCOMPARE(lock.holder().text().startsWith(QLatin1String("anna on studio-2, since ")),
                     content == whole);
        }
    }

    void aDiskThatFailsCostsTheLockOnly()
    {
        enum Before { Free, Dead, Theirs };
        SLockHolder dead = SLockHolder::ofThisProcess();
        ++dead.started;
        const QByteArray theirs = ofAnotherMachine().encode();
        for (const int before : {Free, Dead, Theirs}) {
            for (const char *call : {"open", "read", "write", "lock", "rename", "link", "unlink", "close"}) {
                for (const bool onward : {false, true}) {
                    bool failed = true;
                    for (int number = 1; failed; ++number) {
                        clear();
                        if (before != Free)
                            ProjectSamples::setContent(m_lock, before == Dead ? dead.encode() : theirs);
                        CFileLock::Outcome outcome = CFileLock::Held;
                        {
                            const CFaultyFileSystem faulty(
                                CFaultyFileSystem::SFault{call, number, EROFS, onward});
                            CFileLock lock(m_file);
                            outcome = lock.take();
                            QVERIFY(outcome != CFileLock::Taken ||
                                    ProjectSamples::contentOf(m_lock).contains(QByteArray::number(getpid())));
                            lock.release();
                            failed = faulty.hasFailed();
                        }
                        const QByteArray place = QByteArray(call) + QByteArray::number(number);
                        if (before == Theirs) {
                            QVERIFY2(outcome != CFileLock::Taken, place);
                            QCOMPARE(ProjectSamples::contentOf(m_lock), theirs);
                        } else if (!failed || qstrcmp(call, "link") == 0) { // links are not everywhere
                            QCOMPARE(outcome, CFileLock::Taken);
                            QVERIFY2(names().isEmpty(), place);
                        }
                        CSafeFile::cleanAround(m_file); // as the next start does
                        QVERIFY2(names().size() <= 1, place);
                    }
                }
            }
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CFileLockTest)
#include "tst_file_lock.moc"
