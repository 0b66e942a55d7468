// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CDeviceJob.h"
#include "host/devices/jobs/CJobRunner.h"
#include "host/devices/services/CMailbox.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

class CDeviceJobsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aFailureNamesTheProcessorAndKeepsTheLayout_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<QString>("reading");
        QTest::addColumn<QString>("saving");
        QTest::addColumn<bool>("online");
        const auto row = [](SimulationFault fault, const char *reading, const char *saving, bool online) {
            QTest::newRow(SSimulationFault::all().at(static_cast<int>(fault)).name)
                << static_cast<int>(fault) << QString::fromLatin1(reading) << QString::fromLatin1(saving)
                << online;
        };
        row(SimulationFault::Offline, "The processor is offline.", "The processor is offline.", false);
        row(SimulationFault::Silent, "The processor does not answer.", "The processor does not answer.",
            false);
        row(SimulationFault::Refuse, "The processor refused the request.",
            "The processor refused the request.", true);
        row(SimulationFault::Drop, "The connection was lost during the transfer.",
            "The connection was lost during the transfer.", true);
        row(SimulationFault::Damaged, "The transferred data arrived damaged.",
            "The transferred data arrived damaged.", true);
    }
    void aFailureNamesTheProcessorAndKeepsTheLayout()
    {
        QFETCH(int, fault);
        QFETCH(QString, reading);
        QFETCH(QString, saving);
        QFETCH(bool, online);
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        host.edit(lobby);
        const CabinetLayout edited = host.layoutOf(lobby);
        host.manager.simulate(lobby, static_cast<SimulationFault>(fault), true);

        const SDeviceOutcome read = host.read(lobby);
        QCOMPARE(read.result, SDeviceOutcome::Failed);
        QCOMPARE(read.text, QStringLiteral("Lobby(192.168.10.11): ") + reading);
        const SDeviceOutcome saved = host.save(lobby);
        QCOMPARE(saved.result, SDeviceOutcome::Failed);
        QCOMPARE(saved.text, QStringLiteral("Lobby(192.168.10.11): ") + saving);
        QVERIFY(host.layoutOf(lobby) == edited);
        QVERIFY(host.manager.table().isModified(lobby));
        QCOMPARE(host.handler.getProcessorNode(lobby).online, online);
        if (!online)
            QVERIFY(host.log.waitFor(22).endsWith(QLatin1String(" 0")));

        host.manager.simulate(lobby, static_cast<SimulationFault>(fault), false);
        QVERIFY(host.save(lobby).isDone());
        QVERIFY(!host.manager.table().isModified(lobby));
    }

    void aSavedMappingIsThereAfterARestart()
    {
        QTemporaryDir folder;
        CabinetLayout saved;
        {
            CDeviceFixture host(0, folder.path());
            host.edit(host.named("Main stage"), 3);
            QVERIFY(host.save(host.named("Main stage")).isDone());
            saved = host.layoutOf(host.named("Main stage"));
        }
        CDeviceFixture host(0, folder.path());
        QVERIFY(host.layoutOf(host.named("Main stage")) == saved);
        QVERIFY(!host.manager.table().isModified(host.named("Main stage")));
    }

    void asksBeforeItOverwritesAChangeFromElsewhere()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        host.edit(lobby);
        host.manager.simulate(lobby, SimulationFault::Changed, true);
        QStringList questions;
        bool onGuiThread = true;
        bool answer = false;
        host.manager.jobs().setConfirm([&](const QString &text) {
            onGuiThread = onGuiThread && QThread::currentThread() == qApp->thread();
            questions << text;
            return answer;
        });
        QCOMPARE(host.save(lobby).result, SDeviceOutcome::Cancelled);
        QVERIFY(host.manager.table().isModified(lobby));
        answer = true;
        QCOMPARE(host.save(lobby).result, SDeviceOutcome::Done);
        QVERIFY(!host.manager.table().isModified(lobby));
        QVERIFY(onGuiThread);
        QCOMPARE(questions.size(), 2);
        QVERIFY(questions.first().startsWith(QLatin1String("Lobby(192.168.10.11): The mapping was changed")));
        QCOMPARE(host.save(lobby).result, SDeviceOutcome::Done); // nothing left to ask
        QCOMPARE(questions.size(), 2);
    }

    void aReadTellsWhetherTheMappingIsTheSame()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        const QString id = lobby.toString(QUuid::WithoutBraces);
        QVERIFY(host.read(lobby).isDone());
        QCOMPARE(host.log.waitFor(29), QStringLiteral("29 %1 1").arg(id));
        const CabinetLayout before = host.layoutOf(lobby);
        host.edit(lobby);
        QVERIFY(host.read(lobby).isDone());
        QCOMPARE(host.log.waitFor(17), QStringLiteral("17 %1").arg(id));
        QCOMPARE(host.log.waitFor(29), QStringLiteral("29 %1 0").arg(id));
        QVERIFY(host.layoutOf(lobby) == before);
    }

    void aReadKeepsLockedPortsUnlessTheUserAgrees()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        LayoutData data = host.handler.layoutData(lobby);
        data.layout.ports[1].locked = true;
        host.handler.commitLayoutData(data);
        QVERIFY(host.save(lobby).isDone());
        host.edit(lobby, 1);
        host.edit(lobby, 2);
        const CabinetLayout edited = host.layoutOf(lobby);
        QVERIFY(host.read(lobby).isDone()); // nobody to ask: No
        QVERIFY(host.layoutOf(lobby).ports.at(1) == edited.ports.at(1));
        QVERIFY(host.layoutOf(lobby).ports.at(2) != edited.ports.at(2));
        host.manager.jobs().setConfirm([](const QString &) { return true; });
        QVERIFY(host.read(lobby).isDone());
        QVERIFY(!host.manager.table().isModified(lobby));
    }

    void anEditDuringAReadIsKept()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        LayoutData data = host.handler.layoutData(lobby);
        data.layout.ports[1].locked = true;
        host.handler.commitLayoutData(data);
        host.edit(lobby, 1); // so that the read stops for a question
        host.manager.jobs().setConfirm([&host, lobby](const QString &) {
            host.edit(lobby, 2);
            return true;
        });
        const SDeviceOutcome outcome = host.read(lobby);
        QCOMPARE(outcome.result, SDeviceOutcome::Failed);
        QVERIFY(outcome.text.contains(QLatin1String("was edited while the mapping was read")));
        QVERIFY(host.manager.table().isModified(lobby));
    }

    void savingAllGoesOnWhereOneFails()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        const QUuid stage = host.named("Main stage");
        host.edit(lobby);
        host.edit(stage);
        host.select(lobby);
        host.manager.simulate(lobby, SimulationFault::Refuse, true);
        const SDeviceOutcome outcome = host.outcomeOf([&](CDeviceJobs::Done done) {
            host.handler.saveMapping(ReadSaveMappingRole::All, host.handler.layoutData(lobby), done);
        });
        QCOMPARE(outcome.text, QStringLiteral("Lobby(192.168.10.11): The processor refused the request."));
        QVERIFY(host.manager.table().isModified(lobby));
        QVERIFY(!host.manager.table().isModified(stage));
    }

    void savingAllLeavesWhatWasNeverOpenedAlone()
    {
        CDeviceFixture host;
        const QUuid balcony = host.named("Balcony");
        const QUuid foyer = host.named("Foyer");
        QVERIFY(host.handler.setWorkMode(balcony, ProcessorWorkMode::VideoProcessor));
        QVERIFY(host.handler.setOutputPortCount(balcony, 6));
        host.select(foyer); // offline, so the module has nothing of it
        LayoutData nothing;
        nothing.processor = foyer;
        const quint64 revision = host.manager.table().device(balcony)->revision;
        const SDeviceOutcome outcome = host.outcomeOf([&](CDeviceJobs::Done done) {
            host.handler.saveMapping(ReadSaveMappingRole::All, nothing, done);
        });
        QVERIFY2(outcome.isDone(), qPrintable(outcome.text));
        for (const SDevice &device : host.manager.table().devices())
            QVERIFY2(!device.isModified(), qPrintable(device.node.name));
        CCancelToken token;
        quint64 kept = 0;
        QCOMPARE(host.manager.services().device(balcony)->revision(token, kept), DeviceError::None);
        QCOMPARE(kept, revision);
    }

    void whatTheModuleDoesNotKnowIsNotCommitted()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        const CabinetLayout before = host.layoutOf(lobby);
        LayoutData nothing;
        nothing.processor = lobby;
        host.handler.commitLayoutData(nothing);
        QVERIFY(host.layoutOf(lobby) == before);
        LayoutData foreign = host.handler.layoutData(lobby);
        foreign.processor = host.named("Balcony");
        host.handler.commitLayoutData(foreign);
        QVERIFY(!host.manager.table().isModified(foreign.processor));
    }

    void whatTheModuleHoldsIsFlushedBeforeAJob_data()
    {
        QTest::addColumn<QByteArray>("job");
        for (const char *job : {"read", "save", "detect"})
            QTest::newRow(job) << QByteArray(job);
    }
    void whatTheModuleHoldsIsFlushedBeforeAJob()
    {
        QFETCH(QByteArray, job);
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        int flushed = 0;
        host.manager.services().setFlush([&] {
            ++flushed;
            QVERIFY(!host.manager.jobs().current()); // else the job does not see what was edited
        });
        QVERIFY((job == "read"   ? host.read(lobby)
                 : job == "save" ? host.save(lobby)
                                 : host.detect())
                    .isDone());
        QCOMPARE(flushed, 1);
    }

    void runsOneJobAtATime()
    {
        CDeviceFixture host(0.2);
        int started = 0;
        connect(&host.manager.jobs(), &CDeviceJobs::notifyStarted, &host.manager.jobs(),
                [&started] { ++started; });
        host.manager.jobs().detect();
        QVERIFY(host.manager.jobs().current());
        const SDeviceOutcome second = host.detect();
        QCOMPARE(second.result, SDeviceOutcome::Failed);
        QCOMPARE(second.text,
                 QStringLiteral("\"Detect devices\" is running. Wait until it has ended, or cancel it."));
        const QList<QUuid> searched = host.manager.jobs().current()->processors();
        QVERIFY(host.handler.areProcessorsBusy(searched));
        QTRY_VERIFY(!host.manager.jobs().current());
        QVERIFY(!host.handler.areProcessorsBusy(searched));
        QCOMPARE(started, 1);
    }

    void cancelEndsAJobAndKeepsTheLayout()
    {
        CDeviceFixture host(2);
        const QUuid arena = host.detectAlone("Arena");
        host.edit(arena);
        const CabinetLayout edited = host.layoutOf(arena);
        host.manager.simulate(arena, SimulationFault::Slow, true);
        connect(&host.manager.jobs(), &CDeviceJobs::notifyStarted, &host.manager.jobs(), [](CDeviceJob *job) {
            connect(job, &CDeviceJob::notifyProgress, job, [job](int percent) {
                if (percent >= 10)
                    job->cancel();
            });
        });
        for (const auto &outcome : {host.save(arena), host.read(arena)}) {
            QCOMPARE(outcome.result, SDeviceOutcome::Cancelled);
            QVERIFY(outcome.text.isEmpty());
        }
        QVERIFY(host.layoutOf(arena) == edited);
        QVERIFY(host.manager.table().isModified(arena));
    }

    void stoppingEndsARunningJob_data()
    {
        QTest::addColumn<int>("fault");
        QTest::newRow("slow") << static_cast<int>(SimulationFault::Slow);
        QTest::newRow("silent") << static_cast<int>(SimulationFault::Silent);
        QTest::newRow("asking") << static_cast<int>(SimulationFault::Changed);
    }
    void stoppingEndsARunningJob()
    {
        QFETCH(int, fault);
        CDeviceFixture host(2);
        const QUuid lobby = host.detectAlone("Lobby");
        host.edit(lobby);
        host.manager.simulate(lobby, static_cast<SimulationFault>(fault), true);
        int asked = 0;
        host.manager.jobs().setConfirm([&asked](const QString &) { return ++asked > 0; });
        QList<SDeviceOutcome::Result> results;
        host.manager.jobs().saveMapping(
            {lobby}, [&results](const SDeviceOutcome &outcome) { results << outcome.result; });
        QElapsedTimer timer;
        timer.start();
        host.manager.stop();
        QVERIFY(timer.elapsed() < 5000); // the job would take longer
        QCOMPARE(results, QList<SDeviceOutcome::Result>{SDeviceOutcome::Cancelled});
        QCOMPARE(asked, 0);
        QVERIFY(!host.manager.jobs().current());
        host.manager.jobs().saveMapping(
            {lobby}, [&results](const SDeviceOutcome &outcome) { results << outcome.result; });
        QCOMPARE(results.last(), SDeviceOutcome::Failed); // nothing starts any more
    }

    void whatEndsWhileStoppingCountsAsCancelled()
    {
        CMailbox mailbox;
        CJobRunner jobs(mailbox);
        QList<SDeviceOutcome::Result> results;
        const auto fail = [](const SJobContext &) {
            return SDeviceOutcome{SDeviceOutcome::Failed, QStringLiteral("not worth a message any more")};
        };
        jobs.start(
            std::make_unique<CDeviceJob>(CDeviceJob::SaveMapping, QStringLiteral("Save"), QList<QUuid>()),
            fail, [&results](const SDeviceOutcome &outcome) { results << outcome.result; });
        jobs.stop();
        QCOMPARE(results, QList<SDeviceOutcome::Result>{SDeviceOutcome::Cancelled});
    }

    void aRealtimeReadWaitsForTheRunningJob()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        SMappingOptions options;
        options.realtime = true;
        host.outcomeOf([&](CDeviceJobs::Done done) {
            host.manager.jobs().readMapping({lobby}, options, std::move(done));
        });
        const CabinetLayout before = host.layoutOf(lobby);
        host.manager.jobs().saveMapping({host.named("Arena")});
        QVERIFY(host.manager.jobs().current());
        host.manager.simulate(lobby, SimulationFault::Changed, true);
        QTRY_VERIFY(host.layoutOf(lobby) != before);
        QTRY_VERIFY(!host.manager.jobs().current());
    }

    void aRealtimeReadLeavesUnsavedEditsAlone()
    {
        CDeviceFixture host;
        const QUuid lobby = host.named("Lobby");
        SMappingOptions options;
        options.realtime = true;
        host.outcomeOf([&](CDeviceJobs::Done done) {
            host.manager.jobs().readMapping({lobby}, options, std::move(done));
        });
        bool held = true; // by the module
        host.manager.services().setFlush([&] {
            if (std::exchange(held, false))
                host.edit(lobby);
        });
        host.manager.simulate(lobby, SimulationFault::Changed, true);
        QVERIFY(!host.manager.jobs().current());
        QVERIFY(host.manager.table().isModified(lobby));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CDeviceJobsTest)
#include "tst_device_jobs.moc"
