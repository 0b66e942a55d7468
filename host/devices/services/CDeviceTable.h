// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/SDevice.h"
#include "layout/api/records/SHostRecords.h"

#include <QList>
#include <QUuid>

#include <functional>
#include <mutex>
#include <optional>
#include <vector>

/// Owns what the host knows about its processors, their order and the selection. Any thread: values are
/// copied in and out under a lock; only the edit given to change() is called under it.
class CDeviceTable final
{
public:
    /// A group of devices, in the order of the tree; SDevice::group names the members.
    struct SGroup
    {
        QUuid uuid;
        QString name;
    };

    /// Why a processor's record changes.
    enum class Cause {
        Host,  ///< by the host itself
        Editor ///< the editor handed over an edited layout
    };
    /// Sets what is told of every change of a processor, on the changing thread, without the lock. Call
    /// before other threads use the table.
    using Watch = std::function<void(const QUuid &processor, Cause cause)>;
    void setWatch(Watch watch) { m_watch = std::move(watch); }

    /// Projects first, then devices, each in the order in which they were added.
    QList<SDevice> devices() const;
    std::optional<SDevice> device(const QUuid &processor) const;
    bool contains(const QUuid &processor) const;
    bool isOnline(const QUuid &processor) const;
    bool isProject(const QUuid &processor) const;
    /// Whether the working layout, or a project's settings, differ from what was last read or saved.
    bool isModified(const QUuid &processor) const { return unsavedEdits(processor).any(); }
    SUnsavedEdits unsavedEdits(const QUuid &processor) const;
    QHash<QUuid, SUnsavedEdits> unsavedEdits() const; ///< of all processors
    /// Which ports of the working layouts of all processors but @p processor are locked.
    PortLocks locksBeside(const QUuid &processor) const;
    QList<SGroup> groups() const;
    QList<ProcessorTree::ProcessorNode> nodes() const;

    /// The processor whose working layout holds the cabinet; a default record if there is none.
    ProcessorTree::ProcessorNode nodeOfCabinet(const QUuid &cabinet) const;

    /// Adds a processor, or replaces the one with the same key.
    void put(const SDevice &device);
    void remove(const QUuid &processor);
    void setGroups(const QList<SGroup> &groups);
    /// Lets @p edit change a processor under the lock. False: unknown processor. @p edit must be quick and
    /// must not call the table.
    bool change(const QUuid &processor, const std::function<void(SDevice &)> &edit);

    /// Lets @p edit change the working layout of a copy, without the lock: for slow edits. @p edit is called
    /// again if the layout was changed meanwhile. Only SDevice::working is taken over. False: unknown
    /// processor.
    bool changeLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit,
                      Cause cause = Cause::Host);

    /// As changeLayout() for an edit by the editor. If the layout is being replaced, or was since the call,
    /// the edit is refused: gives the layouts that the editor may have known, otherwise none.
    using Ports = QVector<CabinetLayout::CabinetPort>;
    QVector<Ports> editLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit);
    /// As changeLayout(), if the editor does not know of it yet: until endReplacement(), the layout before is
    /// in SDevice::replaced.
    bool replaceLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit);
    void endReplacement(const QUuid &processor); ///< of the earliest one

    int onlineDeviceCount() const; ///< projects do not count
    /// The index of a device among those detected, or the first one that no other device has.
    int freeIndex(const QUuid &device) const;

    /// Sets the processors that a job works on.
    void setBusy(const QList<QUuid> &processors);
    bool isBusy(const QUuid &processor) const;

    QUuid current() const; ///< null: none
    std::optional<SDevice> currentDevice() const;
    QList<QUuid> selection() const;
    void setSelection(const QUuid &current, const QList<QUuid> &selection);
    ProcessorBoundingRects areas(const QList<QUuid> &processors) const;

private:
    SDevice *find(const QUuid &processor);
    const SDevice *find(const QUuid &processor) const;
    bool swapLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit, bool replaced);
    bool changeUnwatched(const QUuid &processor, const std::function<void(SDevice &)> &edit);
    void tell(const QUuid &processor, Cause cause) const;

    Watch m_watch;
    mutable std::mutex m_mutex;
    std::vector<SDevice> m_projects; // never shared with copies given to callers
    std::vector<SDevice> m_devices;
    QList<SGroup> m_groups;
    QList<QUuid> m_busy;
    QUuid m_current;
    QList<QUuid> m_selection;
};
