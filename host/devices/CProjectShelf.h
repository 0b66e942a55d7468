// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CFileLock.h"
#include "host/projects/CProcessorProject.h"
#include "host/projects/SFileStamp.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QHash>
#include <QUuid>

#include <functional>
#include <memory>
#include <optional>

class CDeviceServices;
class CDeviceTable;
struct SDevice;

/// What keeps a project from being saved without a question, and whether the user has agreed.
struct SProjectSaving
{
    bool overChanged = true;           ///< replaces a file that is not as it was last opened or saved here
    bool overHeld = true;              ///< replaces another file although somebody has it open
    bool changed = false;              ///< nothing was saved, because the file is another one
    std::optional<SLockHolder> heldBy; ///< nothing was saved, because they have it open
};

/// Opens, creates, saves and closes projects: processors without a device. Files are read and written in the
/// background; meanwhile painting and notifications go on, and user input waits. GUI thread.
class CProjectShelf final
{
    Q_DECLARE_TR_FUNCTIONS(CProjectShelf)

public:
    /// How to open a file that somebody else has open.
    enum class Held { ReadOnly, Anyway, Cancel };
    using AskHeld = std::function<Held(const SLockHolder &holder)>;

    /// @p services must outlive this object.
    explicit CProjectShelf(CDeviceServices &services);
    ~CProjectShelf(); ///< gives up the locks of its files

    /// Opens a "*.sprj" file and locks it for others. Returns the project's key, also if the file is already
    /// open. If somebody else has it open, @p ask says what to do: "Anyway" makes the lock ours, Cancel
    /// returns a null key. Without @p ask the file is opened all the same, and the lock is left to them.
    CResult<QUuid> open(const QString &file, const AskHeld &ask = {});
    /// Opens the demo wall as a project without a file. Returns its key.
    CResult<QUuid> openDemo();
    /// Adds a project without a file, which counts as unsaved. Returns its key.
    CResult<QUuid> add(const SProcessorProject &project);
    /// Opens a project as it was when the program ended unexpectedly. Its file, which may be missing, tells
    /// what is unsaved; @p stamp is that of the file when the edits began. Returns its key. If somebody else
    /// has the file open, @p ask says what to do, as for open(); without @p ask it is read only. @p changed
    /// learns whether the file is another one since.
    CResult<QUuid> restore(const SProcessorProject &project, const QString &file, const SFileStamp &stamp,
                           const AskHeld &ask, bool &changed);
    /// Writes a processor's layout and settings, including pending edits of a module. A project belongs to
    /// that file from then on, and is renamed to @p newName unless that is empty. @p how, which may be null,
    /// says what may be overwritten, and learns what kept it from that.
    CStatus save(const QUuid &processor, const QString &file, const QString &newName = {},
                 SProjectSaving *how = nullptr);
    /// Replaces content and settings of a project, except its name; the file stays as it is until the project
    /// is saved.
    CStatus replaceContent(const QUuid &project, const SProcessorProject &content);
    /// Removes a project, saved or not; does nothing to a device.
    void close(const QUuid &project);
    QString fileOf(const QUuid &project) const; ///< empty: none yet, or not a project

    static SProcessorProject projectOf(const SDevice &device);

private:
    using Opened = CResult<QUuid>;
    using Lock = std::shared_ptr<CFileLock>;

    Opened announced(const Opened &opened);
    static Held askFor(CFileLock &lock, const AskHeld &ask);
    Opened read(const QString &file, const QString &readOnly);
    Opened readd(const SProcessorProject &project, const QString &file, const SFileStamp &stamp,
                 const QString &readOnly);
    Opened makeDemo();
    Opened put(const SProcessorProject &project, const QString &file, const CabinetLayout &saved);
    CStatus write(const QUuid &processor, const QString &file, const QString &newName, SProjectSaving &how);
    CStatus lockAndWrite(const QUuid &processor, const QString &file, const QString &newName,
                         SProjectSaving &how, Lock &lock);
    QUuid openedAs(const QString &file) const;

    CDeviceServices &m_services;
    CDeviceTable &m_table;
    QHash<QUuid, Lock> m_locks; ///< by project
};
