// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CCancelToken.h"
#include "tests/devices/CDeviceFixture.h"
#include "tests/harness/CTestBase.h"
#include "tests/projects/CFaultyFileSystem.h"

#include <QRandomGenerator>

#include <array>

namespace {

constexpr int PairsOfEach = 6;
constexpr int AllPairsOfEach = 1000;
constexpr std::array Faults{SimulationFault::Offline, SimulationFault::Silent,    SimulationFault::Slow,
                            SimulationFault::Refuse,  SimulationFault::Drop,      SimulationFault::Damaged,
                            SimulationFault::Twice,   SimulationFault::LostAnswer};

using Processor = CSimulatedPark::Processor;

/// What a processor has stored, as bytes.
QByteArray storedBy(const Processor &processor)
{
    CCancelToken never;
    QByteArray mapping;
    processor->readMapping(
        never, [](int) {}, mapping);
    const auto decoded = CProcessorCodec::mapping(mapping, QString());
    return CProcessorCodec::encode(SProcessorMapping{decoded ? decoded.value().layout : CabinetLayout(), 0});
}

/// Two processors on which something is done that changes them, or reads them.
struct SBench
{
    CDeviceFixture host{1e-9}; // no delays, but no detection of everything either
    std::array<Processor, 2> processors;

    explicit SBench(const std::function<void(SBench &)> &prepare)
    {
        for (const Processor &processor : host.manager.services().park().processors()) {
            const bool isLeft = processor->identity().name == QLatin1String("Side left");
            if (isLeft || processor->identity().name == QLatin1String("Side right")) {
                (isLeft ? host.left : host.right) = processor->identity().uuid;
                processors.at(isLeft ? 0 : 1) = processor;
            } else {
                host.manager.simulate(processor->identity().uuid, SimulationFault::Offline, true);
            }
        }
        host.detect();
        host.select(host.left);
        host.manager.jobs().setConfirm([](const QString &) { return true; });
        if (prepare)
            prepare(*this);
    }
    QList<QUuid> both() const { return {host.left, host.right}; }
    void edit()
    {
        host.edit(host.left);
        host.edit(host.right);
    }
    /// What the processors have, and what the program takes them to have.
    QVector<QByteArray> stored() const
    {
        QVector<QByteArray> stored;
        for (const Processor &processor : processors)
            stored << storedBy(processor) << CProcessorCodec::encode(processor->settings());
        return stored;
    }
    /// Nothing is simulated any more; what was lost is found again.
    bool recover()
    {
        for (const Processor &processor : processors)
            processor->setFaultAt(0, SimulationFault::Offline);
        return host.detect().isDone();
    }
};

struct SOperation
{
    const char *name;
    enum { Saves, Replaces, Leaves } edits; ///< what becomes of what was not saved
    std::function<CStatus(SBench &bench)> run;
    std::function<void(SBench &bench)> prepare = {}; ///< nothing fails
};

CStatus statusOf(const SDeviceOutcome &outcome)
{
    return outcome.isDone() ? CStatus::done() : CStatus::failure(outcome.text);
}

CStatus statusOf(SBench &bench, bool done)
{
    return done ? CStatus::done() : CStatus::failure(bench.host.handler.lastError());
}

void pairBoth(SBench &bench)
{
    bench.host.handler.setProcessorRedundancy(bench.host.left, bench.host.right);
}

const QVector<SOperation> &operations()
{
    static const QVector<SOperation> all{
        {"detect", SOperation::Leaves, [](SBench &bench) { return statusOf(bench.host.detect()); }},
        {"save", SOperation::Saves,
         [](SBench &bench) {
             return statusOf(bench.host.outcomeOf([&](CDeviceJobs::Done done) {
                 bench.host.manager.jobs().saveMapping(bench.both(), std::move(done));
             }));
         }},
        {"read", SOperation::Replaces,
         [](SBench &bench) {
             return statusOf(bench.host.outcomeOf([&](CDeviceJobs::Done done) {
                 bench.host.manager.jobs().readMapping(bench.both(), {}, std::move(done));
             }));
         }},
        {"parameters", SOperation::Leaves,
         [](SBench &bench) {
             QList<CabinetLayout::CabinetPort::Cabinet> cabinets;
             for (const QUuid &processor : bench.both())
                 cabinets << bench.host.layoutOf(processor).ports.first().getAllCabinets().first();
             return statusOf(bench,
                             bench.host.handler.sendCabinetParameters(cabinets, cabinets.first().type, 2.4));
         }},
        {"offsets", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench, bench.host.handler.setProcessorOffsets(
                                        {{bench.host.left, {10, 20}}, {bench.host.right, {30, 40}}}));
         }},
        {"frame rate", SOperation::Leaves,
         [](SBench &bench) { return statusOf(bench, bench.host.handler.setFrameRateAndColorDepth(50, 8)); }},
        {"background", SOperation::Leaves,
         [](SBench &bench) {
             SBackgroundInfo info;
             info.processor = bench.host.left;
             info.scale = 50;
             return statusOf(bench, bench.host.handler.setBackground(info));
         }},
        {"canvas", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench, bench.host.handler.setCanvasSize({1280, 720}));
         }},
        {"number of ports", SOperation::Leaves,
         [](SBench &bench) {
             CLayoutHandler &handler = bench.host.handler;
             return statusOf(bench, handler.setOutputPortCount(bench.host.left,
                                                               handler.maximumPortCount(bench.host.left)));
         }},
        {"work mode", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench,
                             bench.host.handler.setWorkMode(bench.host.left, ProcessorWorkMode::Bypass));
         }},
        {"status light", SOperation::Leaves,
         [](SBench &bench) { return statusOf(bench, bench.host.handler.setCabinetStatusLed(true)); }},
        {"areas", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench, bench.host.handler.setPortAreas({{0, 1, 2, 300, 400}}));
         }},
        {"gains", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench, bench.host.handler.sendCurrentGains({{1, 2, true, true}}));
         }},
        {"highlight", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench, bench.host.handler.setCabinetHighlight({}, CabinetHighlight::Off));
         }},
        {"no processor redundancy", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench, bench.host.handler.applyProcessorRedundancy(bench.both(), {}));
         },
         pairBoth},
        {"other redundancy", SOperation::Leaves,
         [](SBench &bench) {
             return statusOf(bench, bench.host.handler.applyProcessorRedundancy(
                                        bench.both(), {{bench.host.right, bench.host.left}}));
         },
         pairBoth}};
    return all;
}

bool names(const QString &text)
{
    return text.contains(QLatin1String("Side left")) || text.contains(QLatin1String("Side right"));
}

} // namespace

/// Reading, saving and commands while every single exchange with a processor goes wrong, in every way.
class CExchangeFaultsTest final : public CTestBase
{
    Q_OBJECT

private:
    const CFaultyFileSystem m_quick; // without waiting for the disk

    /// What is wrong after @p operation has ended; empty: nothing.
    static QString faultOf(SBench &bench, const SOperation &operation, const CStatus &status,
                           const QVector<QByteArray> &before, const QVector<QByteArray> &wanted)
    {
        if (!status && (!names(status.error()) || !status.error().endsWith(QLatin1Char('.'))))
            return QStringLiteral("says \"%1\"").arg(status.error());
        for (const Processor &processor : bench.processors)
            processor->setFaultAt(0, SimulationFault::Offline);
        const QVector<QByteArray> stored = bench.stored();
        for (int i = 0; i < stored.size(); ++i) {
            if (stored.at(i) != before.at(i) && stored.at(i) != wanted.at(i))
                return QStringLiteral("a processor has something else");
        }
        if (status && stored != wanted)
            return QStringLiteral("a success that is none");
        if (!bench.processors[0]->settings().primary.isNull() &&
            !bench.processors[1]->settings().primary.isNull())
            return QStringLiteral("each is the redundancy of the other");
        const CDeviceTable &table = bench.host.manager.table();
        bool unsaved = false;
        for (int i = 0; i < 2; ++i) {
            const bool modified = table.isModified(bench.both().at(i));
            const bool isSaved = operation.edits == SOperation::Saves &&
                                 storedBy(bench.processors.at(size_t(i))) == wanted.at(2 * i);
            if (!modified && !isSaved && operation.edits != SOperation::Replaces)
                return QStringLiteral("an edit that is not saved counts as saved");
            unsaved = unsaved || modified;
        }
        return status || unsaved ? QString() : QStringLiteral("nothing is unsaved after a failure");
    }

    /// Lets the @p exchange-th exchange of one of the two go wrong. False: there are fewer.
    static bool disturb(const SOperation &operation, SimulationFault fault, bool onward, int place,
                        int exchange, const QVector<QByteArray> &wanted, QString &wrong)
    {
        SBench bench(operation.prepare);
        const QVector<QByteArray> before = bench.stored();
        bench.edit();
        bench.processors.at(size_t(place))->setFaultAt(exchange, fault, onward);
        const CStatus status = operation.run(bench);
        if (!bench.processors.at(size_t(place))->hasShownFault())
            return false;
        wrong = faultOf(bench, operation, status, before, wanted);
        if (wrong.isEmpty() && !onward && status.error().contains(QLatin1String("again when it answers")))
            wrong = QStringLiteral("does not notice that it answers");
        if (wrong.isEmpty() && !onward) { // then it works again
            const CStatus again = bench.recover() ? operation.run(bench) : CStatus::failure({});
            if (!again || bench.stored() != wanted)
                wrong = QStringLiteral("does not work afterwards: ") + again.error();
        }
        if (!wrong.isEmpty())
            wrong = QStringLiteral("fault %1%2 in exchange %3 of %4: %5")
                        .arg(int(fault))
                        .arg(onward ? QStringLiteral(" from then on") : QString())
                        .arg(exchange)
                        .arg(place)
                        .arg(wrong);
        return true;
    }

    static bool isThorough() { return qEnvironmentVariable("ORVO_FAULTS") == QLatin1String("all"); }

    /// What the processors have once the operation has succeeded.
    static QVector<QByteArray> resultOf(const SOperation &operation)
    {
        SBench bench(operation.prepare);
        bench.edit();
        return operation.run(bench) ? bench.stored() : QVector<QByteArray>();
    }

private Q_SLOTS:
    void nothingIsLostAndTheProcessorIsNamed_data()
    {
        QTest::addColumn<int>("number");
        for (int number = 0; number < operations().size(); ++number)
            QTest::newRow(operations().at(number).name) << number;
    }
    void nothingIsLostAndTheProcessorIsNamed()
    {
        QFETCH(int, number);
        const SOperation &operation = operations().at(number);
        const QVector<QByteArray> wanted = resultOf(operation);
        QVERIFY(!wanted.isEmpty());
        int shown = 0;
        for (const SimulationFault fault : Faults) {
            for (const int way : {0, 1, 2, 3}) {
                const bool onward = way / 2 > 0;
                const int place = way % 2;
                if (!isThorough() && (int(fault) + onward + place) % 2)
                    continue; // the other one has its turn with the next fault
                QString wrong;
                for (int exchange = 1;
                     wrong.isEmpty() && disturb(operation, fault, onward, place, exchange, wanted, wrong);
                     ++exchange)
                    ++shown;
                QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
            }
        }
        QVERIFY(shown > 0);
    }

    void twoFaultsAtOnce()
    {
        QRandomGenerator random(13);
        for (const SOperation &operation : operations()) {
            const QVector<QByteArray> wanted = resultOf(operation);
            for (int i = isThorough() ? AllPairsOfEach : PairsOfEach; i > 0; --i) {
                SBench bench(operation.prepare);
                const QVector<QByteArray> before = bench.stored();
                bench.edit();
                QString faults;
                for (const Processor &processor : bench.processors) {
                    const int exchange = 1 + random.bounded(2);
                    const SimulationFault fault = Faults.at(random.bounded(quint32(Faults.size())));
                    processor->setFaultAt(exchange, fault, random.bounded(2));
                    faults += QStringLiteral(" %1 in exchange %2").arg(int(fault)).arg(exchange);
                }
                const CStatus status = operation.run(bench);
                const QString wrong = faultOf(bench, operation, status, before, wanted);
                QVERIFY2(wrong.isEmpty(), qPrintable(QLatin1String(operation.name) + faults + wrong));
            }
        }
    }
};

ORVO_TEST_MAIN(QCoreApplication, CExchangeFaultsTest)
#include "tst_exchange_faults.moc"
