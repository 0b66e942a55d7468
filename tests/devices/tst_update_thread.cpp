// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CUpdateThread.h"
#include "layout/api/LayoutNotification.h"
#include "platform/control/CObserver.h"
#include "tests/harness/CTestBase.h"

#include <QUuid>

#include <atomic>
#include <future>
#include <memory>

namespace {

/// Notes codes and threads. Each update waits until letGo() was called.
class CNotingObserver final : public CObserver
{
public:
    void Update(CSubject &subject) override
    {
        entered = true;
        m_gate.wait();
        codes.push_back(subject.code());
        threads.push_back(std::this_thread::get_id());
    }
    void letGo() { m_go.set_value(); }

    std::atomic<bool> entered{false};
    std::vector<int> codes; // read after the thread has ended
    std::vector<std::thread::id> threads;

private:
    std::promise<void> m_go;
    std::shared_future<void> m_gate{m_go.get_future()};
};

} // namespace

class CUpdateThreadTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void sendsInOrderOnOneOtherThread()
    {
        CUpdateThread updates;
        CNotingObserver observer;
        updates.subject().attach(observer);
        for (const int code : {26, 28, 17, 2, 25})
            updates.post(static_cast<LayoutNotification>(code));
        observer.letGo();
        updates.stop(CUpdateThread::Deliver);
        QCOMPARE(observer.codes, (std::vector<int>{26, 28, 17, 2, 25}));
        for (const std::thread::id &thread : observer.threads) {
            QVERIFY(thread == observer.threads.front());
            QVERIFY(thread != std::this_thread::get_id());
        }
    }

    void dropsWhatWaitsWhenToldSo()
    {
        CUpdateThread updates;
        CNotingObserver observer;
        updates.subject().attach(observer);
        updates.post(LayoutNotification::DetectFinished);
        QTRY_VERIFY(observer.entered);
        auto argument = std::make_shared<int>();
        const std::weak_ptr<int> waiting = argument;
        updates.post(LayoutNotification::WorkModeChanged, std::move(argument));
        std::thread gate([&observer, &waiting] {
            while (!waiting.expired()) // until stop() has cleared the queue
                std::this_thread::yield();
            observer.letGo();
        });
        updates.stop(CUpdateThread::Drop);
        gate.join();
        updates.post(LayoutNotification::WorkModeChanged);
        updates.stop(CUpdateThread::Deliver);
        QCOMPARE(observer.codes, (std::vector<int>{2}));
    }

    void survivesAnObserverThatAsksForTheWrongArgument()
    {
        class CWrongObserver final : public CObserver
        {
        public:
            void Update(CSubject &subject) override
            {
                ++updates;
                subject.GetArgument<int>();
            }
            int updates = 0;
        };
        expectWarning(QRegularExpression(QStringLiteral("Notification 26: .*bad type cast!")));
        CUpdateThread updates;
        CWrongObserver observer;
        updates.subject().attach(observer);
        updates.post(LayoutNotification::CurrentProcessorChanged, QUuid());
        updates.post(LayoutNotification::CurrentProcessorChanged, 1);
        updates.stop(CUpdateThread::Deliver);
        QCOMPARE(observer.updates, 2);
    }
};

ORVO_TEST_MAIN(QCoreApplication, CUpdateThreadTest)
#include "tst_update_thread.moc"
