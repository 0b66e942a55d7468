// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/plugin/CEditorCommands.h"
#include "layout/plugin/CMappingCommands.h"
#include "layout/plugin/CPortCommands.h"
#include "layout/plugin/CProcessorCommands.h"
#include "layout/settings/CCabinetParaSave.h"
#include "tests/harness/CFileDialogAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/plugin/SPageWorld.h"

#include <QMessageBox>
#include <QPushButton>

#include <thread>

namespace {

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
    CabinetLayout shown() const
    {
        CabinetLayout layout;
        scene().getLayoutData(layout, a);
        return layout;
    }
    CMappingCommands::Ended ended()
    {
        return [this](bool done) { ends << done; };
    }
};

struct SOperation
{
    const char *name;
    const char *call; ///< the one that changes something
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
        {"copy", "copyProcessorMapping", [](W &w) { w.processors.copyMapping(w.b, w.a); }},
        {"port redundancy", "setPortRedundancy", [](W &w) { w.ports.setRedundancy(0, 1); }},
        {"processor redundancy", "setProcessorRedundancy",
         [](W &w) { w.processors.setRedundancyFor(w.a, w.b); }},
        {"number of ports", "setOutputPortCount", [](W &w) { w.processors.setPortCount(w.a, 4); }},
        {"parameters", "sendCabinetParameters",
         [](W &w) { CCabinetParaSave(w.scene().selection().records(), {}, &w.page).accept(); }}};
    return all;
}

} // namespace

/// The editor while every single call of the host goes wrong.
class CHostFaultsTest final : public CTestBase
{
    Q_OBJECT

private:
    /// Lets the @p number-th call of the operation go wrong. False: there are fewer.
    static bool disturb(const SOperation &operation, int number, bool onward, QString &wrong)
    {
        SFaultWorld world;
        const CabinetLayout edited = world.shown();
        CPatientUser user;
        int count = 0;
        QString failed;
        world.answers()->fails = [&, here = std::this_thread::get_id()](const QString &call) {
            if (std::this_thread::get_id() != here || call == QLatin1String("lastError"))
                return false; // the hand-over has a thread of its own
            const bool fails = ++count == number || (onward && count > number);
            if (fails && failed != QLatin1String(operation.call))
                failed = call;
            return fails;
        };
        operation.run(world);
        world.answers()->fails = nullptr;
        if (failed.isEmpty())
            return false;
        const bool isTold = user.told.join(QLatin1Char(' ')).contains(world.answers()->error);
        if (world.shown() != edited)
            wrong = QStringLiteral("the layout is another one");
        else if (user.told.size() > 1)
            wrong = QStringLiteral("told: ") + user.told.join(QLatin1Char('|'));
        else if (failed == QLatin1String(operation.call) && !isTold)
            wrong = QStringLiteral("the failure is not told");
        world.store.syncLayoutData(true);
        if (world.answers()->layouts[world.a].layout.ports[2].groups != edited.ports[2].groups)
            wrong = QStringLiteral("the edit does not reach the host any more");
        wrong += wrong.isEmpty() ? QString() : QStringLiteral(" (call %1, %2)").arg(number).arg(failed);
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
        for (const bool onward : {false, true}) {
            QString wrong;
            int call = 1;
            while (wrong.isEmpty() && disturb(operations().at(number), call, onward, wrong))
                ++call;
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
            QVERIFY(call > 1);
        }
    }
};

ORVO_TEST_MAIN(QApplication, CHostFaultsTest)
#include "tst_host_faults.moc"
