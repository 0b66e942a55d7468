// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CMainWindow.h"

#include "host/app/AppIcons.h"
#include "host/app/CDevicePanel.h"
#include "host/app/CJobProgress.h"
#include "host/app/CModuleFrame.h"
#include "host/app/CModuleHost.h"
#include "host/app/CRecoveryCommands.h"
#include "host/app/CSimulationMenu.h"
#include "host/app/CTypeLibraryDialog.h"
#include "host/app/CWindowColumns.h"
#include "host/app/CWindowMenus.h"
#include "host/app/CWorkModeMenu.h"
#include "host/app/help/CHelpCommands.h"
#include "host/app/projects/CProjectCommands.h"
#include "host/app/projects/CSettingsDialog.h"
#include "host/app/screen/CScreenWindow.h"
#include "host/app/start/SAppOptions.h"
#include "host/devices/CDeviceTreeModel.h"
#include "host/devices/CLayoutHandler.h"
#include "host/devices/jobs/CDeviceJob.h"
#include "host/devices/services/CSimulatedPark.h"
#include "host/projects/CFileLock.h"
#include "host/projects/CSafeFile.h"
#include "layout/api/ILayoutInterface.h"
#include "layout/resources/LayoutResources.h"
#include "platform/widgets/CElidedLabel.h"
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/CStatusBar.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr int MessageMilliseconds = 8000;
constexpr int OfflineMilliseconds = 2000; // between two questions to each processor
constexpr QSize SmallestWindow(900, 480);

QStringList projectFilesOf(const QMimeData &data)
{
    QStringList files;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile() && url.toLocalFile().endsWith(QLatin1String(".sprj"), Qt::CaseInsensitive))
            files << url.toLocalFile();
    }
    return files;
}

} // namespace

CMainWindow::CMainWindow(const SDeviceSettings &devices)
    : m_manager(devices)
    , m_module(std::make_unique<CModuleHost>(
          std::make_shared<CLayoutHandler>(m_manager.services(), m_manager.jobs(), m_manager.commands(),
                                           CTypeLibrary::builtIn(), &m_manager.keeper()),
          m_manager.announcer().subject()))
    , m_projects(
          std::make_unique<CProjectCommands>(m_manager.services(), m_manager.projects(), m_settings, *this))
    , m_recovery(std::make_unique<CRecoveryCommands>(m_manager.keeper(), m_settings, *this))
    , m_screen(std::make_unique<CScreenWindow>(m_manager.services(), *this))
{
    initLayoutResources();
    buildUi();
    buildStatusBar();
    connectActions();
    connectDevices();
    restoreState();
    updateActions();
}

CMainWindow::~CMainWindow()
{
    shutDown();
    delete takeCentralWidget(); // its views use the devices
}

void CMainWindow::buildUi()
{
    setWindowIcon(QIcon(QStringLiteral(":/Image/App/orvo.svg")));
    setAcceptDrops(true);
    setMinimumSize(SmallestWindow);
    m_workMode = new CWorkModeMenu(m_manager.table(), m_manager.commands(), this);
    m_simulation = new CSimulationMenu(m_manager, this);
    m_actions = SMainActions::create(*this, *m_workMode, *m_simulation);
    m_help = new CHelpCommands(*this);
    m_menus = new CWindowMenus(m_actions, *m_module, m_settings, m_manager.table(), this);

    m_devices = new CDevicePanel(m_manager.services(), m_manager.treeModel(), *m_actions.detect);
    m_columns = new CWindowColumns(*m_devices, *m_module);
    setCentralWidget(m_columns);
    m_devices->focusTree();
}

void CMainWindow::buildStatusBar()
{
    setStatusBar(new CStatusBar);
    m_progress = new CJobProgress;
    statusBar()->addPermanentWidget(m_progress);
    statusBar()->addPermanentWidget(m_module->statusBar());
    m_processor = new CElidedLabel;
    m_processor->setObjectName(QStringLiteral("CurrentProcessor"));
    m_processor->setContentsMargins(0, 0, 8, 0); // a maximised window has no size grip
    statusBar()->addPermanentWidget(m_processor);
}

void CMainWindow::connectActions()
{
    const auto selected = [this] { return m_devices->singleProcessor(); };
    connect(m_actions.newProject, &QAction::triggered, m_projects.get(), &CProjectCommands::createNew);
    connect(m_actions.openProject, &QAction::triggered, m_projects.get(), &CProjectCommands::chooseAndOpen);
    connect(m_actions.openDemo, &QAction::triggered, m_projects.get(), &CProjectCommands::openDemo);
    connect(m_actions.saveProject, &QAction::triggered, this, [=] { m_projects->save(selected()); });
    connect(m_actions.saveProjectAs, &QAction::triggered, this, [=] { m_projects->saveAs(selected()); });
    connect(m_actions.exportLayout, &QAction::triggered, this, [=] { m_projects->exportLayout(selected()); });
    connect(m_actions.restoreVersion, &QAction::triggered, this,
            [=] { m_projects->restoreVersion(selected()); });
    connect(m_actions.settings, &QAction::triggered, this, [this] {
        if (CSettingsDialog(m_settings, this).exec() != QDialog::Accepted)
            return;
        m_recovery->applyHistory();
        if (ILayoutInterface *layout = m_module->layoutModule())
            layout->applySettings();
    });
    connect(&m_manager.keeper(), &CJournalKeeper::notifyHistoryFound, this, [this](const QUuid &processor) {
        if (ILayoutInterface *layout = m_module->layoutModule())
            layout->takeHistory(processor);
    });
    connect(m_actions.print, &QAction::triggered, this, [this] {
        if (ILayoutInterface *layout = m_module->layoutModule())
            layout->print(*this);
    });
    connect(m_actions.closeProject, &QAction::triggered, this, [=] { m_projects->close(selected()); });
    connect(m_actions.quit, &QAction::triggered, this, &QWidget::close);
    connect(m_actions.recover, &QAction::triggered, m_recovery.get(), &CRecoveryCommands::offer);
    connect(m_actions.detect, &QAction::triggered, this, [this] { m_manager.jobs().detect(); });
    connect(m_actions.typeLibrary, &QAction::triggered, this,
            [this] { CTypeLibraryDialog(CTypeLibrary::builtIn(), this).exec(); });
    connect(m_actions.showLog, &QAction::triggered, m_help, &CHelpCommands::showLog);
    connect(m_actions.openLogFolder, &QAction::triggered, m_help, &CHelpCommands::openLogFolder);
    connect(m_actions.copySystemInformation, &QAction::triggered, m_help,
            &CHelpCommands::copySystemInformation);
    connect(m_actions.about, &QAction::triggered, m_help, &CHelpCommands::showAbout);
    connect(m_help, &CHelpCommands::notifyDone, statusBar(),
            [this](const QString &text) { statusBar()->showMessage(text, MessageMilliseconds); });
    connect(m_menus, &CWindowMenus::notifyRecentChosen, this,
            [this](const QString &file) { m_projects->open({file}); });
    connect(m_menus, &CWindowMenus::notifyRecentCleared, this, [this] {
        m_settings.clearRecentProjects();
        updateActions();
    });
    connect(m_projects.get(), &CProjectCommands::notifyWorking, statusBar(),
            [this](const QString &text) { statusBar()->showMessage(text); });
    connect(m_projects.get(), &CProjectCommands::notifyOpened, this, &CMainWindow::onOpened);
    connect(m_recovery.get(), &CRecoveryCommands::notifyOpened, this, &CMainWindow::onOpened);
    connect(m_recovery.get(), &CRecoveryCommands::notifyTold, this,
            [this](const QString &text) { statusBar()->showMessage(text, MessageMilliseconds); });
    connect(m_projects.get(), &CProjectCommands::notifySaved, this, [this](const QString &file) {
        statusBar()->showMessage(tr("Saved \"%1\"").arg(file), MessageMilliseconds);
        updateActions();
    });
    connect(m_projects.get(), &CProjectCommands::notifyRestored, statusBar(), [this] {
        statusBar()->showMessage(tr("Restored; the file stays as it is until the project is saved."),
                                 MessageMilliseconds);
    });
}

void CMainWindow::onOpened(const QUuid &processor)
{
    m_devices->selectProcessor(processor);
    updateActions();
}

void CMainWindow::connectDevices()
{
    CDeviceJobs *jobs = &m_manager.jobs();
    const CDeviceAnnouncer *announcer = &m_manager.announcer();
    m_manager.services().setFlush([this] { flushModule(); });
    jobs->setConfirm([this](const QString &text) { return CMessageBox::confirm(this, text); });
    connect(jobs, &CDeviceJobs::notifyStarted, this, &CMainWindow::onJobStarted);
    connect(jobs, &CDeviceJobs::notifyFinished, this, &CMainWindow::onJobFinished);
    connect(jobs, &CDeviceJobs::notifyDetected, this, [this](int online) {
        const QString text = tr("Detection finished. Processors online: %1").arg(online);
        statusBar()->showMessage(text + QLatin1Char(' ') + sharedFolderText(), MessageMilliseconds);
    });
    connect(announcer, &CDeviceAnnouncer::notifyProcessorsChanged, this, &CMainWindow::updateActions);
    connect(announcer, &CDeviceAnnouncer::notifyTold, statusBar(),
            [this](const QString &words) { statusBar()->showMessage(words, MessageMilliseconds); });
    connect(announcer, &CDeviceAnnouncer::notifyTypeLibraryRequested, this,
            [](QWidget *parent) { CTypeLibraryDialog(CTypeLibrary::builtIn(), parent).exec(); });
    connect(announcer, &CDeviceAnnouncer::notifyScreenRequested, this, [this](bool shown) {
        if (shown)
            statusBar()->showMessage(tr("Esc or a double click closes the screen."), MessageMilliseconds);
    });
    connect(m_simulation, &CSimulationMenu::notifyUnpluggedChanged, m_screen.get(),
            &CScreenWindow::setUnplugged);
    connect(m_screen.get(), &CScreenWindow::notifyClosedByUser, this, &CMainWindow::onScreenClosed);
    connect(m_devices, &CDevicePanel::notifySelectionChanged, this, &CMainWindow::updateActions);
    connect(m_devices, &CDevicePanel::notifyMenuRequested, m_menus, &CWindowMenus::showProcessorMenu);
}

void CMainWindow::loadModule(const QString &file)
{
    m_module->load(file);
    m_columns->foldPanel(m_settings);
    m_devices->announceSelection(); // updates the actions, too
}

void CMainWindow::start(const SAppOptions &options)
{
    cleanUpFolders();
    m_manager.offlineWatch().start(OfflineMilliseconds);
    for (const SAppOptions::SSimulation &simulation : options.simulations)
        simulate(simulation.processor, simulation.fault, simulation.on);
    m_recovery->offerAtStart();
    CHelpCommands::showCrash(*this); // unless the offer has
    if (options.demo)
        m_projects->openDemo();
    if (!options.files.isEmpty())
        m_projects->open(options.files);
    if (options.detect)
        m_manager.jobs().detect();
    const QString shared = sharedFolderText();
    if (!shared.isEmpty())
        statusBar()->showMessage(shared, MessageMilliseconds);
}

/// Empty: nobody else uses the simulated processors.
QString CMainWindow::sharedFolderText()
{
    const QString other = m_manager.services().park().otherUser();
    return other.isEmpty() ? QString()
                           : tr("The simulated processors store nothing: %1 uses them.").arg(other);
}

void CMainWindow::simulate(const QString &name, SimulationFault fault, bool on)
{
    for (const CSimulatedPark::Processor &processor : m_manager.services().park().processors()) {
        if (processor->identity().name == name) {
            const DeviceError error = m_manager.simulate(processor->identity().uuid, fault, on);
            if (error != DeviceError::None)
                qWarning("%s: %s", qPrintable(name), qPrintable(deviceErrorText(error)));
            return;
        }
    }
    qWarning("There is no simulated processor \"%s\".", qPrintable(name));
}

void CMainWindow::flushModule()
{
    if (ILayoutInterface *layout = m_module->layoutModule())
        layout->flush();
}

void CMainWindow::shutDown()
{
    if (m_shutDown)
        return;
    m_shutDown = true;
    m_screen->setShown(false);
    m_manager.services().flush();
    m_manager.stop(); // first, so that the module still learns what ends now
    m_module->stop();
    if (m_cleaning.joinable())
        m_cleaning.join();
}

bool CMainWindow::confirmStop()
{
    const CDeviceJob *job = m_manager.jobs().current();
    if (!job || job->kind() == CDeviceJob::Detect)
        return true; // cancelling a detection loses nothing
    QStringList names;
    for (const QUuid &processor : job->processors()) {
        if (const std::optional<SDevice> device = m_manager.table().device(processor))
            names << device->node.displayText();
    }
    const QString question = job->kind() == CDeviceJob::SaveMapping
                                 ? tr("The mapping is still being saved to %1. Quit and stop it?")
                                 : tr("The mapping is still being read from %1. Quit and stop it?");
    return CMessageBox::confirm(this, question.arg(names.join(QStringLiteral(", "))));
}

void CMainWindow::closeEvent(QCloseEvent *event)
{
    if (!confirmStop() || !m_projects->confirmQuit()) {
        event->ignore();
        return;
    }
    if (CDeviceJob *job = m_manager.jobs().current())
        job->cancel();
    m_manager.keeper().finish(); // everything is saved, or not wanted
    saveState();
    event->accept();
}

/// Gets what the focused part has no use for, such as "Append" pressed in the tree.
void CMainWindow::keyPressEvent(QKeyEvent *event)
{
    ILayoutInterface *layout = m_module->layoutModule();
    if (!layout || !layout->takeKey(*event))
        QMainWindow::keyPressEvent(event);
}

void CMainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!projectFilesOf(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void CMainWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    m_projects->open(projectFilesOf(*event->mimeData()));
}

void CMainWindow::restoreState()
{
    resize(QSize(1440, 860).boundedTo(screen()->availableSize() * 0.95));
    restoreGeometry(m_settings.windowGeometry());
    m_columns->restore(m_settings);
}

void CMainWindow::saveState()
{
    m_settings.setWindowGeometry(saveGeometry());
    m_columns->save(m_settings);
}

void CMainWindow::onJobStarted(CDeviceJob *job)
{
    m_progress->follow(*job);
    updateActions();
}

void CMainWindow::onJobFinished(CDeviceJob *job, const SDeviceOutcome &outcome)
{
    const QString failures = QString(outcome.text).replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (outcome.result == SDeviceOutcome::Cancelled)
        statusBar()->showMessage(tr("%1: cancelled. %2").arg(job->title(), failures).trimmed(),
                                 MessageMilliseconds);
    else if (outcome.result == SDeviceOutcome::Failed && job->kind() == CDeviceJob::Detect)
        tellLater(tr("Not every processor could be detected."),
                  outcome.text); // the others are told by who asked for them
    else if (outcome.result == SDeviceOutcome::Failed)
        statusBar()->showMessage(tr("%1: %2").arg(job->title(), failures), MessageMilliseconds);
    updateActions();
}

/// Once everybody has learnt what has ended.
void CMainWindow::tellLater(const QString &text, const QString &details)
{
    QTimer::singleShot(0, this, [this, text, details] { CMessageBox::warning(this, text, details); });
}

void CMainWindow::onScreenClosed()
{
    if (ILayoutInterface *layout = m_module->layoutModule())
        layout->setScreenShown(false);
}

/// A dead disk must not keep the window waiting.
void CMainWindow::cleanUpFolders()
{
    if (m_cleaning.joinable())
        return;
    m_cleaning = std::thread([recent = m_settings.recentProjects(), written = m_settings.writtenFiles()] {
        for (const QString &file : recent) {
            CSafeFile::cleanAround(file);
            CFileLock(file).removeDead();
        }
        for (const QString &file : written) {
            if (CSafeFile::cleanAround(file))
                CAppSettings().removeWritten(file);
        }
    });
}

void CMainWindow::updateActions()
{
    const QUuid selected = m_devices->singleProcessor();
    const SDevice device = m_manager.table().device(selected).value_or(SDevice());
    m_actions.setSelected(!selected.isNull(), device.project, device.readOnly);
    m_actions.detect->setEnabled(!m_manager.jobs().current());
    m_actions.processor->setEnabled(m_module->layoutModule() && !selected.isNull());
    const bool noRecent = m_settings.recentProjects().isEmpty();
    SMainActions::allowUnless(*m_actions.recentProjects->menuAction(),
                              noRecent ? tr("No project was opened or saved yet") : QString());
    m_workMode->setProcessor(selected);
    m_simulation->setProcessor(selected);
    m_menus->setProcessor(selected);
    updateTitles();
}

void CMainWindow::updateTitles()
{
    const std::optional<SDevice> device = m_manager.table().currentDevice();
    if (!device) {
        setWindowTitle(QStringLiteral("Orvo"));
        setWindowModified(false);
        m_processor->setFullText(tr("No current processor"));
        return;
    }
    const QString state = device->project       ? tr("project")
                          : device->node.online ? tr("online")
                                                : tr("offline");
    const QModelIndex row = m_manager.treeModel().indexOf(device->node.uuid);
    const QString name =
        device->project ? row.data(CDeviceTreeModel::NameRole).toString() : device->node.displayText();
    setWindowTitle(tr("%1[*] - Orvo").arg(name));
    setWindowModified(device->isModified());
    m_processor->setFullText(tr("%1, %2").arg(name, state));
}
