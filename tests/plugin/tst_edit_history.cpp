// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/access/ModuleSettings.h"
#include "layout/editor/content/CHighlights.h"
#include "layout/editor/history/CEditHistory.h"
#include "layout/editor/history/CPortDelta.h"
#include "layout/editor/items/IItemMouse.h"
#include "layout/panels/CHistoryLabel.h"
#include "tests/harness/CKeptSteps.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CNotedWords.h"
#include "tests/harness/CTestBase.h"
#include "tests/panels/SUnitWorld.h"
#include "tests/plugin/SPageWorld.h"

#include <QApplication>
#include <QListView>
#include <QUndoStack>

namespace {

/// The page with what the host keeps of its edits, and the list of steps.
struct SHistoryWorld final : SPageWorld
{
    CNotedMappingCommands mapping;
    CHistoryLabel list{{store, mapping}};

    SHistoryWorld()
    {
        QObject::connect(&view(), &CLayoutGraphicsView::notifyHistoryChanged, &list,
                         &CHistoryLabel::showHistory);
        QObject::connect(&list, &CHistoryLabel::notifyStepChosen, &view(),
                         &CLayoutGraphicsView::onStepChosen);
        list.showHistory(&stack(), view().history()->beginning(), view().history()->savedRows());
    }
    CabinetLayout layout() const
    {
        CabinetLayout layout;
        scene().getLayoutData(layout, a);
        return layout;
    }
    QVector<SEditRecord> records() { return host.answers()->records; }
    QVector<SEditRecord> takeRecords() { return std::exchange(host.answers()->records, {}); }
    QUndoStack &stack() const { return view().history()->stack(); }
    /// Moves everything of a port.
    void nudge(int port)
    {
        scene().clearSelection();
        view().onPortClicked(port, true);
        scene().selectedItemMoveDown();
    }
    /// What a host would have kept of all that was recorded.
    SEditHistory kept(const CabinetLayout &before)
    {
        CKeptSteps steps(before);
        for (const SEditRecord &record : records())
            steps.take(record);
        return steps.history();
    }
    QStringList rows() const
    {
        const QAbstractItemModel *model = list.findChild<QListView *>()->model();
        QStringList rows;
        for (int i = 0; i < model->rowCount(); ++i)
            rows << model->index(i, 0).data().toString();
        return rows;
    }
    int markedRow() const { return list.findChild<QListView *>()->currentIndex().row(); }
    void choose(int row)
    {
        QListView &view = *list.findChild<QListView *>();
        Q_EMIT view.clicked(view.model()->index(row, 0));
    }
};

} // namespace

class CEditHistoryTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void stepsAreNamedInWords()
    {
        SHistoryWorld world;
        world.view().onPortClicked(0, true);
        world.scene().topologyWiring(3);
        world.scene().breakSelectedWiring();
        world.view().onNotifySelectedCabinetPositionChanged({5, 5});
        QCOMPARE(world.rows().mid(1), (QStringList{QStringLiteral("Wire by a pattern"),
                                                   QStringLiteral("Clear topology of the selection"),
                                                   QStringLiteral("Change position")}));
    }

    void aStepLeadsNowhereFromAnotherLayout()
    {
        SHistoryWorld world;
        const CabinetLayout before = world.layout();
        world.nudge(1);
        const CabinetLayout after = world.layout();
        CPortDelta delta({before.ports.at(1), after.ports.at(1)});
        delta.compact();
        QVERIFY(delta.groups(CPortDelta::Before, after.ports.at(1).groups));
        QVERIFY(!delta.groups(CPortDelta::Before, before.ports.at(1).groups)); // as many cabinets
    }

    void theHostGetsEachEditAtOnce()
    {
        SHistoryWorld world;
        const CabinetLayout before = world.layout();
        world.nudge(1);
        world.nudge(1);
        world.scene().undo(nullptr);
        const QVector<SEditRecord> records = world.takeRecords();
        QCOMPARE(records.size(), 3);
        for (const SEditRecord &record : records) {
            QCOMPARE(record.processor, world.a);
            QCOMPARE(record.saved, 0);
            QCOMPARE(record.step.ports.size(), 1);
        }
        QCOMPARE(records.at(0).kind, SEditRecord::Done);
        QCOMPARE(records.at(0).index, 1);
        QCOMPARE(records.at(0).step.text, QStringLiteral("Move"));
        QCOMPARE(records.at(0).step.ports.first().before, before.ports.at(1));
        QCOMPARE(records.at(0).step.ports.first().after.groups, world.layout().ports.at(1).groups);
        QCOMPARE(records.at(1).index, 2);
        QCOMPARE(records.at(2).kind, SEditRecord::Moved);
        QCOMPARE(records.at(2).index, 1);
        QCOMPARE(records.at(2).step.ports.first().before.groups,
                 records.at(1).step.ports.first().after.groups);
        world.store.flushEdits();
        const QStringList calls = world.answers()->calls();
        QVERIFY(calls.indexOf(QRegularExpression(QStringLiteral("recordEdit.*"))) <
                calls.indexOf(QRegularExpression(QStringLiteral("commitLayoutData.*"))));
        world.scene().selectAllItem(); // none of these is a step
        world.store.setPortLocked(0, true);
        world.store.setPortColor(1, Qt::red);
        world.store.flushEdits();
        QCOMPARE(world.records().size(), 0);
    }

    void aDragIsRecordedWhenItEnds()
    {
        SHistoryWorld world;
        world.view().onPortClicked(0, true);
        IItemMouse &mouse = *world.scene().backend().mouse();
        mouse.beginMove({10, 10});
        mouse.continueDrag({60, 60}, Qt::AltModifier);
        world.store.flushEdits();
        QCOMPARE(world.records().size(), 0);
        mouse.endDrag({60, 60});
        QCOMPARE(world.records().size(), 1);
    }

    void whatTheHostReplacesIsAStep()
    {
        SHistoryWorld world;
        const CabinetLayout before = world.layout();
        CabinetLayout &replaced = world.answers()->layouts[world.a].layout;
        replaced.ports[2].groups[0].cabinets[0].rect.translate(500, 0);
        const CabinetLayout after = replaced;
        world.host.notify(LayoutNotification::LayoutReplaced, world.a);
        QTRY_COMPARE(world.records().size(), 1);
        const SEditRecord record = world.takeRecords().first();
        QCOMPARE(record.kind, SEditRecord::Done);
        QCOMPARE(record.step.text, QStringLiteral("Reset"));
        QCOMPARE(record.step.ports.size(), 1);
        QCOMPARE(record.step.ports.first().before.groups, before.ports.at(2).groups);
        QVERIFY(LayoutData::comparePortData(record.step.ports.first().after, after.ports.at(2), true));
        world.answers()->layouts[world.a].layout.ports.removeLast(); // other ports
        world.host.notify(LayoutNotification::LayoutReplaced, world.a);
        QTRY_COMPARE(world.records().size(), 1);
        QCOMPARE(world.records().first().kind, SEditRecord::Cleared);
    }

    void anEditDuringAReplacementIsTold_data()
    {
        QTest::addColumn<QString>("edit");
        QTest::addColumn<bool>("samePorts");
        QTest::addColumn<QString>("told");
        const QString undo = QStringLiteral("undo leads back to it.");
        QTest::addRow("none") << QString() << true << QString();
        QTest::addRow("not handed over yet") << QStringLiteral("before") << true << undo;
        QTest::addRow("of the old layout") << QStringLiteral("after") << true << undo;
        QTest::addRow("not to be undone") << QStringLiteral("before") << false << QStringLiteral("is lost.");
        QTest::addRow("a lock and a colour") << QStringLiteral("look") << true << QString(); // are kept
    }

    void anEditDuringAReplacementIsTold()
    {
        QFETCH(const QString, edit);
        QFETCH(const bool, samePorts);
        QFETCH(const QString, told);
        SHistoryWorld world;
        const CNotedWords noted(world.view());
        CabinetLayout edited;
        const auto nudge = [&world, &edited] {
            world.nudge(0);
            edited = world.layout();
        };
        if (edit == QLatin1String("before"))
            nudge();
        CabinetLayout &replaced = world.answers()->layouts[world.a].layout;
        replaced.ports[2].groups[0].cabinets[0].rect.translate(500, 0);
        if (!samePorts)
            replaced.ports.removeLast();
        const CabinetLayout imported = replaced;
        world.host.notify(LayoutNotification::LayoutReplaced, world.a);
        if (edit == QLatin1String("after"))
            nudge();
        const bool look = edit == QLatin1String("look");
        if (look) {
            world.store.setPortLocked(0, true);
            world.store.setPortColor(1, Qt::red);
        }
        QTRY_COMPARE(world.rows().size(),
                     (samePorts ? 2 : 1) + (samePorts && !edited.ports.isEmpty() ? 1 : 0));
        if (edit.isEmpty()) { // what the first replacement has changed is not the user's
            world.answers()->layouts[world.a].layout.ports[1].groups[0].cabinets[0].rect.translate(0, 50);
            world.host.notify(LayoutNotification::LayoutReplaced, world.a);
            QTRY_COMPARE(world.rows().size(), 3);
        }
        QCOMPARE(world.store.isPortLocked(0), look);
        QCOMPARE(world.store.portColor(1) == Qt::red, look);
        QCOMPARE(world.answers()->layouts[world.a].layout.ports.last().groups, imported.ports.last().groups);
        const QString words = noted.words.join(QLatin1Char(' '));
        QCOMPARE(words.isEmpty(), told.isEmpty());
        QVERIFY2(words.endsWith(told), qPrintable(words));
        const QString name = world.answers()->getProcessorNode(world.a).name;
        QVERIFY2(told.isEmpty() || words.contains(QStringLiteral("edit of %1 came").arg(name)),
                 qPrintable(words));
        if (!told.startsWith(QLatin1String("undo")))
            return;
        world.scene().undo(nullptr);
        QCOMPARE(world.layout(), edited);
    }

    void aLayoutChangedOutOfViewClearsTheHistory()
    {
        SHistoryWorld world;
        world.nudge(0);
        world.open(world.b);
        world.open(world.a);
        QCOMPARE(world.stack().count(), 1);
        world.nudge(0); // goes on where it was
        QCOMPARE(world.takeRecords().last().index, 2);
        world.open(world.b);
        world.answers()->layouts[world.a].layout.ports[0].groups[0].cabinets[0].rect.translate(500, 0);
        world.answers()->unsaved[world.a].cabinets = true;
        world.open(world.a);
        QCOMPARE(world.records().size(), 1);
        QCOMPARE(world.records().first().kind, SEditRecord::Cleared);
        QCOMPARE(world.records().first().saved, -1);
    }

    void aRestoredHistoryObeysTheSameLaw()
    {
        SHistoryWorld earlier;
        const CabinetLayout first = earlier.layout();
        earlier.nudge(0);
        earlier.scene().backend().operations().group();
        earlier.nudge(1);
        const CabinetLayout last = earlier.layout();
        earlier.scene().undo(nullptr);

        SHistoryWorld world;
        world.answers()->layouts[world.b].layout = earlier.layout();
        world.answers()->layouts[world.b].layout.processor = world.b;
        world.answers()->histories[world.b] = earlier.kept(first);
        world.answers()->histories[world.b].dropped = 7;
        world.answers()->unsaved[world.b].cabinets = true;
        world.open(world.b);
        const auto shown = [&world] {
            CabinetLayout layout;
            world.scene().getLayoutData(layout, world.b);
            return layout.ports;
        };
        QCOMPARE(world.rows(),
                 QStringList({QStringLiteral(
                                  "7 older steps were dropped; limit in \"File > Settings\": 256 MB (saved)"),
                              QStringLiteral("Move"), QStringLiteral("Group"), QStringLiteral("Move")}));
        QCOMPARE(world.markedRow(), 2);
        world.store.setPortLocked(0, true);
        {
            CMessageBoxAnswerer user({QStringLiteral("OK")});
            world.choose(0);
            QVERIFY2(user.texts().first().startsWith(QStringLiteral("Port 1 is locked and cannot be undone")),
                     qPrintable(user.texts().first()));
        }
        QCOMPARE(world.markedRow(), 2);
        world.scene().redo(nullptr); // of another port
        QCOMPARE(shown()[1].groups, last.ports[1].groups);
        QCOMPARE(world.scene().selection().count(), 4); // the cabinets that differ
        world.store.setPortLocked(0, false);
        world.nudge(2);
        world.choose(0);
        for (int port = 0; port < 3; ++port)
            QCOMPARE(shown()[port].groups, first.ports[port].groups);
        QCOMPARE(world.takeRecords().last().index, 0);
        world.choose(3);
        for (int port = 0; port < 3; ++port)
            QCOMPARE(shown()[port].groups, last.ports[port].groups);
    }

    void rowsThatAreAsSavedSaySo()
    {
        SHistoryWorld world;
        const auto mark = [&world](quint64 saved, bool cabinets, bool settings) {
            world.answers()->unsaved[world.a] = {saved, cabinets, settings};
            world.host.notify(LayoutNotification::UnsavedEditsChanged, world.a);
        };
        const auto marks = [&world] {
            QString all;
            for (const QString &row : world.rows())
                all += QLatin1Char(row.endsWith(QLatin1String(" (saved)")) ? '+' : '-');
            return all;
        };
        QCOMPARE(marks(), QStringLiteral("+"));
        world.answers()->unsaved[world.a].cabinets = true;
        world.nudge(0);
        world.nudge(1);
        QTRY_COMPARE(world.answers()->count(QStringLiteral("commitLayoutData")), 1);
        QCOMPARE(marks(), QStringLiteral("+--"));
        mark(0, true, true); // locked
        QTRY_COMPARE(marks(), QStringLiteral("---"));
        mark(0, false, false); // unlocked, and the layout is as it was at first
        QTRY_COMPARE(marks(), QStringLiteral("+-+"));
        mark(1, false, false); // saved again
        settle(world.host, world.store);
        QCoreApplication::processEvents();
        QCOMPARE(marks(), QStringLiteral("+-+"));
        world.view().onStepChosen(1);
        QCOMPARE(world.takeRecords().last().saved, 2);
        mark(1, true, false);
        world.nudge(2); // instead of the last step
        QTRY_COMPARE(marks(), QStringLiteral("+--"));
        mark(2, true, false); // something else was saved
        QTRY_COMPARE(marks(), QStringLiteral("---"));
        world.view().onStepChosen(0);
        QCOMPARE(world.takeRecords().last().saved, -1);
    }

    void theMarkComesBackWithTheProcessor()
    {
        SHistoryWorld world;
        world.nudge(0);
        world.scene().undo(nullptr);
        world.open(world.b);
        world.answers()->unsaved[world.a].settings = true; // while another one was in view
        world.open(world.a);
        QCOMPARE(world.rows().first(), QStringLiteral("Beginning"));
        world.open(world.b);
        world.answers()->unsaved[world.a].settings = false;
        world.open(world.a);
        QCOMPARE(world.rows().first(), QStringLiteral("Beginning (saved)"));
    }

    void aHistoryComesWithALayoutThatTheHostRestores()
    {
        SHistoryWorld world;
        const CabinetLayout before = world.layout();
        SEditStep step{QStringLiteral("Move"), {{before.ports[0], before.ports[0]}}};
        step.ports[0].after.groups[0].cabinets[1].rect.translate(0, 500);
        world.answers()->layouts[world.a].layout.ports[0] = step.ports[0].after;
        world.answers()->histories[world.a] = CKeptSteps::historyOf({step}, 1);
        world.answers()->histories[world.a].dropped = 12;
        world.answers()->unsaved[world.a].cabinets = true;
        world.host.notify(LayoutNotification::LayoutReplaced, world.a);
        QTRY_COMPARE(
            world.rows(),
            QStringList({QStringLiteral("12 older steps were dropped; limit in \"File > Settings\": 256 MB"),
                         QStringLiteral("Move")}));
        world.view().history()->setLimit(32 * 1024 * 1024);
        QVERIFY(world.rows().first().endsWith(QStringLiteral("32 MB")));
        QCOMPARE(world.records().size(), 0);
        const auto cabinets = [&world] {
            return world.scene().backend().content().portItem(0)->cabinets(nullptr);
        };
        for (CGraphicsCabinetItem *cabinet : cabinets())
            cabinet->setHighlighted(true);
        world.scene().undo(nullptr);
        for (const CGraphicsCabinetItem *cabinet : cabinets()) // only the one that was edited has lost it
            QCOMPARE(cabinet->isHighlighted(), cabinet->uuid() != before.ports[0].groups[0].cabinets[1].uuid);
        world.scene().backend().highlights().clear();
        QCOMPARE(world.layout().ports[0].groups, before.ports[0].groups);
        QCOMPARE(world.records().last().kind, SEditRecord::Moved);
    }

    void aHistoryThatDoesNotFitIsDropped()
    {
        SHistoryWorld world;
        const SEditStep wrong{QStringLiteral("Move"), {{world.layout().ports[0], world.layout().ports[1]}}};
        world.answers()->histories[world.b] = CKeptSteps::historyOf({wrong}, 1);
        const CNotedWords noted(world.view());
        world.open(world.b);
        QCOMPARE(world.records().size(), 1);
        QCOMPARE(world.records().first().kind, SEditRecord::Cleared);
        QCOMPARE(world.records().first().processor, world.b);
        QVERIFY(noted.words.join(QLatin1Char(' ')).contains(QStringLiteral("was dropped")));
        QCOMPARE(world.rows(), QStringList({QStringLiteral("Beginning (saved)")}));
    }

    void aNewLimitOfTheSettingsCountsAtOnce()
    {
        SHistoryWorld world;
        for (int i = 0; i < 4; ++i)
            world.nudge(i % 3);
        CEditHistory &history = *world.view().history();
        history.setLimit(1);
        ModuleSettings::open().setValue(QStringLiteral("history/limitMegabytes"), 1);
        world.page.applySettings(); // before there was time to drop steps
        ModuleSettings::open().remove(QStringLiteral("history"));
        QTRY_VERIFY(history.isTidy());
        QCOMPARE(history.stack().count(), 4);
    }

    void theOldestStepsGoBeyondTheLimit()
    {
        SHistoryWorld world;
        for (int i = 0; i < 40; ++i)
            world.nudge(i % 3);
        const CabinetLayout last = world.layout();
        CEditHistory &history = *world.view().history();
        QTRY_VERIFY(history.isTidy());
        const qint64 limit = history.bytes() / 10;
        history.setLimit(limit);
        QTRY_VERIFY(history.isTidy());
        const int left = history.stack().count();
        QVERIFY2(left > 2 && left < 40, qPrintable(QString::number(left)));
        QVERIFY(history.bytes() <= limit);
        QVERIFY(world.rows().first().startsWith(QStringLiteral("%1 older steps were").arg(40 - left)));
        QCOMPARE(world.layout(), last);
        world.takeRecords();
        world.nudge(0);
        QCOMPARE(world.records().last().dropped, 40 - left);
        QCOMPARE(world.records().last().index, left + 1);
        QCOMPARE(world.records().last().saved, -1);
        world.nudge(0);
        QCOMPARE(world.records().last().dropped, 0);
        world.choose(left - 3);
        world.choose(left);
        QCOMPARE(world.layout(), last);
        history.setLimit(1); // cannot be reached
        QTRY_VERIFY(history.isTidy());
        QCOMPARE(history.stack().count(), 2); // those that were undone stay
    }
};

ORVO_TEST_MAIN(QApplication, CEditHistoryTest)
#include "tst_edit_history.moc"
