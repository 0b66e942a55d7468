// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CLogFile.h"
#include "tests/harness/CTestBase.h"

#include <QLoggingCategory>
#include <QTemporaryDir>

#include <thread>
#include <vector>

Q_LOGGING_CATEGORY(testLog, "orvo.test")

namespace {

QStringList linesOf(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

class CLogFileTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aLineTellsTimeLevelCategoryAndText()
    {
        const QTemporaryDir folder;
        const QString place = folder.filePath(QStringLiteral("new/log"));
        {
            const CLogFile log(place);
            qCWarning(testLog, "the wall is %d px wide", 4608);
        }
        const CLogFile log(place); // the next start continues the file, and threads do not mix their lines
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([] {
                for (int line = 0; line < 100; ++line)
                    qInfo("from a thread");
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        QStringList lines = linesOf(log.fileName());
        QCOMPARE(lines.size(), 401);
        const QRegularExpression line(QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}Z "
                                                     "warning orvo\\.test: the wall is 4608 px wide$"));
        QVERIFY2(line.match(lines.first()).hasMatch(), qPrintable(lines.first()));
        lines.removeFirst();
        for (const QString &text : qAsConst(lines))
            QVERIFY2(text.endsWith(QLatin1String("Z info default: from a thread")), qPrintable(text));
    }

    void neverGrowsBeyondItsSize()
    {
        constexpr qint64 Limit = 1000;
        const QTemporaryDir folder;
        const CLogFile log(folder.path(), Limit);
        for (int i = 0; i < 200; ++i)
            qInfo("line %d", i);
        const QStringList files = QDir(folder.path()).entryList(QDir::Files);
        QCOMPARE(files.size(), 1 + CLogFile::OlderFiles);
        for (const QString &file : files)
            QVERIFY(QFileInfo(folder.filePath(file)).size() <= Limit);
        // The files follow each other without a gap, and the last line is there.
        QStringList lines;
        for (int age = CLogFile::OlderFiles; age >= 0; --age)
            lines += linesOf(log.fileName(age));
        for (int i = 0; i < lines.size(); ++i)
            QVERIFY(lines.at(i).endsWith(QStringLiteral("line %1").arg(200 - lines.size() + i)));
    }

    void aFolderThatCannotBeMadeIsNoFault()
    {
        const QTemporaryDir folder;
        QFile blocker(folder.filePath(QStringLiteral("file")));
        QVERIFY(blocker.open(QIODevice::WriteOnly));
        const CLogFile log(blocker.fileName() + QStringLiteral("/log"));
        qInfo("nobody reads this");
        QVERIFY(!QFile::exists(log.fileName()));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CLogFileTest)
#include "tst_log_file.moc"
