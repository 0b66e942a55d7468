// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CDevicePanel.h"
#include "host/app/CMainWindow.h"
#include "host/app/CModuleHost.h"
#include "host/app/start/SAppOptions.h"
#include "host/devices/CDeviceTreeModel.h"
#include "host/devices/jobs/CDeviceJob.h"
#include "host/devices/simulated/CSimulatedProcessor.h"
#include "layout/api/ILayoutInterface.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "platform/widgets/CTheme.h"
#include "tests/harness/CMessageBoxAnswerer.h"
#include "tests/harness/CTestBase.h"
#include "tests/harness/DialogUser.h"

#include <QAccessible>
#include <QAction>
#include <QDeadlineTimer>
#include <QFile>
#include <QGraphicsView>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

namespace {

/// A visible widget of that kind for which @p matches holds; null without one.
template <typename Widget, typename Matches>
Widget *findVisible(const QWidget &below, Matches matches)
{
    for (Widget *widget : below.findChildren<Widget *>()) {
        if (widget->isVisible() && matches(*widget))
            return widget;
    }
    return nullptr;
}

template <typename Button = QAbstractButton>
Button *visibleButton(const QWidget &below, const char *textOrTip)
{
    const QString wanted = QString::fromUtf8(textOrTip);
    return findVisible<Button>(below, [&wanted](const Button &button) {
        return button.text() == wanted || button.toolTip() == wanted;
    });
}

bool showsText(const QWidget &below, const QString &text)
{
    return findVisible<QLabel>(below, [&text](const QLabel &label) { return label.text() == text; }) !=
           nullptr;
}

} // namespace

/// The whole program in a real window, with the real module, used as a user does.
class CMainWindowTest final : public CTestBase
{
    Q_OBJECT

private:
    QTemporaryDir m_state;
    std::unique_ptr<CMainWindow> m_window;

    QAction *action(const char *text) const
    {
        for (QAction *action : m_window->findChildren<QAction *>()) {
            if (action->text().remove(QLatin1Char('&')) == QLatin1String(text))
                return action;
        }
        return nullptr;
    }
    QTreeView &tree() const { return *m_window->findChild<QTreeView *>(QStringLiteral("DeviceTree")); }
    QModelIndex nodeNamed(const QString &name) const
    {
        const QModelIndex first = tree().model()->index(0, 0);
        return tree()
            .model()
            ->match(first, Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }
    void click(const QString &name, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QModelIndex index = nodeNamed(name);
        QVERIFY2(index.isValid(), qPrintable(name));
        tree().scrollTo(index);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, modifiers, tree().visualRect(index).center());
    }
    /// Chooses a processor and waits until the module is ready to read and save it.
    void open(const QString &name, const QString &title)
    {
        click(name);
        QTRY_VERIFY(showsEditor() && showsText(*m_window, title));
        QTRY_VERIFY(visibleButton<QToolButton>(*m_window, "Save")->menu()->defaultAction()->isEnabled());
    }
    bool showsEditor() const
    {
        return findVisible<QGraphicsView>(
            *m_window, [](const QGraphicsView &view) { return view.inherits("CLayoutGraphicsView"); });
    }
    /// The overlay with that title; the editor for an empty one.
    bool shows(const QString &title) const
    {
        return title.isEmpty() ? showsEditor() : showsText(*m_window, title) && !showsEditor();
    }
    /// Presses a button of the side panel and gives the message that the module ends with.
    QString reportOf(const char *button) const
    {
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        QTest::mouseClick(visibleButton(*m_window, button), Qt::LeftButton);
        [&user] { QTRY_VERIFY(!user.boxes().isEmpty()); }();
        return user.texts().join(QLatin1Char('|'));
    }
    static SDeviceSettings devicesIn(const QTemporaryDir &folder)
    {
        SDeviceSettings settings;
        settings.stateFolder = folder.path();
        settings.delayScale = 0.5;
        return settings;
    }

private Q_SLOTS:
    void initTestCase()
    {
        registerRecordMetaTypes();
        CTheme::apply(*qApp);
        m_window = std::make_unique<CMainWindow>(devicesIn(m_state));
        m_window->loadModule(QStringLiteral(ORVO_LAYOUT_MODULE));
        QVERIFY(m_window->moduleHost().layoutModule());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get(), PatienceMilliseconds));
    }

    void init()
    {
        CTestBase::init();
        // Without a window manager a dialog may lose the focus before it is on the screen.
        expectWarning(QRegularExpression(QStringLiteral("XCB error: 8 .*SetInputFocus")));
    }

    void cleanupTestCase() { m_window.reset(); }

    void aMissingModuleLeavesTheWindowUsable()
    {
        expectWarning(QRegularExpression(QStringLiteral("does not exist")));
        const QTemporaryDir state;
        CMainWindow window(devicesIn(state));
        window.resize(1000, 700); // too narrow for the side panel
        window.loadModule(QStringLiteral("/nowhere/libLayout.so"));
        QVERIFY(window.moduleHost().isCollapsed());
        window.show();
        QVERIFY(showsText(
            window,
            QStringLiteral("The Layout module is missing: \"/nowhere/libLayout.so\" does not exist.")));
        QSignalSpy detected(&window.manager().jobs(), &CDeviceJobs::notifyDetected);
        window.manager().jobs().detect();
        QVERIFY(detected.wait(PatienceMilliseconds));
        window.manager().jobs().detect();
        QVERIFY(window.close());                        // nobody is asked whether a search may end
        QVERIFY(!CAppSettings().isRightBarCollapsed()); // the user has not folded it
    }

    void detectionShowsProgressAndProcessors()
    {
        QTRY_VERIFY(shows(QStringLiteral("No online processor found")));
        QVERIFY(!action("Close project")->isEnabled());
        QCOMPARE(action("Close project")->toolTip(), QStringLiteral("Select a project in the tree."));
        QVERIFY(action("File")->menu()->toolTipsVisible());
        QTest::mouseClick(visibleButton(m_window->devicePanel(), "Detect devices"), Qt::LeftButton);
        QVERIFY(m_window->manager().jobs().current());
        QVERIFY(!action("Detect devices")->isEnabled());
        const auto *progress = m_window->findChild<QWidget *>(QStringLiteral("JobProgress"));
        QVERIFY(progress->isVisible());
        QTRY_VERIFY(!m_window->manager().jobs().current());
        QVERIFY(!progress->isVisible());
        QVERIFY(action("Detect devices")->isEnabled());
        QTRY_VERIFY(shows(QStringLiteral("No processor selected")));
        const QIcon icon = nodeNamed(QStringLiteral("Lobby")).data(Qt::DecorationRole).value<QIcon>();
        QCOMPARE(icon.pixmap(16, QIcon::Selected).toImage(), icon.pixmap(16).toImage());
    }

    void theTabKeyReachesTheSearch()
    {
        tree().setFocus();
        QTest::keyClick(&tree(), Qt::Key_Backtab);
        const auto *button = qobject_cast<const QToolButton *>(m_window->focusWidget());
        QVERIFY(button && button->defaultAction() == action("Detect devices"));
        QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
        QCOMPARE(m_window->focusWidget(), &tree());
    }

    void theSelectionDecidesWhatTheModuleShows()
    {
        for (const auto &[nodes, title] :
             {std::pair("Foyer", "The current processor is offline"),
              {"Balcony", "Fiber Optic Transceiver Mode is on, and no other operations are avaliable."},
              {"Side screens", "Summary"},
              {"Side left", ""},
              {"Lobby,Main stage", "Summary"}}) {
            const QStringList names = QString::fromLatin1(nodes).split(QLatin1Char(','));
            for (int i = 0; i < names.size(); ++i)
                click(names.at(i), i == 0 ? Qt::NoModifier : Qt::ControlModifier);
            QTRY_VERIFY(shows(QLatin1String(title)));
            const auto device = m_window->manager().table().currentDevice();
            const bool single = qstrcmp(title, "Summary") != 0;
            QCOMPARE(device ? device->node.name : QString(), single ? names.first() : QString());
        }
    }

    void faultsCanBeSimulatedForASingleDevice()
    {
        click(QStringLiteral("Lobby"));
        action("Silent")->trigger();
        const QUuid lobby = m_window->devicePanel().singleProcessor();
        QVERIFY(m_window->manager().isSimulated(lobby, SimulationFault::Silent));
        click(QStringLiteral("Main stage"));
        QVERIFY(!action("Silent")->isChecked());
        click(QStringLiteral("Lobby"));
        QVERIFY(action("Silent")->isChecked());
        action("No faults")->trigger();
        QVERIFY(!m_window->manager().isSimulated(lobby, SimulationFault::Silent));
    }

    void aFailedDetectionIsToldUntilItIsSeen()
    {
        CDeviceJobs &jobs = m_window->manager().jobs();
        click(QStringLiteral("Lobby"));
        action("Refuse requests")->trigger();
        {
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            jobs.detect();
            QTRY_COMPARE(user.boxes().size(), 1);
            QVERIFY(user.boxes().first().details.contains(QStringLiteral("Lobby")));
        }
        action("No faults")->trigger();
        QSignalSpy detected(&jobs, &CDeviceJobs::notifyDetected);
        jobs.detect();
        QVERIFY(detected.wait(PatienceMilliseconds));
    }

    void theWorkModeMenuShowsAndChangesTheState()
    {
        const auto entry = [this](const char *name) {
            return m_window->findChild<QAction *>(QStringLiteral("WorkMode.") + QLatin1String(name));
        };
        click(QStringLiteral("Lobby"));
        entry("fiber")->trigger();
        QTRY_VERIFY(!showsEditor());
        QVERIFY(entry("fiber")->isChecked() && !entry("video")->isChecked());
        entry("video")->trigger();
        QTRY_VERIFY(showsEditor());
        const bool before = entry("3d")->isChecked();
        entry("3d")->trigger();
        QCOMPARE(entry("3d")->isChecked(), !before);
        action("Refuse requests")->trigger();
        {
            const CMessageBoxAnswerer user({QStringLiteral("OK")});
            entry("bypass")->trigger();
            QCOMPARE(user.boxes().size(), 1);
        }
        QVERIFY(entry("video")->isChecked() && !entry("bypass")->isChecked());
        action("No faults")->trigger();
        click(QStringLiteral("Foyer")); // offline
        QVERIFY(!entry("bypass")->isEnabled());
    }

    void aMappingIsSavedAndReadBack()
    {
        open(QStringLiteral("Lobby"), QStringLiteral("Lobby(192.168.10.11)"));
        const QUuid lobby = m_window->devicePanel().singleProcessor();
        QCOMPARE(reportOf("Save"), QStringLiteral("Save mapping successful."));
        QCOMPARE(reportOf("Read"), QStringLiteral("Read mapping successful."));
        QVERIFY(!m_window->manager().table().isModified(lobby));
        action("Refuse requests")->trigger();
        QCOMPARE(reportOf("Read"), QStringLiteral("Read mapping failed."));
        action("No faults")->trigger();
    }

    /// By key; by the tool bar it is the same command.
    void theWiringPlanIsOpenedByKey()
    {
        click(QStringLiteral("Lobby"));
        m_window->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), m_window.get());
        int sheets = 0;
        QTimer look; // the dialog is modal
        const QDeadlineTimer patience(PatienceMilliseconds);
        connect(&look, &QTimer::timeout, &look, [&sheets, patience] {
            auto *dialog = QApplication::activeModalWidget();
            auto *save = dialog ? visibleButton<QPushButton>(*dialog, "&Save as…") : nullptr;
            if (save && save->isEnabled())
                sheets = named<QSpinBox>(*dialog, "Sheet")->maximum();
            if (dialog && (sheets > 0 || patience.hasExpired()))
                dialog->close();
        });
        look.start(20);
        QTest::keyClick(m_window.get(), Qt::Key_P, Qt::ControlModifier); // until the dialog is closed
        QVERIFY(sheets > 4);
    }

    void titleBarControlsReachModuleAndRightBar()
    {
        auto *lock = m_window->findChild<QToolButton *>(QStringLiteral("LockButton"));
        auto *collapse = m_window->findChild<QToolButton *>(QStringLiteral("CollapseButton"));
        for (const bool on : {true, false}) {
            QTest::mouseClick(lock, Qt::LeftButton);
            QCOMPARE(m_window->moduleHost().layoutModule()->isEditingBlocked(), on);
            QTest::mouseClick(collapse, Qt::LeftButton);
            QCOMPARE(m_window->findChild<QWidget *>(QStringLiteral("RightBar"))->isVisible(), !on);
        }
    }

    void narrowWindowsLeaveTheCanvasItsRoom()
    {
        const QWidget &tree = m_window->devicePanel();
        for (const auto &[width, treeWidth] : {std::pair(1280, 196), {1279, 160}, {1440, 196}}) {
            m_window->resize(width, 860);
            QTRY_COMPARE(tree.width(), treeWidth);
        }
        auto *collapse = m_window->findChild<QToolButton *>(QStringLiteral("CollapseButton"));
        for (const auto &[width, folded, shown] :
             {std::tuple(1040, false, true), {1039, false, false}, {1039, true, true}, {1440, false, true}}) {
            m_window->resize(width, 860);
            if (collapse->isChecked() != folded)
                QTest::mouseClick(collapse, Qt::LeftButton);
            QTRY_COMPARE(tree.isVisible(), shown);
        }
    }

    void everythingIsInReachOnASmallScreen()
    {
        open(QStringLiteral("Lobby"), QStringLiteral("Lobby(192.168.10.11)"));
        m_window->resize(1366, 768);
        const auto *canvas = findVisible<QGraphicsView>(
            *m_window, [](const QGraphicsView &view) { return view.inherits("CLayoutGraphicsView"); });
        const auto *list = m_window->findChild<QWidget *>(QStringLiteral("PortList"));
        QTRY_VERIFY(canvas->width() >= 1366 / 2);
        QVERIFY(list->height() >= 2 * 68);
        const auto *save = visibleButton(*m_window, "Save all processors"); // the last control in common use
        QTRY_COMPARE(save->visibleRegion().boundingRect(), save->rect());
        QStringList unnamed;
        for (QWidget *control : m_window->findChildren<QWidget *>()) {
            if (!control->isVisible() || !(control->focusPolicy() & Qt::TabFocus) || control->focusProxy())
                continue;
            const QAccessibleInterface *told = QAccessible::queryAccessibleInterface(control);
            if (!told || told->text(QAccessible::Name).isEmpty())
                unnamed << QLatin1String(control->metaObject()->className()) + control->objectName();
        }
        QCOMPARE(unnamed.join(QLatin1Char(' ')), QString());
    }

    /// Those that need no selection; others may be meant for what has the focus.
    void keysThatTheTreeDoesNotUseReachTheCanvas()
    {
        open(QStringLiteral("Lobby"), QStringLiteral("Lobby(192.168.10.11)"));
        auto *canvas = findVisible<QGraphicsView>(
            *m_window, [](const QGraphicsView &view) { return view.inherits("CLayoutGraphicsView"); });
        const auto *undo = visibleButton(*m_window, "Undo(Ctrl+Z)");
        QTest::keyClick(canvas, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&tree(), Qt::Key_Delete);
        QVERIFY(!undo->isEnabled());
        QTest::keyClick(canvas, Qt::Key_Delete);
        QVERIFY(undo->isEnabled());
        QTest::keyClick(&tree(), Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!undo->isEnabled());
        bool offered = false;
        QTimer::singleShot(0, m_window.get(), [&offered] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            offered = menu && !menu->isEmpty();
            if (menu)
                menu->close();
        });
        QTest::keyClick(&tree(), Qt::Key_T, Qt::ControlModifier); // until the menu is closed
        QVERIFY(offered);
    }

    void theScreenAndItsButtonStayInStep()
    {
        click(QStringLiteral("Lobby"));
        QTRY_VERIFY(visibleButton(*m_window, "Show screen"));
        auto *button = visibleButton(*m_window, "Show screen");
        const auto screen = [] {
            QWidget *found = nullptr;
            for (QWidget *window : QApplication::topLevelWidgets()) {
                if (window->objectName() == QStringLiteral("SimulateScreen") && window->isVisible())
                    found = window;
            }
            return found;
        };
        for (const bool byKey : {true, false}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QTRY_VERIFY(screen());
            if (byKey)
                QTest::keyClick(screen(), Qt::Key_Escape);
            else
                QTest::mouseDClick(screen(), Qt::LeftButton);
            QTRY_VERIFY(!screen() && !button->isChecked());
        }
    }

    void projectsAreOpenedSavedAndClosed()
    {
        const QString file = m_state.filePath(QStringLiteral("wall.sprj"));
        action("Open demo wall")->trigger();
        QTRY_VERIFY(showsEditor());
        QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("Demo wall")));
        const QUuid demo = m_window->devicePanel().singleProcessor();
        QVERIFY(action("Save project")->isEnabled()); // it has no file yet
        QVERIFY(!action("Silent")->isEnabled());      // and no device
        QVERIFY(m_window->manager().projects().save(demo, file));
        action("Close project")->trigger();
        QVERIFY(!nodeNamed(QStringLiteral("Demo wall")).isValid());
        QVERIFY(!action("Close project")->isEnabled());

        const QTemporaryDir folder; // of a project that was opened before
        const QString other = folder.filePath(QStringLiteral("other.sprj"));
        CAppSettings().addRecentProject(other);
        const QTemporaryDir exports; // of an export
        const QString exported = exports.filePath(QStringLiteral("wall.png"));
        CAppSettings().addWritten(exported, true);
        CAppSettings().addWritten(QStringLiteral("/unplugged/wall.png"), true);
        QFile strays[] = {{folder.filePath(QStringLiteral(".orvo-1-1.new"))},
                          {exports.filePath(QStringLiteral(".orvo-1-1.new"))}};
        for (QFile &stray : strays)
            QVERIFY(stray.open(QIODevice::WriteOnly));
        SAppOptions options;
        options.files << file << m_state.filePath(QStringLiteral("missing.sprj"));
        CMessageBoxAnswerer user({QStringLiteral("OK")});
        m_window->start(options);
        QVERIFY(user.boxes().first().details.contains(QStringLiteral("missing.sprj")));
        QVERIFY(nodeNamed(QStringLiteral("Demo wall")).isValid());
        QTRY_VERIFY(!strays[0].exists() && !strays[1].exists());
        QTRY_COMPARE(CAppSettings().writtenFiles(), QStringList(QStringLiteral("/unplugged/wall.png")));
        CAppSettings().removeRecentProject(other);
        QCOMPARE(CAppSettings().recentProjects(), QStringList(file));
        const QUuid foyer = nodeNamed(QStringLiteral("Foyer")).data(CDeviceTreeModel::UuidRole).toUuid();
        QVERIFY(!m_window->manager().table().isOnline(foyer));
        m_window->manager().simulate(foyer, SimulationFault::Offline, false);
        QTRY_VERIFY(m_window->manager().table().isOnline(foyer)); // asked now and then
    }

    void quittingStopsWhatRunsIfTheUserAgrees()
    {
        open(QStringLiteral("Arena"), QStringLiteral("Arena(192.168.10.80)"));
        const QUuid arena = m_window->devicePanel().singleProcessor();
        const quint64 before = m_window->manager().table().device(arena)->revision;
        m_window->manager().simulate(arena, SimulationFault::Slow, true);
        QTest::mouseClick(visibleButton(*m_window, "Save"), Qt::LeftButton);
        const CMessageBoxAnswerer user({QStringLiteral("No"), QStringLiteral("Yes")});
        QVERIFY(!m_window->close());
        QVERIFY(m_window->manager().jobs().current());
        QVERIFY(user.texts().first().contains(QLatin1String("saved to Arena(192.168.10.80)")));
        QCOMPARE(user.boxes().first().defaultButton, QStringLiteral("No"));
        QVERIFY(m_window->close());
        QCOMPARE(user.boxes().size(), 2);
        m_window->shutDown();
        QVERIFY(!m_window->manager().jobs().current());
        CCancelToken token;
        quint64 kept = 0;
        QCOMPARE(m_window->manager().services().device(arena)->revision(token, kept), DeviceError::None);
        QCOMPARE(kept, before); // the job was cancelled, not waited for
        m_window.reset();
    }
};

ORVO_TEST_MAIN(QApplication, CMainWindowTest)
#include "tst_main_window.moc"
