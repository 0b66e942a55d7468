// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/SMainActions.h"
#include "host/app/start/CAppSettings.h"
#include "host/devices/CDeviceManager.h"

#include <QMainWindow>

#include <memory>
#include <thread>

class CDevicePanel;
class CElidedLabel;
class CHelpCommands;
class CJobProgress;
class CModuleHost;
class CProjectCommands;
class CRecoveryCommands;
class CScreenWindow;
class CSimulationMenu;
class CWindowColumns;
class CWindowMenus;
class CWorkModeMenu;
struct SAppOptions;

/// The application's window: devices on the left, the Layout module in the middle, its side panel on the
/// right. Owns the devices, and loads and stops the module. GUI thread.
class CMainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    explicit CMainWindow(const SDeviceSettings &devices);
    ~CMainWindow() override; ///< shuts down first

    CDeviceManager &manager() { return m_manager; }
    CDevicePanel &devicePanel() { return *m_devices; }
    CModuleHost &moduleHost() { return *m_module; }

    /// Loads the Layout module; if that fails, the window says why and stays usable. Call once.
    void loadModule(const QString &file);
    /// Carries out the options of the command line.
    void start(const SAppOptions &options);
    /// Ends device work, notifications and the module, in this order. A second call does nothing.
    void shutDown();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void buildUi();
    void buildStatusBar();
    void connectActions();
    void connectDevices();
    void restoreState();
    void saveState();

    void flushModule(); ///< makes the module hand over its pending edits
    void simulate(const QString &name, SimulationFault fault, bool on);
    bool confirmStop(); ///< false: the user wants to wait for the running job
    void onJobStarted(CDeviceJob *job);
    void onJobFinished(CDeviceJob *job, const SDeviceOutcome &outcome);
    void tellLater(const QString &text, const QString &details);
    void onOpened(const QUuid &processor);
    void onScreenClosed();
    void cleanUpFolders();
    QString sharedFolderText();
    void updateActions();
    void updateTitles();

    CAppSettings m_settings;
    CDeviceManager m_manager;
    const std::unique_ptr<CModuleHost> m_module;
    const std::unique_ptr<CProjectCommands> m_projects;
    const std::unique_ptr<CRecoveryCommands> m_recovery;
    const std::unique_ptr<CScreenWindow> m_screen;
    CWorkModeMenu *m_workMode = nullptr;
    CSimulationMenu *m_simulation = nullptr;
    SMainActions m_actions;
    CHelpCommands *m_help = nullptr;
    CWindowMenus *m_menus = nullptr;
    CDevicePanel *m_devices = nullptr;
    CWindowColumns *m_columns = nullptr;
    CElidedLabel *m_processor = nullptr; ///< in the status bar
    CJobProgress *m_progress = nullptr;
    bool m_shutDown = false;
    std::thread m_cleaning; ///< of folders that were written to
};
