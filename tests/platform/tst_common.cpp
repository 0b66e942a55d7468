// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CBackgroundCall.h"
#include "platform/common/CReadWriteLock.h"
#include "platform/common/Utils.h"
#include "tests/harness/CTestBase.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <atomic>
#include <thread>

class CCommonTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aBackgroundCallLetsQueuedWorkGoOn()
    {
        std::atomic<bool> served{false};
        QTimer::singleShot(5, this, [&served] { served = true; });
        const std::thread::id caller = std::this_thread::get_id();
        const bool elsewhere = CBackgroundCall::result([&] {
            QDeadlineTimer patience(PatienceMilliseconds);
            while (!served && !patience.hasExpired())
                std::this_thread::yield();
            return std::this_thread::get_id() != caller;
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

    void theLockKeepsWritersFromReaders()
    {
        struct SPair
        {
            CReadWriteLock lock;
            int a ORVO_GUARDED_BY(lock) = 0;
            int b ORVO_GUARDED_BY(lock) = 0;
        } pair;
        std::atomic<int> torn{0};
        const auto write = [&pair] {
            for (int i = 0; i < 2000; ++i) {
                const CWriteLocker locker(pair.lock);
                ++pair.a;
                ++pair.b;
            }
        };
        const auto read = [&pair, &torn] {
            for (int i = 0; i < 2000; ++i) {
                const CReadLocker locker(pair.lock);
                torn += pair.a != pair.b;
            }
        };
        std::thread threads[] = {std::thread(write), std::thread(write), std::thread(read),
                                 std::thread(read)};
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(torn.load(), 0);
        const CReadLocker locker(pair.lock);
        QCOMPARE(pair.a, 4000);
    }

    void adjacentLines_data()
    {
        QTest::addColumn<QVector<QRect>>("rects");
        QTest::addColumn<QVector<QLineF>>("lines");
        using Rects = QVector<QRect>;
        using Lines = QVector<QLineF>;
        QTest::newRow("shifted") << Rects{{0, 0, 10, 20}, {10, 15, 10, 20}} << Lines{{10, 15, 10, 20}};
        QTest::newRow("above") << Rects{{0, 0, 10, 20}, {-5, 20, 10, 5}} << Lines{{0, 20, 5, 20}};
        QTest::newRow("corner") << Rects{{0, 0, 10, 10}, {10, 10, 10, 10}} << Lines{};
        QTest::newRow("one beside two") << Rects{{0, 0, 10, 20}, {10, 0, 10, 10}, {10, 10, 10, 10}}
                                        << Lines{{10, 0, 10, 10}, {10, 10, 10, 20}, {10, 10, 20, 10}};
    }
    void adjacentLines()
    {
        QFETCH(QVector<QRect>, rects);
        QFETCH(QVector<QLineF>, lines);
        QCOMPARE(Utils::calculateAdjacentLines(rects), lines);
    }
};

ORVO_TEST_MAIN(QGuiApplication, CCommonTest)
#include "tst_common.moc"
