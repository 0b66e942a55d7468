// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CHostControl.h"
#include "host/app/CModuleLoader.h"
#include "platform/control/CSubject.h"
#include "platform/control/IAbstractInterfaceHandler.h"
#include "tests/harness/CTestBase.h"

#include <QSignalSpy>
#include <QWidget>

class CModuleLoaderTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void oneMessageTellsWhatIsWrong_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("message");
        const QString folder = QStringLiteral(ORVO_TEST_MODULES "/lib%1.so");
        QTest::newRow("missing") << QStringLiteral("/nowhere/libLayout.so")
                                 << QStringLiteral("does not exist");
        QTest::newRow("no library") << QStringLiteral("/etc/passwd") << QStringLiteral("cannot be loaded");
        QTest::newRow("no entry") << folder.arg(QStringLiteral("NoEntryModule"))
                                  << QStringLiteral("no entry point");
        QTest::newRow("refuses") << folder.arg(QStringLiteral("RefusingModule")) << QStringLiteral("refused");
        QTest::newRow("foreign") << folder.arg(QStringLiteral("ForeignModule"))
                                 << QStringLiteral("another version");
    }
    void oneMessageTellsWhatIsWrong()
    {
        QFETCH(QString, file);
        QFETCH(QString, message);
        CSubject subject;
        CHostControl host(nullptr, subject);
        QWidget parent;
        const auto loaded = CModuleLoader::loadLayout(file, host, &parent);
        QVERIFY(!loaded);
        QVERIFY2(loaded.error().contains(message), qPrintable(loaded.error()));
        QVERIFY2(loaded.error().contains(QFileInfo(file).fileName()), qPrintable(loaded.error()));
        QVERIFY(!loaded.error().contains(QLatin1Char('\n')));
    }

    void facilitiesAreFoundByName()
    {
        CSubject subject;
        CHostControl host(nullptr, subject);
        QWidget panel;
        QWidget *widget = &panel;
        QSignalSpy added(&host, &CHostControl::notifyRightBarWidgetAdded);
        QSignalSpy locked(&host, &CHostControl::notifyLockAdded);
        QSignalSpy collapsed(&host, &CHostControl::notifyCollapseAdded);
        const UiOrvo::EnModule module = UiOrvo::ModuleLayout;
        const auto argument = QArgument<UiOrvo::EnModule>("UiOrvo::EnModule", module);
        QVERIFY(QMetaObject::invokeMethod(host.object(), "AddRightBarWidget", Qt::AutoConnection, argument,
                                          QArgument<QWidget *>("QWidget*", widget)));
        QVERIFY(QMetaObject::invokeMethod(host.object(), "AddLock", Qt::AutoConnection, argument));
        QVERIFY(QMetaObject::invokeMethod(host.object(), "AddCollapse", Qt::AutoConnection, argument));
        QCOMPARE(added.value(0).value(1).value<QWidget *>(), widget);
        QCOMPARE(locked.size() + collapsed.size(), 2);
    }

    void aStoppedHostHandsOutNoHandler()
    {
        class CHandler final : public IAbstractInterfaceHandler
        {
        };
        CSubject subject;
        CHostControl host(std::make_shared<CHandler>(), subject);
        QVERIFY(host.handler());
        host.stop();
        QVERIFY(!host.handler());
        QCOMPARE(host.subject(), &subject);
    }
};

ORVO_TEST_MAIN(QApplication, CModuleLoaderTest)
#include "tst_module_loader.moc"
