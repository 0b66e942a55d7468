// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// The test is also a host in a few lines, which it starts: that loads the module, uses it, stops it and
// quits. It complains on stderr, and with its exit status, of anything that is not as it should be. How often
// the module is loaded in a process is told by ORVO_LOAD_ROUNDS, in how many processes by
// ORVO_LOAD_PROCESSES.
#include "layout/api/ILayoutInterface.h"
#include "layout/api/LayoutNotification.h"
#include "layout/api/Layout_Init.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "platform/control/UiOrvo.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CFakeHost.h"
#include "tests/harness/CTestBase.h"

#include <QApplication>
#include <QDir>
#include <QLibrary>
#include <QMenu>
#include <QPixmapCache>
#include <QPointer>
#include <QProcess>
#include <QVBoxLayout>

#include <malloc.h>
#include <unistd.h>

namespace {

const QString ModuleFile = QStringLiteral(MODULE_FILE);

constexpr int UsualRounds = 20;
constexpr int UsualProcesses = 1;
constexpr int WarmUpRounds = 5;           // until what Qt keeps for itself is there
constexpr qint64 BytesAtAll = 256 * 1024; // that the allocator and Qt's caches take late
/// Names in Qt's pixmap cache, which has each new button's arrows under a name of its own and forgets the
/// name half a minute after the pixmap. A page takes a hundred times that.
constexpr qint64 BytesPerRound = 4 * 1024;
constexpr qint64 ResidentBytesAtAll = 16 * 1024 * 1024; // what is freed does not all leave the process

using Entry = decltype(&Layout_Init);

int complaints = 0;

void expect(bool holds, const char *what)
{
    if (holds)
        return;
    ++complaints;
    fprintf(stderr, "not as expected: %s\n", what);
}

int entriesOf(const char *folder)
{
    return QDir(QLatin1String(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

int threadCount()
{
    return entriesOf("/proc/self/task");
}

QByteArray aboutThisProcess(const char *what)
{
    QFile file(QStringLiteral("/proc/self/") + QLatin1String(what));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 allocatedBytes()
{
    QPixmapCache::clear(); // which Qt lets grow up to a limit
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

qint64 residentBytes()
{
    return aboutThisProcess("statm").split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

int asked(const char *variable, int usual)
{
    const int number = qEnvironmentVariableIntValue(variable);
    return number > 0 ? number : usual;
}

bool threadLives(pid_t thread)
{
    return QDir(QStringLiteral("/proc/self/task/%1").arg(thread)).exists();
}

void waitFor(const std::function<bool()> &holds, const char *what)
{
    QElapsedTimer timer;
    timer.start();
    while (!holds() && timer.elapsed() < PatienceMilliseconds)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    expect(holds(), what);
}

} // namespace

class CSessionHost final : public QObject
{
    Q_OBJECT

public:
    QStringList registered;
    QWidget *rightBar = nullptr;

    Q_INVOKABLE void AddRightBarWidget(UiOrvo::EnModule module, QWidget *widget)
    {
        registered << QStringLiteral("right bar %1").arg(module);
        rightBar = widget;
    }
    Q_INVOKABLE void AddLock(UiOrvo::EnModule module) { registered << QStringLiteral("lock %1").arg(module); }
    Q_INVOKABLE void AddCollapse(UiOrvo::EnModule module)
    {
        registered << QStringLiteral("collapse %1").arg(module);
    }
};

namespace {

void useModule(Entry init)
{
    CFakeHost host;
    CSessionHost object;
    host.hostObject = &object;
    const QUuid a = host.addProcessor(QStringLiteral("A"), 16, 20);
    auto &cabinets = host.answers()->layouts[a].layout.ports[0].groups[0].cabinets;
    cabinets[1].rect = cabinets[0].rect.translated(20, 20); // overlapping, which is drawn with pictures
    pid_t first = 0;
    std::thread([&first] { first = gettid(); }).join(); // with it a sanitizer starts one of its own
    waitFor([first] { return !threadLives(first); }, "a thread that was joined ends"); // a moment later
    const int threads = threadCount();

    QWidget window;
    auto *row = new QHBoxLayout(&window);
    IAbstractControlInterface *control = nullptr;
    expect(init(&control, &host, &window), "the entry succeeds");
    auto *layout = dynamic_cast<ILayoutInterface *>(control);
    auto *widget = qobject_cast<QWidget *>(control->object());
    expect(layout && widget && widget->parentWidget() == &window, "the widget is below its parent");
    expect(!init(&control, &host, &window), "the entry succeeds only once");
    expect(object.registered.join(QLatin1Char('|')) == QLatin1String("right bar 2|lock 2|collapse 2"),
           "the module registers itself");
    row->addWidget(widget);
    row->addWidget(object.rightBar);
    window.resize(1200, 700);
    window.show();
    widget->show();

    host.choose(a);
    host.notify(LayoutNotification::CurrentProcessorChanged, a);
    host.notify(LayoutNotification::SelectedNodeChanged, SSelectedNodeChange{{}, PrcTreeNodeType::Processor});
    waitFor([&host] { return host.answers()->count(QStringLiteral("layoutData")) > 0; }, "the editor loads");
    window.grab();
    QCoreApplication::processEvents(); // finds what overlaps
    window.grab();
    QMenu menu;
    layout->fillProcessorMenu(menu, a);
    expect(menu.actions().size() > 10, "the menu is filled");
    expect(threadCount() > threads, "workers run");

    host.notify(LayoutNotification::PortCountChanged); // leaves queued work behind
    menu.clear();
    const QPointer<QWidget> rightBar = object.rightBar;
    control->stop();
    expect(!rightBar && widget->findChildren<QWidget *>().isEmpty(), "its widgets are gone");
    waitFor([threads] { return threadCount() == threads; }, "no thread is left");
    expect(!widget->parentWidget(), "the widget has left its parent");
    control->stop();
    expect(!init(&control, &host, &window), "nothing begins after the end");
}

/// Loads the module, uses it and takes it out of memory.
void loadModule()
{
    QLibrary library(ModuleFile);
    const auto init = reinterpret_cast<Entry>(library.resolve("Layout_Init"));
    expect(init, "the entry is found each time");
    if (init)
        useModule(init);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    expect(library.unload() && !aboutThisProcess("maps").contains("libLayout"), "it leaves the process");
}

void loadModuleAgainAndAgain()
{
    const int rounds = asked("ORVO_LOAD_ROUNDS", UsualRounds);
    for (int i = 0; i < WarmUpRounds; ++i)
        loadModule();
    const int threads = threadCount();
    const int descriptors = entriesOf("/proc/self/fd");
    const int widgets = QApplication::allWidgets().size();
    const qint64 allocated = allocatedBytes();
    const qint64 resident = residentBytes();
    for (int i = 0; i < rounds && complaints == 0; ++i)
        loadModule();
    waitFor([threads] { return threadCount() == threads; }, "the threads are as many as before");
    expect(entriesOf("/proc/self/fd") == descriptors, "the descriptors are as many as before");
    expect(QApplication::allWidgets().size() == widgets, "the widgets are as many as before");
    const qint64 more = allocatedBytes() - allocated;
    const qint64 moreResident = residentBytes() - resident;
    expect(more < BytesAtAll + rounds * BytesPerRound, "the memory in use is as before");
    expect(moreResident < ResidentBytesAtAll + 2 * rounds * BytesPerRound,
           "the memory of the process is as before");
    printf("loaded %d times: %lld bytes more in use, %lld resident", rounds, static_cast<long long>(more),
           static_cast<long long>(moreResident));
}

int runSession(const char *mode)
{
    CTheme::apply(*qApp);
    registerRecordMetaTypes();
    if (qstrcmp(mode, "again") == 0) {
        loadModuleAgainAndAgain();
        return complaints;
    }
    QLibrary library(ModuleFile);
    const auto init = reinterpret_cast<Entry>(library.resolve("Layout_Init"));
    expect(init, "the entry is found");
    if (!init)
        return 1;
    if (qstrcmp(mode, "null") == 0) {
        const int threads = threadCount();
        const int widgets = QApplication::allWidgets().size();
        CFakeHost host;
        QWidget parent;
        expect(!init(nullptr, &host, &parent), "a null out fails");
        expect(parent.children().isEmpty() && QApplication::allWidgets().size() == widgets + 1, "no widget");
        expect(threadCount() == threads && host.answers()->calls().isEmpty(), "no effect");
    } else {
        useModule(init);
    }
    return complaints;
}

struct SRun final
{
    SRun(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        ended = process.waitForFinished(20 * PatienceMilliseconds) &&
                process.exitStatus() == QProcess::NormalExit;
        status = process.exitCode();
        output = QString::fromLocal8Bit(process.readAllStandardOutput());
        errors = QString::fromLocal8Bit(process.readAllStandardError());
        // The platform without display cannot do one thing, and says so.
        errors.remove(QStringLiteral("This plugin does not support propagateSizeHints()\n"));
    }
    /// This program, which does that with the module.
    static SRun session(const char *mode)
    {
        return {QCoreApplication::applicationFilePath(), {QStringLiteral("session"), QLatin1String(mode)}};
    }
    bool ended = false;
    int status = -1;
    QString output;
    QString errors;
};

} // namespace

class CModuleTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void exportsItsEntryAlone()
    {
        const SRun nm(QStringLiteral("nm"),
                      {QStringLiteral("-D"), QStringLiteral("--defined-only"), ModuleFile});
        QVERIFY2(nm.ended && nm.status == 0, qPrintable(nm.errors));
        QStringList names;
        for (const QString &line : nm.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            names << line.section(QLatin1Char(' '), -1);
        QCOMPARE(names, QStringList{QStringLiteral("Layout_Init")});
    }

    void endsCleanly()
    {
        // Without an out parameter the entry has no effect; otherwise: load, use, stop and quit.
        for (int i = asked("ORVO_LOAD_PROCESSES", UsualProcesses); i >= 0; --i) {
            const SRun run = SRun::session(i == 0 ? "null" : "use");
            QVERIFY2(run.errors.isEmpty(), qPrintable(run.errors));
            QVERIFY(run.ended);
            QCOMPARE(run.status, 0);
        }
    }

    void leavesNothingBehind()
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        return; // sanitizers do not know where code was that has left the process; the other presets try it
#endif
        const SRun run = SRun::session("again");
        QVERIFY2(run.errors.isEmpty(), qPrintable(run.errors));
        QVERIFY(run.ended);
        QCOMPARE(run.status, 0);
        qInfo("%s", qPrintable(run.output));
    }
};

int main(int argc, char **argv)
{
    const CTestEnvironment environment;
    QApplication application(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "session") == 0)
        return runSession(argv[2]);
    CModuleTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_module.moc"
