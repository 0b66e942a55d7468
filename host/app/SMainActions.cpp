// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/SMainActions.h"

#include "host/app/AppIcons.h"
#include "host/app/CSimulationMenu.h"
#include "host/app/CWorkModeMenu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace {

QAction *makeAction(QMainWindow &window, const QString &text, const QKeySequence &shortcut,
                    const QString &tip)
{
    auto *action = new QAction(text, &window);
    action->setShortcut(shortcut);
    action->setToolTip(tip);
    action->setData(tip);
    return action;
}

} // namespace

SMainActions SMainActions::create(QMainWindow &window, CWorkModeMenu &workMode, CSimulationMenu &simulation)
{
    SMainActions actions;
    actions.createActions(window);
    actions.buildFileMenu(window);
    actions.edit = window.menuBar()->addMenu(tr("&Edit"));
    actions.view = window.menuBar()->addMenu(tr("&View"));
    actions.buildDeviceMenu(window, workMode);
    window.menuBar()->addMenu(&simulation);
    actions.buildHelpMenu(window);
    return actions;
}

void SMainActions::setSelected(bool any, bool project, const QString &readOnly) const
{
    const QString noProject = project ? QString() : tr("Select a project in the tree.");
    const QString nothing = any ? QString() : tr("Select a single processor or project in the tree.");
    // Also without edits: the module may have pending ones.
    allowUnless(*saveProject, readOnly.isEmpty()
                                  ? noProject
                                  : readOnly + QLatin1Char('\n') + tr("Save it as another file."));
    allowUnless(*restoreVersion, noProject);
    allowUnless(*closeProject, noProject);
    allowUnless(*saveProjectAs, nothing);
    allowUnless(*exportLayout, nothing);
}

void SMainActions::allowUnless(QAction &action, const QString &refusal)
{
    action.setEnabled(refusal.isEmpty());
    action.setToolTip(refusal.isEmpty() ? action.data().toString() : refusal);
}

void SMainActions::createActions(QMainWindow &window)
{
    newProject =
        makeAction(window, tr("&New project..."), QKeySequence::New, tr("Make a project for a new wall"));
    openProject = makeAction(window, tr("&Open project..."), QKeySequence::Open, tr("Open project files"));
    openProject->setIcon(AppIcons::icon("open"));
    openDemo =
        makeAction(window, tr("Open &demo wall"), {}, tr("Open a wall of 240 cabinets to try things out"));
    saveProject =
        makeAction(window, tr("&Save project"), QKeySequence::Save, tr("Save the selected project"));
    saveProject->setIcon(AppIcons::icon("save"));
    saveProjectAs =
        makeAction(window, tr("Save project &as..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                   tr("Save the selected processor or project to another file"));
    exportLayout = makeAction(window, tr("&Export layout..."), {},
                              tr("Write a picture or a list of the cabinets to a file"));
    print = makeAction(window, tr("&Print..."), QKeySequence::Print,
                       tr("Look at the wiring plan, print it or save it as a PDF"));
    closeProject =
        makeAction(window, tr("&Close project"), QKeySequence::Close, tr("Close the selected project"));
    restoreVersion = makeAction(window, tr("Restore ear&lier version..."), {},
                                tr("Go back to what the project's file held before it was saved"));
    settings = makeAction(window, tr("Se&ttings..."), {}, tr("Set what is kept of projects and histories"));
    recover = makeAction(window, tr("Recover &unsaved edits..."), {},
                         tr("Show what runs of the program that ended unexpectedly have left"));
    quit = makeAction(window, tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), tr("Quit Orvo"));
    detect = makeAction(window, tr("&Detect devices"), QKeySequence(Qt::Key_F5),
                        tr("Search for processors and update their status"));
    detect->setIconText(tr("Detect devices"));
    detect->setIcon(AppIcons::icon("detect"));
    typeLibrary = makeAction(window, tr("&Type library..."), {}, tr("Show the known cabinet types"));
    about = makeAction(window, tr("&About Orvo"), {}, tr("Show the version of the program"));
    showLog = makeAction(window, tr("&Show log"), {}, tr("Show what the program has noted"));
    copySystemInformation = makeAction(window, tr("&Copy system information"), {},
                                       tr("Copy what a report of a fault should say of this computer"));
    openLogFolder =
        makeAction(window, tr("Open &log folder"), {}, tr("Show the folder with the program's log"));
}

void SMainActions::buildFileMenu(QMainWindow &window)
{
    QMenu *menu = window.menuBar()->addMenu(tr("&File"));
    menu->setToolTipsVisible(true);
    menu->addAction(newProject);
    menu->addAction(openProject);
    recentProjects = menu->addMenu(tr("&Recent projects"));
    recentProjects->setToolTipsVisible(true);
    menu->addAction(openDemo);
    menu->addSeparator();
    menu->addAction(saveProject);
    menu->addAction(saveProjectAs);
    menu->addAction(exportLayout);
    menu->addAction(print);
    menu->addAction(restoreVersion);
    menu->addAction(recover);
    menu->addAction(closeProject);
    menu->addSeparator();
    menu->addAction(settings);
    menu->addSeparator();
    menu->addAction(quit);
}

void SMainActions::buildDeviceMenu(QMainWindow &window, CWorkModeMenu &workMode)
{
    QMenu *menu = window.menuBar()->addMenu(tr("&Device"));
    menu->addAction(detect);
    processor = menu->addMenu(tr("Current &processor"));
    processor->setToolTipsVisible(true);
    menu->addMenu(&workMode);
    menu->addSeparator();
    menu->addAction(typeLibrary);
}

void SMainActions::buildHelpMenu(QMainWindow &window)
{
    QMenu *menu = window.menuBar()->addMenu(tr("&Help"));
    menu->addAction(showLog);
    menu->addAction(openLogFolder);
    menu->addAction(copySystemInformation);
    menu->addSeparator();
    menu->addAction(about);
}
