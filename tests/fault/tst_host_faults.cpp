// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CLayoutSidePanel.h"
#include "layout/plugin/CEditorCommands.h"
#include "layout/plugin/CMappingCommands.h"
#include "layout/plugin/CPortCommands.h"
#include "layout/plugin/CProcessorCommands.h"
#include "layout/settings/CCabinetParaSave.h"
#include "platform/widgets/CMenuToolButton.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SPageWorld.h"

#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRandomGenerator>

#include <thread>

namespace {

constexpr int PairsOfEach = 6;
constexpr int AllPairsOfEach = 300;

int pairsOfEach()
{
    return qEnvironmentVariable("ORVO_FAULTS") == QLatin1String("all") ? AllPairsOfEach : PairsOfEach;
}

/// Says yes to each question, and notes what the user is told.
class CPatientUser final : public QObject
{
public:
    CPatientUser() { startTimer(0); }
    QStringList told; // each with its reason

protected:
    void timerEvent(QTimerEvent *) override
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || box == m_last)
            return;
        m_last = box;
        if (box->buttons().size() == 1)
            told << box->text() + QLatin1Char(' ') + box->informativeText();
        box->buttons().first()->click();
    }

private:
    QPointer<QMessageBox> m_last;
};

using Walls = QVector<QVector<CabinetLayout::CabinetPort::CabinetGroup>>;

Walls wallsOf(const CabinetLayout &layout)
{
    Walls walls;
    for (const CabinetLayout::CabinetPort &port : layout.ports)
        walls << port.groups;
    return walls;
}

/// An editor with an edit that was not handed over, and all that asks the host.
struct SFaultWorld final : SPageWorld
{
    CEditorCommands commands{store, view()};
    CPortCommands ports{store, commands.canvas(), view()};
    CMappingCommands mapping{store, page};
    CProcessorCommands processors{store, page};
    QVector<bool> ends;

    SFaultWorld()
    {
        view().onPortClicked(2, true);
        scene().selectedItemMoveDown();
    }
    /// The cabinets of each port, as they are on the screen and as the host has them.
    Walls shown() const
    {
        CabinetLayout layout;
        scene().getLayoutData(layout, a);
        return wallsOf(layout);
    }
    Walls handedOver()
    {
        store.syncLayoutData(true);
        return wallsOf(answers()->layouts[a].layout);
    }
    Walls ofTheOther() { return wallsOf(answers()->layouts[b].layout); }
    CMappingCommands::Ended ended()
    {
        return [this](bool done) { ends << done; };
    }
};

struct SOperation
{
    const char *name;
    const char *call; ///< the one that changes something; empty: it has no answer
    void (*run)(SFaultWorld &world);
};

const QVector<SOperation> &operations()
{
    using W = SFaultWorld;
    static const QVector<SOperation> all{
        {"read", "readMapping",
         [](W &w) { w.mapping.readMapping(ReadSaveMappingRole::Current, {}, w.ended()); }},
        {"save", "saveMapping", [](W &w) { w.mapping.saveMapping(ReadSaveMappingRole::All, w.ended()); }},
        {"import", "importProcessorMapping",
         [](W &w) {
             const CFileDialogAnswerer file(QStringLiteral(ORVO_ANY_FILE));
             w.processors.importMapping(w.a);
         }},
        {"import of a port", "importPortMapping",
         [](W &w) {
             const CFileDialogAnswerer file(QStringLiteral(ORVO_ANY_FILE));
             w.ports.importMapping(0);
         }},
        {"copy", "copyProcessorMapping", [](W &w) { w.processors.copyMapping(w.b, w.a); }},
        {"port redundancy", "setPortRedundancy", [](W &w) { w.ports.setRedundancy(0, 1); }},
        {"no port redundancy", "cancelPortRedundancy", [](W &w) { w.ports.cancelRedundancy(0); }},
        {"processor redundancy", "setProcessorRedundancy",
         [](W &w) { w.processors.setRedundancyFor(w.a, w.b); }},
        {"number of ports", "setOutputPortCount", [](W &w) { w.processors.setPortCount(w.a, 4); }},
        {"work mode", "setWorkMode", [](W &w) { w.processors.setBypassMode(); }},
        {"status light", "setCabinetStatusLed", [](W &w) { w.processors.setStatusLed(true); }},
        {"highlight", "setCabinetHighlight",
         [](W &w) {
             w.commands.highlight(w.scene().selection().records(), CabinetHighlight::FlashingBox, &w.page);
             QCoreApplication::processEvents(); // tells later
         }},
        {"parameters", "sendCabinetParameters",
         [](W &w) { CCabinetParaSave(w.scene().selection().records(), {}, &w.page).accept(); }},
        // These cannot be refused; what the host did not take comes with the next edit.
        {"lock", "", [](W &w) { w.store.setPortLocked(1, true); }},
        {"fills", "",
         [](W &w) {
             for (const int port : {0, 1, 2})
                 w.store.setPortColor(port, Qt::red);
         }},
        {"all locks", "", [](W &w) {
             w.store.setAllProcessorsLocked(true);
             if (!w.answers()->fails && !w.store.areAllProcessorsLocked())
                 w.ends << false;
         }}};
    return all;
}

} // namespace

/// The editor while every single call of the host goes wrong, or two of them do, or its answer comes late,
/// twice or never.
class CHostFaultsTest final : public CTestBase
{
    Q_OBJECT

private:
    /// What is wrong with further edits and the history; empty: nothing.
    static QString faultOfEdits(SFaultWorld &world)
    {
        world.store.setPortLocked(-1, false); // as the operation may have left it
        const Walls before = world.shown();
        world.view().onPortClicked(2, true);
        world.scene().selectedItemMoveRight();
        const Walls edited = world.shown();
        if (edited == before || world.handedOver() != edited)
            return QStringLiteral("an edit does not reach the host any more");
        for (const CabinetLayout::CabinetPort &port : world.answers()->layouts[world.a].layout.ports) {
            const CabinetLayout::CabinetPort known = world.store.port(port.index);
            if (port.locked != known.locked || port.color != known.color)
                return QStringLiteral("a lock or fill does not reach the host any more");
        }
        world.store.undoGroup().undo();
        if (world.shown() != before || world.handedOver() != before)
            return QStringLiteral("undo does not lead back");
        world.store.undoGroup().redo();
        return world.shown() == edited ? QString() : QStringLiteral("redo leads elsewhere");
    }

    static QString faultOfRepetition(SFaultWorld &world, CPatientUser &user, const SOperation &operation)
    {
        user.told.clear();
        world.ends.clear();
        operation.run(world);
        const bool refused = user.told.join(QString()).contains(world.answers()->error);
        return refused || user.told.size() > 1 || world.ends.contains(false)
                   ? QStringLiteral("does not work any more: ") + user.told.join(QLatin1Char('|'))
                   : QString();
    }

    /// Lets the calls of the operation go wrong whose numbers @p isFaulty has. False: there are none.
    static bool disturb(const SOperation &operation, const std::function<bool(int)> &isFaulty, QString &wrong)
    {
        SFaultWorld world;
        const Walls edited = world.shown();
        const Walls other = world.ofTheOther();
        CPatientUser user;
        int count = 0;
        QStringList failed;
        world.answers()->fails = [&, here = std::this_thread::get_id()](const QString &call) {
            if (std::this_thread::get_id() != here || call == QLatin1String("lastError"))
                return false; // the hand-over has a thread of its own
            const bool fails = isFaulty(++count);
            if (fails)
                failed << call;
            return fails;
        };
        operation.run(world);
        world.answers()->fails = nullptr;
        if (failed.isEmpty())
            return false;
        const bool isTold = user.told.join(QLatin1Char(' ')).contains(world.answers()->error);
        if (world.shown() != edited || world.ofTheOther() != other)
            wrong = QStringLiteral("a layout is another one");
        else if (user.told.size() > 1)
            wrong = QStringLiteral("told: ") + user.told.join(QLatin1Char('|'));
        else if (failed.contains(QLatin1String(operation.call)) && !isTold)
            wrong = QStringLiteral("the failure is not told");
        if (wrong.isEmpty())
            wrong = faultOfEdits(world);
        if (wrong.isEmpty())
            wrong = faultOfRepetition(world, user, operation);
        wrong += wrong.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(failed.join(QLatin1Char(' ')));
        return true;
    }

private Q_SLOTS:
    void nothingIsLostAndOneMessageTells_data()
    {
        QTest::addColumn<int>("number");
        for (int number = 0; number < operations().size(); ++number)
            QTest::newRow(operations().at(number).name) << number;
    }
    void nothingIsLostAndOneMessageTells()
    {
        QFETCH(int, number);
        const SOperation &operation = operations().at(number);
        int calls = 0;
        for (const bool onward : {false, true}) {
            int first = 1;
            const auto isFaulty = [&](int call) { return call == first || (onward && call > first); };
            QString wrong;
            while (wrong.isEmpty() && disturb(operation, isFaulty, wrong))
                ++first;
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
            QVERIFY(first > 1);
            calls = std::max(calls, first - 1);
        }
        QRandomGenerator random(13);
        for (int i = 0; i < pairsOfEach(); ++i) {
            const int one = random.bounded(calls) + 1;
            const int other = random.bounded(calls) + 1;
            QString wrong;
            disturb(
                operation, [=](int call) { return call == one || call == other; }, wrong);
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        }
    }

    void anAnswerMayComeLateOrTwice()
    {
        for (int kind = 0; kind < 8; ++kind) {
            const SOperation &operation = operations().at(kind % 2);
            SFaultWorld world;
            CPatientUser user;
            world.answers()->answerLater = true;
            world.answers()->answers = kind & 2 ? 2 : 1;
            operation.run(world);
            QVERIFY(world.ends.isEmpty());
            const Walls before = world.shown();
            world.scene().selectedItemMoveRight();
            const Walls edited = world.shown();
            const bool done = kind & 4;
            world.host.endWaiting(
                {done ? SDeviceOutcome::Done : SDeviceOutcome::Failed, world.answers()->error});
            QCOMPARE(world.ends, QVector<bool>{done});
            QCOMPARE(user.told.size(), 1);
            QCOMPARE(world.shown(), edited);
            world.store.undoGroup().undo();
            QCOMPARE(world.shown(), before);
            QCOMPARE(faultOfEdits(world), QString());
            world.answers()->answerLater = false;
            QCOMPARE(faultOfRepetition(world, user, operation), QString());
        }
    }

    void anAnswerThatNeverComesIsNotAwaitedForEver()
    {
        for (const char *text : {"Read", "Save"}) {
            SFaultWorld world;
            CPatientUser user;
            CLayoutSidePanel panel({world.store, world.mapping});
            panel.onCurrentProcessorChanged(world.answers()->getProcessorNode(world.a));
            CMenuToolButton *button = nullptr;
            for (auto *found : panel.findChildren<CMenuToolButton *>())
                button = found->text() == QLatin1String(text) ? found : button;
            world.answers()->answerLater = true;
            Q_EMIT button->notifyActionTriggered(button->menu()->actions().first());
            QVERIFY(!button->isEnabled());
            QCOMPARE(faultOfEdits(world), QString());
            for (const bool busy : {true, false}) {
                world.answers()->busy = busy;
                settle(world.host, world.store); // after a detection
                QCOMPARE(button->isEnabled(), !busy);
                QCOMPARE(user.told.size(), busy ? 0 : 1);
            }
            world.host.endWaiting({SDeviceOutcome::Done, {}}); // comes all the same
            QCOMPARE(user.told.size(), 1);
        }
    }
};

ORVO_TEST_MAIN(QApplication, CHostFaultsTest)
#include "tst_host_faults.moc"
