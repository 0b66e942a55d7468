// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// The test is also a host in a few lines, which it starts: that loads the module, uses it, stops it and
// quits. It complains on stderr, and with its exit status, of anything that is not as it should be.
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
#include <QPointer>
#include <QProcess>
#include <QVBoxLayout>

#include <unistd.h>

namespace {

const QString ModuleFile = QStringLiteral(MODULE_FILE);

using Entry = decltype(&Layout_Init);

int complaints = 0;

void expect(bool holds, const char *what)
{
    if (holds)
        return;
    ++complaints;
    fprintf(stderr, "not as expected: %s\n", what);
}

int threadCount()
{
    return QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
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

int runSession(const char *mode)
{
    CTheme::apply(*qApp);
    registerRecordMetaTypes();
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
        ended =
            process.waitForFinished(2 * PatienceMilliseconds) && process.exitStatus() == QProcess::NormalExit;
        status = process.exitCode();
        output = QString::fromLocal8Bit(process.readAllStandardOutput());
        errors = QString::fromLocal8Bit(process.readAllStandardError());
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
        for (const QString &session : {QStringLiteral("null"), QStringLiteral("use")}) {
            const SRun run(QCoreApplication::applicationFilePath(), {QStringLiteral("session"), session});
            QString errors = run.errors; // the platform without display cannot do one thing, and says so
            errors.remove(QStringLiteral("This plugin does not support propagateSizeHints()\n"));
            QVERIFY2(errors.isEmpty(), qPrintable(errors));
            QVERIFY(run.ended);
            QCOMPARE(run.status, 0);
        }
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
