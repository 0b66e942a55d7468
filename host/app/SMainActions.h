// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CSimulationMenu;
class CWorkModeMenu;
class QAction;
class QMainWindow;
class QMenu;

/// The commands of the main window and the menus that change with what is selected.
struct SMainActions
{
    Q_DECLARE_TR_FUNCTIONS(SMainActions)

public:
    QAction *newProject = nullptr;
    QAction *openProject = nullptr;
    QAction *saveProject = nullptr;
    QAction *saveProjectAs = nullptr;
    QAction *closeProject = nullptr;
    QAction *openDemo = nullptr;
    QAction *quit = nullptr;
    QAction *detect = nullptr;
    QAction *typeLibrary = nullptr;
    QAction *about = nullptr;
    QAction *openLogFolder = nullptr;
    QMenu *recentProjects = nullptr;
    QMenu *processor = nullptr; ///< the module's commands of the current processor

    /// Makes the actions and @p window's menu bar; @p workMode goes into the device menu, @p simulation
    /// between device and help menus.
    static SMainActions create(QMainWindow &window, CWorkModeMenu &workMode, CSimulationMenu &simulation);

private:
    void createActions(QMainWindow &window);
    void buildFileMenu(QMainWindow &window);
    void buildDeviceMenu(QMainWindow &window, CWorkModeMenu &workMode);
    void buildHelpMenu(QMainWindow &window);
};
