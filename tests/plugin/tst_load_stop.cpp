// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// How often the module is started and stopped in a process is told by ORVO_LOAD_ROUNDS, in how many processes
// once by ORVO_LOAD_PROCESSES.
#include "layout/api/LayoutNotification.h"
#include "layout/data/CLayoutData.h"
#include "layout/plugin/CLayout.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/StoreBarrier.h"

#include <QDir>
#include <QPixmapCache>
#include <QProcess>

#include <malloc.h>
#include <memory>

namespace {

constexpr int UsualRounds = 20;
constexpr int UsualProcesses = 2;
constexpr char onlyOnce[] = "ORVO_LOAD_ONCE"; // set for a process that only uses the module
constexpr int WarmUpRounds = 5;               // until what Qt keeps for itself is there
constexpr qint64 BytesAtAll = 128 * 1024;     // that the allocator and Qt's caches take late
constexpr qint64 BytesPerRound =
    4 * 1024; // keys of Qt's icons, timers of the test; a page takes a hundred times that

int entriesOf(const char *folder)
{
    return QDir(QLatin1String(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

int asked(const char *variable, int usual)
{
    const int number = qEnvironmentVariableIntValue(variable);
    return number > 0 ? number : usual;
}

int threads()
{
    return entriesOf("/proc/self/task");
}

int descriptors()
{
    return entriesOf("/proc/self/fd");
}

qint64 allocated()
{
    QPixmapCache::clear(); // which Qt lets grow up to a limit
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

/// Starts the module, lets it show a wall, and stops it.
void useModule()
{
    CFakeHost host;
    const QUuid processor = host.addProcessor(QStringLiteral("A"), 4, 20);
    auto store = std::make_unique<CLayoutData>();
    auto layout = std::make_unique<CLayout>(*store);
    layout->setHost(host);
    layout->resize(1200, 700);
    layout->show();
    host.choose(processor);
    host.notify(LayoutNotification::CurrentProcessorChanged, processor);
    host.notify(LayoutNotification::SelectedNodeChanged, SSelectedNodeChange{{}, PrcTreeNodeType::Processor});
    settle(host, *store);
    QTRY_VERIFY(host.answers()->count(QStringLiteral("layoutData")) > 0);
    layout->grab();
    std::unique_ptr<QWidget> rightBar(layout->rightBarWidget());
    rightBar.release(); // ends with the module
    layout->stop();
    layout.reset();
    store.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

/// What the module leaves in a process in which it was started and stopped again and again.
class CLoadStopTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void leavesNothingBehind()
    {
        const int rounds = asked("ORVO_LOAD_ROUNDS", UsualRounds);
        for (int i = 0; i < WarmUpRounds; ++i)
            useModule();
        const int threadsBefore = threads();
        const int descriptorsBefore = descriptors();
        const int widgetsBefore = QApplication::allWidgets().size();
        const qint64 bytesBefore = allocated();
        for (int i = 0; i < rounds; ++i)
            useModule();
        QTRY_COMPARE(threads(), threadsBefore); // one that was joined is gone a moment later
        QCOMPARE(descriptors(), descriptorsBefore);
        QCOMPARE(QApplication::allWidgets().size(), widgetsBefore);
        const qint64 grown = allocated() - bytesBefore;
        qInfo("%d rounds: %lld bytes more in use", rounds, static_cast<long long>(grown));
        QVERIFY2(grown < BytesAtAll + rounds * BytesPerRound, qPrintable(QString::number(grown)));
    }

    void endsInEachProcess()
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.insert(QLatin1String(onlyOnce), QStringLiteral("1"));
        for (int i = asked("ORVO_LOAD_PROCESSES", UsualProcesses); i > 0; --i) {
            QProcess process;
            process.setProcessEnvironment(variables);
            process.start(QCoreApplication::applicationFilePath(), QStringList());
            QVERIFY(process.waitForFinished(PatienceMilliseconds));
            QCOMPARE(process.exitStatus(), QProcess::NormalExit);
            QCOMPARE(process.exitCode(), 0);
        }
    }
};

int main(int argc, char **argv)
{
    const CTestEnvironment environment;
    QApplication application(argc, argv);
    if (qEnvironmentVariableIsSet(onlyOnce)) {
        useModule();
        return 0;
    }
    CLoadStopTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_load_stop.moc"
