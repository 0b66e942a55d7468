// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/control/CObserver.h"
#include "platform/control/CSubject.h"
#include "tests/harness/CTestBase.h"

#include <functional>

namespace {

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

QByteArray messageOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const std::runtime_error &error) {
        return error.what();
    }
    return {};
}

const char OtherThread[] =
    "CSubject::GetArgument:can not get argument from another thread,must call this function "
    "from Update thread!";

} // namespace

class CSubjectTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void givesTheArgumentOfItsTypeOnly()
    {
        CSubject subject;
        int seen = 0;
        QByteArray wrongType;
        CFunctionObserver observer([&](CSubject &s) {
            seen = s.GetArgument<int>();
            wrongType = messageOf([&] { s.GetArgument<bool>(); });
        });
        subject.attach(observer);
        subject.notify(21, 7);
        QCOMPARE(seen, 7);
        QCOMPARE(wrongType, QByteArray("CSubject::GetArgument:bad type cast!"));
    }

    void testsTheThreadBeforeTheType()
    {
        CSubject subject;
        QByteArray fromOther;
        CFunctionObserver observer([&](CSubject &s) {
            std::thread([&] { fromOther = messageOf([&] { s.GetArgument<QString>(); }); }).join();
        });
        subject.attach(observer);
        subject.notify(26, 1);
        QCOMPARE(fromOther, QByteArray(OtherThread));
        QCOMPARE(messageOf([&] { subject.GetArgument<int>(); }),
                 QByteArray(OtherThread)); // no update is running
    }

    void endsTheNotificationWhenAnObserverThrows()
    {
        CSubject subject;
        CFunctionObserver observer([](CSubject &s) { s.GetArgument<double>(); });
        subject.attach(observer);
        QCOMPARE(messageOf([&] { subject.notify(2); }), QByteArray("CSubject::GetArgument:bad type cast!"));
        QCOMPARE(messageOf([&] { subject.GetArgument<int>(); }), QByteArray(OtherThread));
        subject.detach(observer);
        subject.notify(2);
    }

    void detachingWaitsForTheRunningUpdate()
    {
        CSubject subject;
        std::atomic<bool> entered{false};
        std::atomic<bool> left{false};
        CFunctionObserver observer([&](CSubject &) {
            entered = true;
            std::this_thread::sleep_for(std::chrono::milliseconds(30));
            left = true;
        });
        subject.attach(observer);
        std::thread notifier([&] { subject.notify(6); });
        QTRY_VERIFY(entered);
        subject.detach(observer);
        QVERIFY(left);
        notifier.join();
    }
};

ORVO_TEST_MAIN(QCoreApplication, CSubjectTest)
#include "tst_subject.moc"
