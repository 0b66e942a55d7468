// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CFileHandle.h"
#include "host/projects/CSafeFile.h"
#include "host/projects/CStrayFiles.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/ProjectSamples.h"

#include <QDir>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

constexpr int ManyBytes = 1 << 20;

bool refusesToWrite(const QString &file, const QByteArray &content)
{
    const CStatus written = CSafeFile::write(file, content, CSafeFile::KeepPrevious);
    return !written && written.error().contains(file) && written.error().endsWith(QLatin1Char('.'));
}

bool refusesToRead(const QString &file)
{
    const auto read = CSafeFile::read(file, ManyBytes);
    return !read && read.error().contains(file) && read.error().endsWith(QLatin1Char('.'));
}

} // namespace

class CSafeFileTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

private Q_SLOTS:
    void keepsThePreviousGeneration()
    {
        const QString file = path("generations");
        QVERIFY(CSafeFile::write(file, "one", CSafeFile::KeepPrevious));
        QVERIFY(!QFile::exists(file + QLatin1Char('~')));
        QVERIFY(CSafeFile::write(file, "two", CSafeFile::KeepPrevious));
        QVERIFY(CSafeFile::write(file, "three", CSafeFile::KeepPrevious));
        QCOMPARE(CSafeFile::read(file, ManyBytes).value(), QByteArray("three"));
        QCOMPARE(CSafeFile::read(file + QLatin1Char('~'), ManyBytes).value(), QByteArray("two"));
        QVERIFY(CSafeFile::write(file, "four", CSafeFile::DropPrevious));
        QCOMPARE(CSafeFile::read(file + QLatin1Char('~'), ManyBytes).value(), QByteArray("two"));
    }

    void writesThroughALink()
    {
        QVERIFY(CSafeFile::write(path("target"), "old", CSafeFile::DropPrevious));
        QVERIFY(QFile::link(path("target"), path("link")));
        QVERIFY(CSafeFile::write(path("link"), "new", CSafeFile::KeepPrevious));
        QVERIFY(QFileInfo(path("link")).isSymLink());
        QCOMPARE(ProjectSamples::contentOf(path("target")), QByteArray("new"));
    }

    void refusesWhatIsNoFile()
    {
        QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("folder")));
        QVERIFY(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600) == 0);
        QVERIFY(refusesToRead(path("missing")));
        for (const QString &file : {path("folder"), path("pipe"), QStringLiteral("/dev/null")}) {
            QVERIFY2(refusesToRead(file), qPrintable(file));
            QVERIFY2(refusesToWrite(file, "text"), qPrintable(file));
        }
        QVERIFY(refusesToWrite(path("nowhere/file"), "text"));
        QVERIFY(CSafeFile::write(path("large"), QByteArray(11, 'x'), CSafeFile::DropPrevious));
        QVERIFY(!CSafeFile::read(path("large"), 10));
    }
    void tidiesUpAfterTheDeadOnly_data()
    {
        QTest::addColumn<QByteArray>("pending");
        QTest::addColumn<QByteArray>("previous");
        QTest::newRow("killed before the file was replaced") << QByteArray("two") << QByteArray("zero");
        QTest::newRow("killed after it") << QByteArray("one") << QByteArray("one");
    }
    void tidiesUpAfterTheDeadOnly()
    {
        QFETCH(QByteArray, pending);
        QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("wall"));
        ProjectSamples::setContent(file, "two");
        ProjectSamples::setContent(file + QStringLiteral("~"), "zero");
        ProjectSamples::setContent(file + QStringLiteral("~new"), pending);
        ProjectSamples::setContent(QFile::decodeName(CStrayFiles::newFile(QFile::encodeName(file))), "part");
        const auto names = [&folder] { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); };
        {
            CFileHandle writer(QFile::encodeName(folder.path()), O_RDONLY | O_DIRECTORY);
            QVERIFY(writer.lock(LOCK_EX));
            CSafeFile::cleanAround(file);
            QCOMPARE(names().size(), 4);
        }
        CSafeFile::cleanAround(file);
        QCOMPARE(names(), QStringList({QStringLiteral("wall"), QStringLiteral("wall~")}));
        QCOMPARE(ProjectSamples::contentOf(file), QByteArray("two"));
        QTEST(ProjectSamples::contentOf(file + QStringLiteral("~")), "previous");
    }

    void keepsPermissions()
    {
        const QString file = path("permissions");
        QVERIFY(CSafeFile::write(file, "old", CSafeFile::DropPrevious));
        QVERIFY(chmod(QFile::encodeName(file).constData(), 0640) == 0);
        QVERIFY(CSafeFile::write(file, "new", CSafeFile::DropPrevious));
        struct stat status = {};
        QVERIFY(stat(QFile::encodeName(file).constData(), &status) == 0);
        QCOMPARE(int(status.st_mode & 07777), 0640);
    }
};

ORVO_TEST_MAIN(QCoreApplication, CSafeFileTest)
#include "tst_safe_file.moc"
