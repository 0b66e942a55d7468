// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/common/CBackgroundCall.h"
#include "platform/common/CCustomPaint.h"
#include "platform/common/CReadWriteLock.h"
#include "platform/common/CSingleton.h"
#include "platform/common/Utils.h"
#include "tests/harness/CTestBase.h"

#include <QDeadlineTimer>
#include <QImage>
#include <QPainter>
#include <QTimer>

#include <atomic>
#include <thread>
#include <vector>

namespace {

std::atomic<int> slowlyMade{0};

struct SSlowlyMade final
{
    SSlowlyMade()
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        ++slowlyMade;
    }
};

} // namespace

ORVO_DECLARE_SINGLETON(SSlowlyMade)
ORVO_DEFINE_SINGLETON(SSlowlyMade)

class CCommonTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void aSingletonIsMadeOnceWhoeverComesFirst()
    {
        std::vector<std::thread> threads;
        std::vector<SSlowlyMade *> seen(8);
        for (SSlowlyMade *&one : seen)
            threads.emplace_back([&one] { one = &CSingleton<SSlowlyMade>::instance(); });
        for (std::thread &thread : threads)
            thread.join();
        QCOMPARE(slowlyMade.load(), 1);
        QCOMPARE(std::count(seen.begin(), seen.end(), &CSingleton<SSlowlyMade>::instance()), 8);
    }

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
        QTest::newRow("none") << Rects{} << Lines{};
        QTest::newRow("side by side") << Rects{{0, 0, 10, 20}, {10, 0, 10, 20}} << Lines{{10, 0, 10, 20}};
        QTest::newRow("right one first") << Rects{{10, 0, 10, 20}, {0, 0, 10, 20}} << Lines{{10, 0, 10, 20}};
        QTest::newRow("shifted") << Rects{{0, 0, 10, 20}, {10, 15, 10, 20}} << Lines{{10, 15, 10, 20}};
        QTest::newRow("above") << Rects{{0, 0, 10, 20}, {-5, 20, 10, 5}} << Lines{{0, 20, 5, 20}};
        QTest::newRow("corner") << Rects{{0, 0, 10, 10}, {10, 10, 10, 10}} << Lines{};
        QTest::newRow("a pixel apart") << Rects{{0, 0, 10, 10}, {11, 0, 10, 10}} << Lines{};
        QTest::newRow("overlapping") << Rects{{0, 0, 10, 10}, {9, 0, 10, 10}} << Lines{};
        QTest::newRow("one beside two") << Rects{{0, 0, 10, 20}, {10, 0, 10, 10}, {10, 10, 10, 10}}
                                        << Lines{{10, 0, 10, 10}, {10, 10, 10, 20}, {10, 10, 20, 10}};
    }
    void adjacentLines()
    {
        QFETCH(QVector<QRect>, rects);
        QFETCH(QVector<QLineF>, lines);
        QCOMPARE(Utils::calculateAdjacentLines(rects), lines);
    }

    void theCheckerBoardBeginsAtTheCornerAndStaysInside()
    {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setBrushOrigin(3, 3);
        CCustomPaint::paintCheckerBoard(painter, QRect(5, 6, 32, 32));
        QCOMPARE(painter.brushOrigin(), QPoint(3, 3));
        const QRgb light = image.pixel(5, 6);
        const QRgb dark = image.pixel(13, 6);
        QVERIFY(light != dark);
        QCOMPARE(image.pixel(12, 13), light);
        QCOMPARE(image.pixel(5, 14), dark);
        QCOMPARE(image.pixel(13, 14), light);
        QCOMPARE(image.pixel(36, 37), light);
        for (const QPoint outside : {QPoint(4, 6), QPoint(5, 5), QPoint(37, 20), QPoint(20, 38)})
            QCOMPARE(image.pixelColor(outside), QColor(Qt::white));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CCommonTest)
#include "tst_common.moc"
