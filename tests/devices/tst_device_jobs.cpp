// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CDeviceJob.h"
#include "host/devices/jobs/CJobRunner.h"
#include "host/devices/services/CMailbox.h"
#include "host/devices/simulated/CProcessorCodec.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"

#include <atomic>

namespace {

using Results = QList<SDeviceOutcome::Result>;

CDeviceJobs::Done into(Results &results)
{
    return [&results](const SDeviceOutcome &outcome) { results << outcome.result; };
}

SDeviceOutcome readInRealtime(CDeviceFixture &host)
{
    SMappingOptions options;
    options.realtime = true;
    return host.outcomeOf([&](CDeviceJobs::Done done) {
        host.manager.jobs().readMapping({host.lobby}, options, std::move(done));
    });
}

SDeviceOutcome saveAll(CDeviceFixture &host, const LayoutData &data)
{
    return host.outcomeOf([&](CDeviceJobs::Done done) {
        host.handler.saveMapping(ReadSaveMappingRole::All, data, std::move(done));
    });
}

/// Hands over what was edited just before the host has replaced the layout.
class CHastyEditor final : public CObserver
{
public:
    CHastyEditor(CDeviceFixture &host, const LayoutData &before, bool edits)
        : m_host(host)
        , m_edited(before)
    {
        m_edited.layout.ports[0].groups[0].cabinets[0].rect.translate(edits ? 8 : 0, 0);
        m_edited.layout.ports[1].locked = true;
        m_host.manager.announcer().subject().attach(*this);
    }
    ~CHastyEditor() override { m_host.manager.announcer().subject().detach(*this); }
    void Update(CSubject &subject) override
    {
        if (subject.code() != int(LayoutNotification::LayoutReplaced))
            return;
        wasUnannounced = m_host.handler.unsavedEdits(m_edited.processor).unannounced;
        m_host.handler.setPortLocked(m_edited.processor, 1, true);
        m_host.handler.setPortColor(m_edited.processor, -1, Qt::red);
        m_host.handler.commitLayoutData(m_edited);
        hasHandedOver = true;
    }

    std::atomic<bool> hasHandedOver{false};
    std::atomic<bool> wasUnannounced{false};

private:
    CDeviceFixture &m_host;
    LayoutData m_edited;
};

} // namespace

/// How mappings are read and saved, one job at a time.
class CDeviceJobsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aFailureNamesTheProcessorAndKeepsTheLayout()
    {
        CDeviceFixture host;
        host.edit(host.lobby);
        host.manager.jobs().setConfirm([](const QString &) { return true; }); // to read over edits
        const CabinetLayout edited = host.layoutOf(host.lobby);
        using Fault = SimulationFault;
        const std::pair<Fault, DeviceError> rows[] = {{Fault::Offline, DeviceError::Offline},
                                                      {Fault::Silent, DeviceError::NoAnswer},
                                                      {Fault::Refuse, DeviceError::Refused},
                                                      {Fault::Drop, DeviceError::ConnectionLost},
                                                      {Fault::Damaged, DeviceError::Damaged}};
        for (const auto &[fault, error] : rows) {
            host.manager.services().setOnline(host.lobby, true);
            host.manager.simulate(host.lobby, fault, true);
            for (const SDeviceOutcome &outcome : {host.read(host.lobby), host.save(host.lobby)}) {
                QCOMPARE(outcome.result, SDeviceOutcome::Failed);
                QCOMPARE(outcome.text, QStringLiteral("Lobby(192.168.10.11): ") + deviceErrorText(error));
            }
            QVERIFY(host.layoutOf(host.lobby) == edited);
            QVERIFY(host.manager.table().isModified(host.lobby));
            const bool silent = fault == Fault::Offline || fault == Fault::Silent;
            QCOMPARE(host.handler.getProcessorNode(host.lobby).online, !silent);
            host.manager.simulate(host.lobby, fault, false);
        }
        QVERIFY(host.log.waitFor(22).endsWith(QLatin1String(" 0")));
        QVERIFY(host.save(host.lobby).isDone());
        QVERIFY(host.log.waitFor(30).startsWith(QLatin1String("30 "))); // only now
        QVERIFY(!host.manager.table().isModified(host.lobby));
    }

    void asksBeforeItOverwritesAChangeFromElsewhere()
    {
        CDeviceFixture host;
        host.edit(host.lobby);
        host.manager.simulate(host.lobby, SimulationFault::Changed, true);
        int questions = 0;
        bool answer = false;
        host.manager.jobs().setConfirm([&](const QString &text) {
            questions += QThread::currentThread() == qApp->thread() &&
                         text.startsWith(QLatin1String("Lobby(192.168.10.11): The mapping was changed"));
            return answer;
        });
        QCOMPARE(host.save(host.lobby).result, SDeviceOutcome::Cancelled);
        QVERIFY(host.manager.table().isModified(host.lobby));
        answer = true;
        for (int i = 0; i < 2; ++i) { // the second time there is nothing left to ask
            QCOMPARE(host.save(host.lobby).result, SDeviceOutcome::Done);
            QVERIFY(!host.manager.table().isModified(host.lobby));
            QCOMPARE(questions, 2);
        }
    }

    void aReadTellsWhetherTheMappingIsTheSame()
    {
        CDeviceFixture host;
        const QString id = CDeviceFixture::idOf(host.lobby);
        QVERIFY(host.read(host.lobby).isDone());
        QCOMPARE(host.log.waitFor(29), QStringLiteral("29 %1 1").arg(id));
        const CabinetLayout before = host.layoutOf(host.lobby);
        host.edit(host.lobby);
        host.manager.jobs().setConfirm([](const QString &) { return true; }); // to read over edits
        QVERIFY(host.read(host.lobby).isDone());
        QCOMPARE(host.log.waitFor(17), QStringLiteral("17 %1").arg(id));
        QCOMPARE(host.log.waitFor(29), QStringLiteral("29 %1 0").arg(id));
        QVERIFY(host.layoutOf(host.lobby) == before);
    }

    void aReadTellsThatEditsAreSaved()
    {
        CDeviceFixture host;
        host.edit(host.lobby);
        host.manager.jobs().setConfirm([](const QString &) { return true; }); // to read over edits
        host.manager.simulate(host.lobby, SimulationFault::LostAnswer, true);
        CCancelToken token;
        quint64 revision = host.manager.table().device(host.lobby)->revision;
        const QByteArray edited =
            CProcessorCodec::encode(SProcessorMapping{host.layoutOf(host.lobby), revision});
        QCOMPARE(host.manager.services()
                     .device(host.lobby)
                     ->saveMapping(
                         token, [](int) {}, edited, revision),
                 DeviceError::NoAnswer);
        host.manager.simulate(host.lobby, SimulationFault::LostAnswer, false);
        const QString told = QStringLiteral("30 ") + CDeviceFixture::idOf(host.lobby);
        QCOMPARE(host.log.waitFor(30), told);
        QVERIFY(host.manager.table().isModified(host.lobby));
        QVERIFY(host.read(host.lobby).isDone());
        QVERIFY(!host.manager.table().isModified(host.lobby));
        QCOMPARE(host.log.waitFor(30), told);
    }

    void aReadKeepsLockedPortsUnlessTheUserAgrees()
    {
        CDeviceFixture host;
        host.lockPort(host.lobby, 1);
        QVERIFY(host.save(host.lobby).isDone());
        host.edit(host.lobby, 1);
        host.edit(host.lobby, 2);
        const CabinetLayout edited = host.layoutOf(host.lobby);
        host.manager.jobs().setConfirm(
            [](const QString &text) { return !text.contains(QLatin1String("has been locked")); });
        QVERIFY(host.read(host.lobby).isDone());
        QVERIFY(host.layoutOf(host.lobby).ports.at(1) == edited.ports.at(1));
        QVERIFY(host.layoutOf(host.lobby).ports.at(2) != edited.ports.at(2));
        host.manager.jobs().setConfirm([&](const QString &) {
            host.edit(host.lobby, 3); // meanwhile
            return true;
        });
        const SDeviceOutcome outcome = host.read(host.lobby);
        QCOMPARE(outcome.result, SDeviceOutcome::Failed);
        QVERIFY(outcome.text.contains(QLatin1String("was edited while the mapping was read")));
        QVERIFY(host.manager.table().isModified(host.lobby));
        host.manager.jobs().setConfirm([](const QString &) { return true; });
        QVERIFY(host.read(host.lobby).isDone());
        QVERIFY(!host.manager.table().isModified(host.lobby));
    }

    void aReadAsksBeforeItReplacesEdits()
    {
        CDeviceFixture host;
        host.edit(host.lobby);
        const CabinetLayout edited = host.layoutOf(host.lobby);
        for (const bool agreed : {false, true}) {
            QStringList questions;
            host.manager.jobs().setConfirm([&](const QString &text) {
                questions << text;
                return agreed;
            });
            QCOMPARE(host.read(host.lobby).result, agreed ? SDeviceOutcome::Done : SDeviceOutcome::Cancelled);
            QCOMPARE(questions.size(), 1);
            QVERIFY(questions.first().startsWith(QLatin1String("Lobby(")));
            QCOMPARE(host.layoutOf(host.lobby) == edited, !agreed);
        }
    }

    void savingAllGoesOnWhereOneFails()
    {
        CDeviceFixture host;
        host.edit(host.lobby);
        host.edit(host.stage);
        host.select(host.lobby);
        host.manager.simulate(host.lobby, SimulationFault::Refuse, true);
        const SDeviceOutcome outcome = saveAll(host, host.handler.layoutData(host.lobby));
        QVERIFY(outcome.text.startsWith(QLatin1String("Lobby(")) &&
                !outcome.text.contains(QLatin1Char('\n')));
        QVERIFY(host.manager.table().isModified(host.lobby));
        QVERIFY(!host.manager.table().isModified(host.stage));
    }

    void readingSeveralTellsHowManyWereLeftOut()
    {
        CDeviceFixture host;
        host.edit(host.lobby);
        host.manager.jobs().setConfirm([](const QString &) { return false; });
        const SDeviceOutcome outcome = host.outcomeOf([&](CDeviceJobs::Done done) {
            host.manager.jobs().readMapping({host.lobby, host.stage, host.left}, {}, std::move(done));
        });
        QVERIFY(outcome.isDone());
        QCOMPARE(outcome.text, QStringLiteral("2 of 3 layouts were read."));
        QVERIFY(host.manager.table().isModified(host.lobby));
    }

    void savingAllLeavesWhatWasNeverOpenedAlone()
    {
        CDeviceFixture host;
        const QUuid balcony = host.named("Balcony");
        QVERIFY(host.handler.setWorkMode(balcony, ProcessorWorkMode::VideoProcessor));
        QVERIFY(host.handler.setOutputPortCount(balcony, 6));
        LayoutData nothing;
        nothing.processor = host.named("Foyer"); // offline, so the module has nothing of it
        host.select(nothing.processor);
        const quint64 revision = host.manager.table().device(balcony)->revision;
        QVERIFY(saveAll(host, nothing).isDone());
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
        LayoutData nothing;
        nothing.processor = host.lobby;
        LayoutData foreign = host.handler.layoutData(host.lobby);
        foreign.processor = host.named("Balcony");
        for (const LayoutData &data : {nothing, foreign}) {
            host.handler.commitLayoutData(data);
            QVERIFY(!host.manager.table().isModified(data.processor));
        }
    }

    void whatTheModuleHoldsIsFlushedBeforeAJob()
    {
        CDeviceFixture host;
        int flushed = 0;
        host.manager.services().setFlush([&] {
            flushed += host.manager.jobs().current() ? 0 : 1; // else the job does not see what was edited
        });
        QVERIFY(host.read(host.lobby).isDone());
        QCOMPARE(flushed, 1);
        QVERIFY(host.save(host.lobby).isDone());
        QCOMPARE(flushed, 2);
        QVERIFY(host.detect().isDone());
        QCOMPARE(flushed, 3);
    }

    void anEditThatTheModuleHoldsWhileAMappingIsReadIsKept()
    {
        for (const bool edits : {true, false}) { // without edits it hands over what is known
            for (const char *job : {"read", "detection"}) {
                CDeviceFixture host;
                host.manager.simulate(host.lobby, SimulationFault::Changed, true);
                CabinetLayout edited;
                host.manager.services().setFlush([&] {
                    if (!host.manager.jobs().current() || !edited.ports.isEmpty())
                        return;
                    LayoutData same = host.handler.layoutData(host.lobby);
                    same.layout.ports[0].groups.detach();
                    host.handler.commitLayoutData(same);
                    if (edits)
                        host.edit(host.lobby);
                    edited = host.layoutOf(host.lobby);
                });
                const SDeviceOutcome outcome = *job == 'r' ? host.read(host.lobby) : host.detect();
                QCOMPARE(outcome.isDone(), !edits || *job == 'd');
                QVERIFY(!edited.ports.isEmpty());
                QCOMPARE(host.layoutOf(host.lobby) == edited, edits);
                QCOMPARE(host.manager.table().isModified(host.lobby), edits);
            }
        }
    }

    void onlyLocksAndColoursAreTakenOverWhileALayoutIsReplaced()
    {
        for (const auto &[imports, edits] :
             {std::pair(false, false), {false, true}, {true, false}, {true, true}}) {
            CDeviceFixture host;
            const LayoutData before = host.handler.layoutData(host.lobby);
            host.manager.simulate(host.lobby, SimulationFault::Changed, true);
            const QString file = host.folder.filePath(QStringLiteral("mapping"));
            QVERIFY(host.handler.exportProcessorMapping(host.lobby, file));
            CHastyEditor editor(host, before, edits);
            QSignalSpy told(&host.manager.announcer(), &CDeviceAnnouncer::notifyTold);
            QVERIFY(imports ? host.handler.importProcessorMapping(host.lobby, file, true)
                            : host.read(host.lobby).isDone());
            QTRY_VERIFY(editor.hasHandedOver);
            host.settle(host.lobby);
            QCoreApplication::processEvents();
            QCOMPARE(told.count(), edits ? 1 : 0);
            QVERIFY(editor.wasUnannounced && !host.handler.unsavedEdits(host.lobby).unannounced);
            CabinetLayout now = host.layoutOf(host.lobby);
            QVERIFY(now.ports[1].locked && !now.ports[0].locked && now.ports[0].color == Qt::red);
            QCOMPARE(host.manager.table().unsavedEdits(host.lobby).cabinets, imports);
            QVERIFY(!LayoutData::comparePortData(now.ports[0], before.layout.ports[0], true));
            host.edit(host.lobby);
            QVERIFY(host.manager.table().unsavedEdits(host.lobby).cabinets);
        }
    }

    void modulesAskForUnsavedEditsAgainAfterAReplacement()
    {
        CDeviceFixture host;
        QVERIFY(host.handler.copyProcessorMapping(host.left, host.right, true));
        host.settle(host.right);
        QCoreApplication::processEvents();
        host.manager.announcer().notify(LayoutNotification::DetectFinished);
        QVERIFY(!host.log.waitFor(int(LayoutNotification::DetectFinished)).isEmpty());
        QVERIFY(host.handler.copyProcessorMapping(host.left, host.right, true)); // which are as before
        QVERIFY(host.log.waitFor(int(LayoutNotification::UnsavedEditsChanged))
                    .contains(CDeviceFixture::idOf(host.right)));
        QVERIFY(!host.handler.unsavedEdits(host.right).unannounced);
    }

    void runsOneJobAtATime()
    {
        CDeviceFixture host(0.2);
        int started = 0;
        connect(&host.manager.jobs(), &CDeviceJobs::notifyStarted, this, [&started] { ++started; });
        host.manager.jobs().detect();
        QVERIFY(host.manager.jobs().current());
        const SDeviceOutcome second = host.detect();
        QCOMPARE(second.result, SDeviceOutcome::Failed);
        QVERIFY(second.text.startsWith(QLatin1String("\"Detect devices\" is running.")));
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
        host.manager.jobs().setConfirm([](const QString &) { return true; }); // to read over edits
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
        const SDeviceOutcome both = host.outcomeOf([&](CDeviceJobs::Done done) {
            host.manager.jobs().readMapping({host.named("Lobby"), arena}, {}, std::move(done));
        });
        QCOMPARE(both.result, SDeviceOutcome::Cancelled);
        QVERIFY(both.text.startsWith(QLatin1String("Lobby("))); // what had failed before
    }

    void stoppingEndsARunningJob()
    {
        for (const auto fault : {SimulationFault::Slow, SimulationFault::Silent, SimulationFault::Changed}) {
            CDeviceFixture host(2);
            const QUuid lobby = host.detectAlone("Lobby");
            host.edit(lobby);
            host.manager.simulate(lobby, fault, true);
            int asked = 0;
            host.manager.jobs().setConfirm([&asked](const QString &) { return ++asked > 0; });
            Results results;
            host.manager.jobs().saveMapping({lobby}, into(results));
            host.manager.stop();
            QCOMPARE(asked, 0);
            QVERIFY(!host.manager.jobs().current());
            host.manager.jobs().saveMapping({lobby}, into(results)); // nothing starts any more
            QCOMPARE(results, (Results{SDeviceOutcome::Cancelled, SDeviceOutcome::Failed}));
        }
    }

    void aJobWithoutMemoryFails()
    {
        CMailbox mailbox;
        CJobRunner jobs(mailbox);
        SDeviceOutcome ended;
        jobs.start(
            std::make_unique<CDeviceJob>(CDeviceJob::Detect, QStringLiteral("Detect"), QList<QUuid>()),
            [](const SJobContext &) -> SDeviceOutcome { throw std::bad_alloc(); },
            [&ended](const SDeviceOutcome &outcome) { ended = outcome; });
        QTRY_COMPARE(ended.result, SDeviceOutcome::Failed);
        QVERIFY(ended.text.contains(QLatin1String("memory")));
    }

    void whatEndsWhileStoppingCountsAsCancelled()
    {
        CMailbox mailbox;
        CJobRunner jobs(mailbox);
        Results results;
        jobs.start(
            std::make_unique<CDeviceJob>(CDeviceJob::SaveMapping, QStringLiteral("Save"), QList<QUuid>()),
            [](const SJobContext &) {
                return SDeviceOutcome{SDeviceOutcome::Failed, QStringLiteral("not worth a message any more")};
            },
            into(results));
        jobs.stop();
        QCOMPARE(results, Results{SDeviceOutcome::Cancelled});
    }

    void aRealtimeReadWaitsForTheRunningJobAndLeavesEditsAlone()
    {
        CDeviceFixture host;
        readInRealtime(host);
        const CabinetLayout before = host.layoutOf(host.lobby);
        host.manager.jobs().saveMapping({host.named("Arena")});
        QVERIFY(host.manager.jobs().current());
        host.manager.simulate(host.lobby, SimulationFault::Changed, true);
        QTRY_VERIFY(host.layoutOf(host.lobby) != before);
        QTRY_VERIFY(!host.manager.jobs().current());

        bool held = true; // by the module
        host.manager.services().setFlush([&] {
            if (std::exchange(held, false))
                host.edit(host.lobby);
        });
        host.manager.simulate(host.lobby, SimulationFault::Changed, true);
        QVERIFY(!host.manager.jobs().current());
        QVERIFY(host.manager.table().isModified(host.lobby));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CDeviceJobsTest)
#include "tst_device_jobs.moc"
