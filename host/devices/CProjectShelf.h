// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QUuid>

class CDeviceServices;
class CDeviceTable;
struct SDevice;

/// Opens, creates, saves and closes projects: processors without a device. Files are read and written in the
/// background; meanwhile painting and notifications go on, and user input waits. GUI thread.
class CProjectShelf final
{
    Q_DECLARE_TR_FUNCTIONS(CProjectShelf)

public:
    /// @p services must outlive this object.
    explicit CProjectShelf(CDeviceServices &services);

    /// Opens a "*.sprj" file. Returns the project's key, also if the file is already open.
    CResult<QUuid> open(const QString &file);
    /// Opens the demo wall as a project without a file. Returns its key.
    CResult<QUuid> openDemo();
    /// Adds a project without a file, which counts as unsaved. Returns its key.
    CResult<QUuid> add(const SProcessorProject &project);
    /// Writes a processor's layout and settings, including pending edits of a module. A project belongs to
    /// that file from then on, and is renamed to @p newName unless that is empty.
    CStatus save(const QUuid &processor, const QString &file, const QString &newName = {});
    /// Removes a project, saved or not; does nothing to a device.
    void close(const QUuid &project);
    /// Returns whether the file of a project is there, but not as it was last opened or saved.
    bool isChangedOnDisk(const QUuid &project) const;
    QString fileOf(const QUuid &project) const; ///< empty: none yet, or not a project

    static SProcessorProject projectOf(const SDevice &device);

private:
    using Opened = CResult<QUuid>;

    Opened announced(const Opened &opened);
    Opened read(const QString &file);
    Opened makeDemo();
    Opened put(const SProcessorProject &project, const QString &file, const CabinetLayout &saved);
    CStatus write(const QUuid &processor, const QString &file, const QString &newName);
    QUuid openedAs(const QString &file) const;

    CDeviceServices &m_services;
    CDeviceTable &m_table;
};
