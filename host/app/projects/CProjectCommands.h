// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/CProjectShelf.h"
#include "platform/common/CResult.h"
#include "platform/widgets/CMessageBox.h"

#include <QObject>
#include <QStringList>
#include <QUuid>

class CAppSettings;
class CDeviceServices;
class QWidget;

/// The user's commands for projects: create, open, save and close, each with its questions and messages. GUI
/// thread.
class CProjectCommands final : public QObject
{
    Q_OBJECT

public:
    /// @p window is the parent of all dialogs; all must outlive this object.
    CProjectCommands(CDeviceServices &services, CProjectShelf &projects, CAppSettings &settings,
                     QWidget &window);

    void createNew();
    void chooseAndOpen();
    /// Opens all files that can be opened, then reports those that cannot.
    void open(const QStringList &files);
    void openDemo();
    /// Saves to the project's file; asks for a file if there is none yet. False: not saved.
    bool save(const QUuid &processor);
    /// Saves to a file that the user chooses; also for the layout of a device. A project saved to another
    /// file is renamed after it.
    bool saveAs(const QUuid &processor);
    /// Writes a picture or a table of the cabinets to a file that the user chooses.
    void exportLayout(const QUuid &processor);
    /// Lets the user choose an earlier version of a project's file, which becomes the content of the project:
    /// unsaved, so that nothing is lost on the disk.
    void restoreVersion(const QUuid &project);
    /// Closes a project; asks first if there are unsaved edits. False: still open.
    bool close(const QUuid &project);
    /// Asks what to do with a project that somebody else has open.
    static CProjectShelf::Held askHowToOpen(QWidget &parent, const QString &file, const SLockHolder &holder);
    /// Asks about all unsaved edits. False: the user does not want to quit.
    bool confirmQuit();

Q_SIGNALS:
    /// What is being done, for the status bar; empty: nothing any more.
    void notifyWorking(const QString &text);
    void notifyOpened(const QUuid &project);
    void notifySaved(const QString &file);
    void notifyRestored();

private:
    void exportTo(const QUuid &processor, const QString &file);
    /// The project is renamed to @p newName, unless that is empty.
    void replaceWith(const QUuid &project, const QString &version);
    bool saveTo(const QUuid &processor, const QString &file, const QString &newName = {});
    CMessageBox::Choice askToOverwrite(const QString &file, const SProjectSaving &why);
    CResult<QUuid> openAsking(const QString &file);
    bool askToSave(const QUuid &project);
    QString nameOf(const QUuid &processor) const;

    CDeviceServices &m_services;
    CProjectShelf &m_projects;
    CAppSettings &m_settings;
    QWidget &m_window;
};
