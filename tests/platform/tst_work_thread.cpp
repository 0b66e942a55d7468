// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CWorkThread.h"
#include "tests/harness/CTestBase.h"

#include <atomic>
#include <future>
#include <stdexcept>

using namespace std::chrono_literals;

namespace {

/// A worker together with what its closures have written.
struct SWorkLog final
{
    std::mutex mutex;
    QByteArray letters;
    CWorkThread worker; // last: it stops before what its closures use is gone

    CWorkThread::Event event(int key, char letter)
    {
        return {key, [this, letter] {
                    const std::lock_guard<std::mutex> lock(mutex);
                    letters += letter;
                }};
    }
    QByteArray written()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return letters;
    }
    /// Runs what is queued to its end.
    QByteArray finish()
    {
        std::promise<void> end;
        worker.AppendEvent({-1, [&end] { end.set_value(); }});
        worker.ActivateThread();
        end.get_future().wait();
        return written();
    }
};

} // namespace

class CWorkThreadTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void runsEventsInOrderOnOneOtherThread()
    {
        SWorkLog log;
        std::thread::id first;
        std::thread::id last;
        log.worker.AppendEvent({0, [&first] { first = std::this_thread::get_id(); }});
        for (const char letter : {'a', 'b', 'c', 'd'})
            log.worker.AppendEvent(log.event(letter % 2, letter));
        log.worker.AppendEvent({0, [&last] { last = std::this_thread::get_id(); }});
        QCOMPARE(log.written(), QByteArray());
        QCOMPARE(log.finish(), QByteArray("abcd"));
        QVERIFY(first == last);
        QVERIFY(first != std::this_thread::get_id());
    }

    void removesTheEventsOfAKeyOnly()
    {
        SWorkLog log;
        log.worker.AddTimeOutEventFilter(1, 1h);
        log.worker.AppendEvent(log.event(1, 'a'));
        log.worker.AppendEvent(log.event(2, 'b'));
        log.worker.AppendEvent(log.event(1, 'c'), false);
        QVERIFY(log.worker.RemoveEvent(1));
        QVERIFY(!log.worker.RemoveEvent(1));
        QCOMPARE(log.finish(), QByteArray("b"));
    }

    void deferredEventsOfAFilteredKeyWaitAndTheLastWins()
    {
        SWorkLog log;
        log.worker.AddTimeOutEventFilter(0, 40ms);
        log.worker.AddTimeOutEventFilter(2, 1h);
        QElapsedTimer timer;
        timer.start();
        for (const char letter : {'a', 'b', 'c'})
            log.worker.AppendEvent(log.event(0, letter), false);
        log.worker.ActivateThread();
        QTRY_COMPARE(log.written(), QByteArray("c"));
        QVERIFY(timer.elapsed() >= 40);
        log.worker.AppendEvent(log.event(2, 'w'), false);
        log.worker.AppendEvent(log.event(2, 'x'), true);  // at once: passes the filter
        log.worker.AppendEvent(log.event(1, 'y'), false); // no filter for this key
        QCOMPARE(log.finish(), QByteArray("cxy"));
    }

    void aSteadyStreamOfDeferredEventsIsNotStarved()
    {
        SWorkLog log;
        log.worker.AddTimeOutEventFilter(0, 20ms);
        QElapsedTimer timer;
        timer.start();
        while (log.written().isEmpty() && timer.elapsed() < PatienceMilliseconds) {
            log.worker.AppendEvent(log.event(0, 'a'), false);
            log.worker.ActivateThread();
            std::this_thread::sleep_for(1ms);
        }
        QVERIFY(!log.written().isEmpty());
    }

    void logsWhatAClosureThrowsAndGoesOn()
    {
        expectWarning(QRegularExpression(QStringLiteral("^Work of key 7 failed: out of paper$")));
        expectWarning(QRegularExpression(QStringLiteral("^Work of key 8 failed$")));
        SWorkLog log;
        log.worker.AppendEvent({7, [] { throw std::runtime_error("out of paper"); }});
        log.worker.AppendEvent({8, [] { throw 1; }});
        log.worker.AppendEvent(log.event(0, 'a'));
        QCOMPARE(log.finish(), QByteArray("a"));
    }

    void exitFinishesTheRunningEventAndDropsTheRest()
    {
        SWorkLog log;
        std::promise<void> entered;
        std::promise<void> leave;
        log.worker.AppendEvent({0, [&] {
                                    entered.set_value();
                                    leave.get_future().wait();
                                    log.event(0, 'a').second();
                                }});
        log.worker.AppendEvent(log.event(0, 'b'));
        log.worker.ActivateThread();
        entered.get_future().wait();
        log.worker.ThreadExit();
        log.worker.AppendEvent(log.event(0, 'c'));
        log.worker.ActivateThread();
        leave.set_value();
        log.worker.wait();
        QCOMPARE(log.written(), QByteArray("a"));
    }

    void aClosureMayQueueAndRemove()
    {
        SWorkLog log;
        log.worker.AppendEvent({0, [&log] {
                                    log.worker.RemoveEvent(2);
                                    log.worker.AppendEvent(log.event(3, 'n'));
                                }});
        log.worker.AppendEvent(log.event(2, 'r'));
        log.worker.ActivateThread();
        QTRY_COMPARE(log.written(), QByteArray("n"));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CWorkThreadTest)
#include "tst_work_thread.moc"
