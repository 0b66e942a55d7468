// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/access/CHostAccess.h"
#include "layout/api/access/IEditSource.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CTestBase.h"

namespace {

using Host = ILayoutInterfaceHandler;

/// Its flush is seen among the calls of the host.
class CNotedEdits final : public IEditSource
{
public:
    CNotedEdits() { CHostAccess::setEdits(this); }
    ~CNotedEdits() override { CHostAccess::setEdits(nullptr); }
    void flushEdits() override { CHostAccess::call(&Host::showScreen, true); }
};

} // namespace

class CHostAccessTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAHostTheAnswerIsEmpty()
    {
        QVERIFY(CHostAccess::call(&Host::processors).isEmpty());
        QVERIFY(!CHostAccess::call(&Host::showScreen, true));
        QVERIFY(!CHostAccess::flushAndCall(&Host::setCabinetStatusLed, true));
        CFakeHost host;
        QVERIFY(CHostAccess::call(&Host::showScreen, true));
        QCOMPARE(CHostAccess::call([](Host &one) { return one.lastError(); }), host.answers()->error);
    }

    void aHandlerIsKeptForItsCallOnly()
    {
        CFakeHost host;
        const auto handler = host.handler();
        const long before = handler.use_count();
        long during = 0;
        CHostAccess::call([&](Host &) { during = handler.use_count(); });
        QCOMPARE(during, before + 1);
        QCOMPARE(handler.use_count(), before);
    }

    void editsAreHandedOverFirst()
    {
        CFakeHost host;
        const CNotedEdits edits;
        CHostAccess::call(&Host::processors);
        QCOMPARE(host.answers()->calls(), QStringList{QStringLiteral("processors")});
        host.answers()->forgetCalls();
        CHostAccess::flushAndCall(&Host::processors);
        QCOMPARE(host.answers()->calls(),
                 (QStringList{QStringLiteral("showScreen(true)"), QStringLiteral("processors")}));
    }
};

ORVO_TEST_MAIN(QCoreApplication, CHostAccessTest)
#include "tst_host_access.moc"
