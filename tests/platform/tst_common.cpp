// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CBackgroundCall.h"
#include "platform/common/CReadWriteLock.h"
#include "platform/common/CResult.h"
#include "platform/common/CWorkThread.h"
#include "platform/common/Utils.h"
#include "platform/control/CObserver.h"
#include "platform/control/CSubject.h"
#include "tests/harness/CTestBase.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <atomic>
#include <functional>
#include <future>
#include <stdexcept>
#include <thread>

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

class CFunctionObserver final : public CObserver
{
public:
    explicit CFunctionObserver(std::function<void(CSubject &)> function)
        : m_function(std::move(function))
    {
    }
    void Update(CSubject &subject) override { m_function(subject); }

private:
    std::function<void(CSubject &)> m_function;
};

/// Why the subject gives no argument of that type now; empty: it gives one.
template <typename Argument>
QByteArray refusalOf(CSubject &subject)
{
    try {
        subject.GetArgument<Argument>();
    } catch (const std::runtime_error &error) {
        return error.what();
    }
    return {};
}

const char WrongType[] = "CSubject::GetArgument:bad type cast!";
const char OtherThread[] =
    "CSubject::GetArgument:can not get argument from another thread,must call this function "
    "from Update thread!";

} // namespace

/// What is notified, queued and shared between threads.
class CCommonTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void anArgumentIsGivenToItsTypeDuringTheUpdateOnly()
    {
        CSubject subject;
        QVector<int> seen;
        QByteArray wrong;
        QByteArray fromOther;
        CFunctionObserver observer([&](CSubject &s) {
            seen << s.GetArgument<int>();
            wrong = refusalOf<bool>(s);
            std::thread([&] { fromOther = refusalOf<QString>(s); }).join(); // the thread before the type
        });
        subject.attach(observer);
        subject.attach(observer); // it is already
        subject.notify(21, 7);
        QCOMPARE(seen, QVector<int>{7});
        QCOMPARE(wrong, QByteArray(WrongType));
        QCOMPARE(fromOther, QByteArray(OtherThread));
        QCOMPARE(refusalOf<int>(subject), QByteArray(OtherThread));
    }

    void updatesMayNotifyDetachAndThrow()
    {
        CSubject subject;
        QVector<int> seen; // code and argument
        CFunctionObserver last([&](CSubject &s) { seen << s.code() << s.GetArgument<int>(); });
        CFunctionObserver first([&](CSubject &s) {
            if (s.code() == 1)
                s.notify(2, 20);
            if (s.code() == 3)
                s.detach(last);
            seen << -s.code() << s.GetArgument<int>();
        });
        subject.attach(first);
        subject.attach(last);
        subject.notify(1, 10);
        subject.notify(3, 30);
        QCOMPARE(seen, (QVector<int>{-2, 20, 2, 20, -1, 10, 1, 10, -3, 30}));
        QVERIFY_EXCEPTION_THROWN(subject.notify(4), std::runtime_error);
        QCOMPARE(refusalOf<int>(subject), QByteArray(OtherThread)); // no update is running any more
    }

    void detachingWaitsForTheRunningUpdate()
    {
        CSubject subject;
        std::atomic<bool> entered{false};
        std::atomic<bool> left{false};
        CFunctionObserver observer([&](CSubject &) {
            entered = true;
            std::this_thread::sleep_for(30ms);
            left = true;
        });
        subject.attach(observer);
        std::thread notifier([&] { subject.notify(6); });
        QTRY_VERIFY(entered);
        subject.detach(observer);
        QVERIFY(left);
        notifier.join();
    }

    void aBackgroundCallLetsQueuedWorkGoOn()
    {
        std::atomic<bool> served{false};
        QTimer::singleShot(5, this, [&served] { served = true; });
        const std::thread::id caller = std::this_thread::get_id();
        bool elsewhere = false;
        CBackgroundCall::run([&] {
            QDeadlineTimer patience(PatienceMilliseconds);
            while (!served && !patience.hasExpired())
                std::this_thread::yield();
            elsewhere = std::this_thread::get_id() != caller;
        });
        QVERIFY(served);
        QVERIFY(elsewhere);
    }

    void aBackgroundCallOfAWorkerIsAPlainCall()
    {
        bool same = false;
        std::thread([&same] {
            const std::thread::id caller = std::this_thread::get_id();
            CBackgroundCall::run([&] { same = std::this_thread::get_id() == caller; });
        }).join();
        QVERIFY(same);
    }

    void aBackgroundCallWithoutMemoryIsAFailure()
    {
        const auto fails = [] {
            const CStatus status = CBackgroundCall::result([]() -> CStatus { throw std::bad_alloc(); });
            return !status && status.error().contains(QLatin1String("memory"));
        };
        QVERIFY(fails());
        bool elsewhere = false;
        std::thread([&] { elsewhere = fails(); }).join();
        QVERIFY(elsewhere);
        QVERIFY_EXCEPTION_THROWN(CBackgroundCall::run([] { throw std::logic_error("else"); }),
                                 std::logic_error);
    }

    void theLockKeepsWritersFromReaders()
    {
        struct SPair
        {
            CReadWriteLock lock;
            int a ORVO_GUARDED_BY(lock) = 0;
            int b ORVO_GUARDED_BY(lock) = 0;
        } pair;
        std::atomic<int> torn{0};
        const auto use = [&pair, &torn](bool writes) {
            for (int i = 0; i < 2000; ++i) {
                if (writes) {
                    const CWriteLocker locker(pair.lock);
                    ++pair.a;
                    ++pair.b;
                } else {
                    const CReadLocker locker(pair.lock);
                    torn += pair.a != pair.b;
                }
            }
        };
        std::thread threads[] = {std::thread(use, true), std::thread(use, true), std::thread(use, false)};
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(torn.load(), 0);
        const CReadLocker locker(pair.lock);
        QCOMPARE(pair.a, 4000);
    }

    void aWorkerRunsEventsInOrderOnOneOtherThread()
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

    void aWorkerRemovesTheEventsOfAKeyOnly()
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
        log.worker.AppendEvent(log.event(2, 'v'), false); // another key: replaced by none of those below
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

    void aWorkerLogsWhatAClosureThrowsAndGoesOn()
    {
        expectWarning(QRegularExpression(QStringLiteral("^Work of key 7 failed: out of paper$")));
        expectWarning(QRegularExpression(QStringLiteral("^Work of key 8 failed$")));
        SWorkLog log;
        log.worker.AppendEvent({7, [] { throw std::runtime_error("out of paper"); }});
        log.worker.AppendEvent({8, [] { throw 1; }});
        log.worker.AppendEvent(log.event(0, 'a'));
        QCOMPARE(log.finish(), QByteArray("a"));
    }

    void theExitOfAWorkerFinishesTheRunningEventAndDropsTheRest()
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

    void adjacentRectanglesHaveLines()
    {
        using Rects = QVector<QRect>;
        using Lines = QVector<QLineF>;
        const QVector<QPair<Rects, Lines>> rows{
            {{{0, 0, 10, 20}, {10, 15, 10, 20}}, {{10, 15, 10, 20}}}, // shifted
            {{{0, 0, 10, 20}, {-5, 20, 10, 5}}, {{0, 20, 5, 20}}},    // above
            {{{0, 0, 10, 10}, {10, 10, 10, 10}}, {}},                 // at a corner
            {{{0, 0, 10, 20}, {10, 0, 10, 10}, {10, 10, 10, 10}},
             {{10, 0, 10, 10}, {10, 10, 10, 20}, {10, 10, 20, 10}}}};
        for (const auto &[rects, lines] : rows)
            QCOMPARE(Utils::calculateAdjacentLines(rects), lines);
    }
};

ORVO_TEST_MAIN(QGuiApplication, CCommonTest)
#include "tst_common.moc"
