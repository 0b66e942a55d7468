// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>

class CSimulationMenu;
class CWorkModeMenu;
class QAction;
class QMainWindow;
class QMenu;

/// The actions of the main window, and the menus that depend on the selection.
struct SMainActions
{
    Q_DECLARE_TR_FUNCTIONS(SMainActions)

public:
    QAction *newProject = nullptr;
    QAction *openProject = nullptr;
    QAction *saveProject = nullptr;
    QAction *saveProjectAs = nullptr;
    QAction *exportLayout = nullptr;
    QAction *print = nullptr;
    QAction *closeProject = nullptr;
    QAction *restoreVersion = nullptr;
    QAction *settings = nullptr;
    QAction *openDemo = nullptr;
    QAction *recover = nullptr;
    QAction *quit = nullptr;
    QAction *detect = nullptr;
    QAction *typeLibrary = nullptr;
    QAction *about = nullptr;
    QAction *showLog = nullptr;
    QAction *openLogFolder = nullptr;
    QAction *copySystemInformation = nullptr;
    QMenu *recentProjects = nullptr;
    QMenu *edit = nullptr;      ///< filled by the module
    QMenu *view = nullptr;      ///< the same
    QMenu *processor = nullptr; ///< the module's commands of the current processor

    /// Creates the actions and the menu bar of @p window; @p workMode goes into the device menu,
    /// @p simulation between the device and help menus.
    static SMainActions create(QMainWindow &window, CWorkModeMenu &workMode, CSimulationMenu &simulation);

    /// Enables what can be done to the selected processor; @p any: there is one; @p project: it is a project.
    /// @p readOnly says why the project is not saved to its file; empty: it is.
    void setSelected(bool any, bool project, const QString &readOnly) const;
    /// Enables @p action if @p refusal is empty; otherwise its tool tip tells it.
    static void allowUnless(QAction &action, const QString &refusal);

private:
    void createActions(QMainWindow &window);
    void buildFileMenu(QMainWindow &window);
    void buildDeviceMenu(QMainWindow &window, CWorkModeMenu &workMode);
    void buildHelpMenu(QMainWindow &window);
};
