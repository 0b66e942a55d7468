// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/redundancy/BackupMatch.h"
#include "layout/redundancy/CBackupDelegate.h"
#include "layout/redundancy/CProcessorBackupTable.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/redundancy/PairWorlds.h"

#include <QSignalSpy>

namespace {

/// A key that is known by a letter; the null key is a dash.
QUuid key(QChar letter)
{
    return letter == QLatin1Char('-') ? QUuid() : QUuid(letter.unicode(), 0, 0, 0, 0, 0, 0, 0, 0, 0, 1);
}

/// Rows written "AB C- --".
QList<SBackupPair> rowsOf(const char *text)
{
    QList<SBackupPair> rows;
    for (const QString &row : QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts))
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

/// The dialogs of redundancy, of processors and of ports.
class CBackupDialogsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void showsProcessorsAndPairs()
    {
        SPairWorld world;
        world.host.answers()->nodes[2].online = false;
        world.host.answers()->nodes[3].online = false;
        ProcessorTree::ProcessorNode project = world.host.answers()->nodes.first();
        project.uuid = QUuid::createUuid();
        project.address = 0;
        world.host.answers()->nodes << project;
        world.open(QStringLiteral("AB CD"));
        QVERIFY(world.user->apply()->isDefault());
        CBackupList &list = world.user->list();
        QCOMPARE(list.count(), 4);
        QCOMPARE(list.item(1)->text(), QStringLiteral("B(10.0.0.1)"));
        const auto picture = [&list](int row) { return list.item(row)->icon().pixmap(16).toImage(); };
        const auto wanted = [](const char *name) {
            return QIcon(QStringLiteral(":/Image/Target/Processor/%1_normal.svg").arg(QLatin1String(name)))
                .pixmap(16)
                .toImage();
        };
        const char *const names[] = {"online", "backup-online", "offline", "backup-offline"};
        for (int row = 0; row < 4; ++row)
            QCOMPARE(picture(row), wanted(names[row]));
        QVERIFY(wanted("backup-offline") != wanted("offline"));
        QCOMPARE(world.rows(), QStringLiteral("A>B|C>D"));
        QCOMPARE(world.user->cell(0, 1).data(257).toUuid(), world.keyOf(QLatin1Char('B')));
    }

    void isAlwaysOfOneSize()
    {
        SPairWorld processors;
        processors.open();
        SPortWorld ports;
        ports.open();
        for (const CBackupDialog *dialog : {static_cast<CBackupDialog *>(processors.dialog.get()),
                                            static_cast<CBackupDialog *>(ports.dialog.get())}) {
            QCOMPARE(dialog->minimumSize(), QSize(962, 566));
            QCOMPARE(dialog->maximumSize(), QSize(962, 566));
        }
        QCOMPARE(processors.dialog->windowTitle(), QStringLiteral("Processor redundancy"));
        QCOMPARE(ports.dialog->windowTitle(), QStringLiteral("Port redundancy"));
        const QAbstractItemModel &table = *processors.user->view().model();
        QCOMPARE(table.headerData(0, Qt::Horizontal).toString(), QStringLiteral("Primary"));
        QCOMPARE(table.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Redundancy"));
        for (const char *tool : {"Auto match", "Clear", "Reset"})
            QVERIFY2(processors.user->tool(tool)->objectName() == QLatin1String("BGTransparent") &&
                         processors.user->tool(tool)->size() == QSize(16, 16),
                     tool);
    }

    void dropsPutAndSwap()
    {
        for (const auto &[pairs, dropped, row, column, rows] :
             {std::tuple("", 'A', 1, 0, ">|A>"), // into an empty cell
              std::tuple("AB", 'C', 0, 1, "A>C"), std::tuple("AB", 'A', 0, 1, "B>A"),
              std::tuple("AB CD", 'D', 0, 0, "D>B|C>A"), std::tuple("AB", 'B', 1, 1, "A>|>B"),
              std::tuple("AB", 'B', 0, 1, "A>B")}) { // onto itself
            for (const bool fromTable : {false, true}) {
                SPairWorld world;
                world.open(QLatin1String(pairs));
                world.user->drop(world.keyOf(QLatin1Char(dropped)), row, column, fromTable);
                QCOMPARE(world.rows(), QLatin1String(rows));
            }
        }
    }

    void halfRowsAreCompletedByTheBest()
    {
        // Letters fit behind capitals: small ones, their own better than others, and the same capital.
        const auto fitness = [](const QUuid &primary, const QUuid &redundancy) {
            const QChar first(primary.data1);
            const QChar second(redundancy.data1);
            if (!first.isUpper() || (!second.isLower() && second != first))
                return 0;
            return first.toLower() == second ? 2 : 1;
        };
        const QVector<std::tuple<const char *, const char *, const char *>> cases{
            {"-- -- --", "ABab", "Aa Bb --"}, // in their order
            {"-- --", "Aba", "Aa --"},
            {"-- --", "Ab", "Ab --"},
            {"Ab --", "ABab", "Ab Ba"}, // whole rows stay
            {"-- B- -a", "ABab", "-- Bb Aa"},
            {"Aa --", "AaB", "Aa --"}, // what is used is not free
            {"Aa", "ABab", "Aa"},
            {"-- --", "AB", "-- --"},
            {"-- --", "A", "-- --"}, // not with itself
            {"-- --", "aAb", "Ab --"}};
        for (const auto &[rows, free, completed] : cases) {
            QList<QUuid> keys;
            for (const char letter : QByteArray(free))
                keys << key(QLatin1Char(letter));
            QCOMPARE(textOf(BackupMatch::completed(rowsOf(rows), keys, fitness)), QLatin1String(completed));
        }
    }

    void wholeRowsAreTakenOnly()
    {
        for (const auto &[rows, taken, wanted] :
             {std::tuple("", true, ""), std::tuple("-- Aa -- Bb", true, "Aa Bb"),
              std::tuple("Aa B-", false, ""), std::tuple("-a Bb", false, "")}) {
            QList<SBackupPair> pairs;
            QCOMPARE(BackupMatch::take(rowsOf(rows), pairs), taken);
            QCOMPARE(textOf(pairs), QLatin1String(wanted));
        }
    }

    void refusesDrops()
    {
        SPairWorld world;
        world.open(QStringLiteral("AB"));
        Q_EMIT world.user->view().notifyProcessorDroped(world.user->cell(0, 0), QUuid());
        Q_EMIT world.user->view().notifyProcessorDroped(world.user->cell(0, 0), QUuid::createUuid());
        QCOMPARE(world.rows(), QStringLiteral("A>B"));
        const QUuid other = world.keyOf(QLatin1Char('C'));
        world.host.answers()->busy = true;
        world.user->drop(other, 0, 0);
        QCOMPARE(world.rows(), QStringLiteral("A>B")); // all online, and one of them busy
        world.host.answers()->nodes[3].online = false;
        world.user->drop(other, 0, 0);
        QCOMPARE(world.rows(), QStringLiteral("C>B"));
    }

    void worksByKeyboardAlone()
    {
        SPairWorld world;
        world.open();
        QWidget *list = &world.user->list();
        QWidget *table = &world.user->view();
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Space);
        QCOMPARE(world.rows(), QStringLiteral("A>B"));
        QTest::keyClick(list, Qt::Key_F6);
        QVERIFY(table->hasFocus());
        QCOMPARE(world.user->view().currentIndex(), world.user->cell(1, 0));
        QTest::keyClick(table, Qt::Key_Up);
        QTest::keyClick(table, Qt::Key_Delete);
        QCOMPARE(world.rows(), QStringLiteral(">B"));
        world.user->list().setCurrentRow(3);
        QTest::keyClick(table, Qt::Key_Enter);
        QCOMPARE(world.rows(), QStringLiteral("D>B"));
        QTest::keyClick(table, Qt::Key_F6);
        QVERIFY(list->hasFocus());
        QTest::keyClick(list, Qt::Key_Tab);
        QVERIFY(world.dialog->isAncestorOf(QApplication::focusWidget()) && !list->hasFocus());
        QCOMPARE(world.host.answers()->count(QStringLiteral("applyProcessorRedundancy")), 0);
    }

    void toolsFillEmptyAndRestore()
    {
        SPairWorld world;
        world.host.answers()->nodes[1].model = QStringLiteral("other");
        world.host.answers()->fiber << world.keyOf(QLatin1Char('C'));
        world.open();
        QVERIFY(!world.user->tool("Clear")->isEnabled());
        QVERIFY(!world.user->tool("Reset")->isEnabled());
        QTest::mouseClick(world.user->tool("Auto match"), Qt::LeftButton);
        QCOMPARE(world.rows(), QStringLiteral("A>D")); // B is of another kind, C in another mode
        QTest::mouseClick(world.user->tool("Clear"), Qt::LeftButton);
        QCOMPARE(world.rows(), QString());
        world.host.answers()->redundancies.clear();
        world.open(QStringLiteral("AB"));
        world.user->drop(world.keyOf(QLatin1Char('A')), 1, 1);
        QTest::mouseClick(world.user->tool("Reset"), Qt::LeftButton);
        QCOMPARE(world.rows(), QStringLiteral("A>B"));
    }

    void deletesTheRowUnderTheMouse()
    {
        SPairWorld world;
        world.open(QStringLiteral("AB CD"));
        CBackupTableView &view = world.user->view();
        const QPoint button = CBackupDelegate::buttonRect(view.visualRect(world.user->cell(0, 1))).center();
        QTest::mouseMove(view.viewport(), button);
        QMouseEvent hover(QEvent::MouseMove, button, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &hover);
        QCOMPARE(view.hoveredRow(), 0);
        const QImage with = view.viewport()->grab().toImage();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, button);
        QCOMPARE(world.rows(), QStringLiteral(">|C>D"));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, button); // nothing there any more
        QCOMPARE(world.rows(), QStringLiteral(">|C>D"));
        QVERIFY(with != view.viewport()->grab().toImage());
    }

    void applies()
    {
        for (const auto &wanted : {QStringLiteral("CD AB"), QString()}) {
            SPairWorld world;
            world.open(QStringLiteral("AC"));
            QTest::mouseClick(world.user->tool("Clear"), Qt::LeftButton);
            const QStringList pairs = wanted.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            for (int i = 0; i < pairs.size(); ++i) {
                world.user->drop(world.keyOf(pairs.at(i).at(0)), i, 0);
                world.user->drop(world.keyOf(pairs.at(i).at(1)), i, 1);
            }
            bool enabledMeanwhile = true;
            world.host.answers()->onCalled = [&](const QString &call) {
                if (call.startsWith(QLatin1String("applyProcessorRedundancy")))
                    enabledMeanwhile = world.user->apply()->isEnabled();
            };
            QSignalSpy applied(world.dialog.get(), &CBackupDialog::notifyApplied);
            QTest::mouseClick(world.user->apply(), Qt::LeftButton);
            world.host.answers()->onCalled = nullptr;
            QVERIFY(!enabledMeanwhile && world.user->apply()->isEnabled() && world.dialog->isVisible());
            QCOMPARE(applied, (QList<QVariantList>{{QString()}}));
            QList<SBackupPair> keys;
            for (const QString &pair : pairs)
                keys << SBackupPair(world.keyOf(pair.at(0)), world.keyOf(pair.at(1)));
            QCOMPARE(world.host.answers()->redundancies, keys);
        }
    }

    void aHalfRowStopsAll()
    {
        SPairWorld world;
        world.open(QStringLiteral("AB"));
        world.user->drop(world.keyOf(QLatin1Char('C')), 1, 1);
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        QTest::mouseClick(world.user->apply(), Qt::LeftButton);
        QCOMPARE(user.texts(), QStringList{QStringLiteral("Invalid primary-redundancy settings.")});
        QCOMPARE(user.boxes().first().icon, QMessageBox::Information);
        QCOMPARE(world.host.answers()->count(QStringLiteral("applyProcessorRedundancy")), 0);
        QCOMPARE(world.rows(), QStringLiteral("A>B|>C"));
        QVERIFY(world.user->apply()->isEnabled());
    }

    void aPairWithTooFewPortsIsToldAndStaysInTheTable()
    {
        SPairWorld world;
        const QUuid larger = world.host.addProcessor(QStringLiteral("E"), 3, 1);
        {
            const auto lock = world.host.answers();
            lock->maximumPorts = 2;
            for (const char name : {'A', 'C'})
                lock->layouts[world.keyOf(QLatin1Char(name))] = lock->layouts.value(larger);
        }
        world.open(QStringLiteral("AB")); // which the host has allowed
        world.user->drop(world.keyOf(QLatin1Char('C')), 1, 0);
        world.user->drop(world.keyOf(QLatin1Char('D')), 1, 1);
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        QTest::mouseClick(world.user->apply(), Qt::LeftButton);
        QCOMPARE(user.boxes().first().details,
                 QStringLiteral("D(10.0.0.3) has 2 output ports, but C(10.0.0.2) uses port 3."));
        QCOMPARE(world.host.answers()->count(QStringLiteral("applyProcessorRedundancy")), 0);
        QCOMPARE(world.rows(), QStringLiteral("A>B|C>D"));
    }

    void resetBringsBackWhatWasThereAtFirst()
    {
        SPairWorld world;
        world.open(QStringLiteral("AB"));
        QTest::mouseClick(world.user->tool("Clear"), Qt::LeftButton);
        world.host.answers()->redundancies.clear();
        QTest::mouseClick(world.user->apply(), Qt::LeftButton);
        QCOMPARE(world.rows(), QString());
        QTest::mouseClick(world.user->tool("Reset"), Qt::LeftButton);
        QCOMPARE(world.rows(), QStringLiteral("A>B"));
    }

    void aRefusalIsPassedOnAndTheTableTruthful()
    {
        SPairWorld world;
        world.open(QStringLiteral("AB"));
        world.host.answers()->refused << QStringLiteral("applyProcessorRedundancy");
        QTest::mouseClick(world.user->tool("Clear"), Qt::LeftButton);
        QSignalSpy applied(world.dialog.get(), &CBackupDialog::notifyApplied);
        QTest::mouseClick(world.user->apply(), Qt::LeftButton);
        QCOMPARE(applied.first().first().toString(), QStringLiteral("The processor does not answer."));
        QCOMPARE(world.rows(), QStringLiteral("A>B"));
    }

    void listsThePortsInViewFirst()
    {
        SPortWorld world;
        world.host.answers()->portPairs << world.pair(0, 0, 0, 2);
        world.host.answers()->portRefusals.insert(world.port(1, 3),
                                                  QStringLiteral("B: Output port 4 is locked."));
        world.open();
        const CBackupList &list = world.user->list();
        QCOMPARE(list.count(), 8);
        QCOMPARE(list.item(0)->text(), QStringLiteral("Port 1, B"));
        QVERIFY(!(list.item(3)->flags() & Qt::ItemIsEnabled));
        QVERIFY(list.item(3)->toolTip().endsWith(QLatin1String("Output port 4 is locked.")));
        QVERIFY(list.item(6)->icon().pixmap(16).toImage() != list.item(5)->icon().pixmap(16).toImage());
        QCOMPARE(world.user->rows(), QStringLiteral("Port 1, A>Port 3, A"));
    }

    void autoMatchTakesEmptyOrEqualPortsOfTheProcessor()
    {
        SPortWorld world;
        for (const bool equal : {false, true}) {
            if (equal) {
                auto lock = world.host.answers();
                QVector<CabinetLayout::CabinetPort> &ports =
                    lock->layouts[world.processors.at(1)].layout.ports;
                ports[1].groups = ports.at(0).groups;
            }
            world.open();
            QTest::mouseClick(world.user->tool("Auto match"), Qt::LeftButton);
            const QString rest = QStringLiteral("|Port 1, A>Port 3, A|Port 2, A>Port 4, A");
            QCOMPARE(world.user->rows(), (equal ? QStringLiteral("Port 1, B>Port 2, B")
                                                : QStringLiteral("Port 1, B>Port 3, B|Port 2, B>Port 4, B")) +
                                             rest);
        }
    }

    void asksBeforeCabinetsLoseTheirWiring()
    {
        SPortWorld world;
        for (const auto &[backup, answer, calls] :
             {std::tuple(1, "No", 0), std::tuple(1, "Yes", 2), std::tuple(2, "", 2)}) { // 2 is empty
            world.open();
            QTest::mouseClick(world.user->tool("Clear"), Qt::LeftButton);
            for (const int entry : {4, backup}) { // port 1 of the other processor
                world.user->list().setCurrentRow(entry);
                QTest::keyClick(&world.user->list(), Qt::Key_Return);
            }
            world.host.answers()->forgetCalls();
            const bool asked = *answer;
            const CMessageBoxAnswerer user(asked ? QStringList(QLatin1String(answer)) : QStringList());
            QTest::mouseClick(world.user->apply(), Qt::LeftButton);
            QCOMPARE(user.boxes().size(), asked ? 1 : 0);
            if (asked)
                QVERIFY(user.boxes().first().details.contains(QLatin1String("Port 2, B")));
            const QList<SPortPair> wanted{world.pair(0, 0, 1, backup)};
            QCOMPARE(world.host.answers()->portPairs, calls ? wanted : QList<SPortPair>());
            if (calls) // what is a pair already is not asked for again
                QTest::mouseClick(world.user->apply(), Qt::LeftButton);
            QCOMPARE(world.host.answers()->count(QStringLiteral("applyPortRedundancy")), calls);
        }
    }
};

ORVO_TEST_MAIN(QApplication, CBackupDialogsTest)
#include "tst_backup_dialogs.moc"
