// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/BackupMatch.h"
#include "tests/harness/CTestBase.h"

namespace {

/// A key that is known by a letter; the null key is a dash.
QUuid key(QChar letter)
{
    return letter == QLatin1Char('-') ? QUuid() : QUuid(letter.unicode(), 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
}

/// Rows written "AB C- --".
QList<SBackupPair> rowsOf(const QString &text)
{
    QList<SBackupPair> rows;
    for (const QString &row : text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        rows << SBackupPair(key(row.at(0)), key(row.at(1)));
    return rows;
}

QString textOf(const QList<SBackupPair> &rows)
{
    QStringList text;
    for (const SBackupPair &row : rows)
        text << QString(row.first.isNull() ? QLatin1Char('-') : QChar(row.first.data1)) +
                    (row.second.isNull() ? QLatin1Char('-') : QChar(row.second.data1));
    return text.join(QLatin1Char(' '));
}

} // namespace

class CBackupMatchTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void completesRows_data()
    {
        QTest::addColumn<QString>("rows");
        QTest::addColumn<QString>("free");
        QTest::addColumn<QString>("completed");
        // Small letters fit behind capitals, of their own letter better than of another.
        QTest::newRow("in order") << "-- -- --"
                                  << "ABab"
                                  << "Aa Bb --";
        QTest::newRow("best first") << "-- --"
                                    << "Aba"
                                    << "Aa --";
        QTest::newRow("failing that any") << "-- --"
                                          << "Ab"
                                          << "Ab --";
        QTest::newRow("whole rows stay") << "Ab --"
                                         << "ABab"
                                         << "Ab Ba";
        QTest::newRow("half rows first") << "-- B- -a"
                                         << "ABab"
                                         << "-- Bb Aa";
        QTest::newRow("what is used is not free") << "Aa --"
                                                  << "AaB"
                                                  << "Aa --";
        QTest::newRow("no room") << "Aa"
                                 << "ABab"
                                 << "Aa";
        QTest::newRow("nothing fits") << "-- --"
                                      << "AB"
                                      << "-- --";
        QTest::newRow("not with itself") << "-- --"
                                         << "A"
                                         << "-- --";
        QTest::newRow("what fits nothing is left out") << "-- --"
                                                       << "aAb"
                                                       << "Ab --";
    }
    void completesRows()
    {
        QFETCH(QString, rows);
        QFETCH(QString, free);
        QList<QUuid> keys;
        for (const QChar letter : free)
            keys << key(letter);
        const auto fitness = [](const QUuid &primary, const QUuid &redundancy) {
            const QChar first(primary.data1);
            const QChar second(redundancy.data1);
            return !first.isUpper() || !second.isLower() ? 0 : first.toLower() == second ? 2 : 1;
        };
        QTEST(textOf(BackupMatch::completed(rowsOf(rows), keys, fitness)), "completed");
    }

    void takesWholeRowsOnly_data()
    {
        QTest::addColumn<QString>("rows");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<QString>("pairs");
        QTest::newRow("empty") << "" << true << "";
        QTest::newRow("empty rows between") << "-- Aa -- Bb" << true << "Aa Bb";
        QTest::newRow("primary alone") << "Aa B-" << false << "";
        QTest::newRow("redundancy alone") << "-a Bb" << false << "";
    }
    void takesWholeRowsOnly()
    {
        QFETCH(QString, rows);
        QList<SBackupPair> pairs;
        QTEST(BackupMatch::take(rowsOf(rows), pairs), "taken");
        QTEST(textOf(pairs), "pairs");
    }
};

ORVO_TEST_MAIN(QApplication, CBackupMatchTest)
#include "tst_backup_match.moc"
