// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/SDevice.h"

#include <QList>
#include <QUuid>

#include <functional>
#include <mutex>
#include <optional>
#include <vector>

/// The one owner of what the host knows of its processors, their order and the selection. Any thread: values
/// are copied in and out under a lock; nothing is called under it but the edit given to change().
class CDeviceTable final
{
public:
    /// Groups of devices, in the order of the tree; their members are found by SDevice::group.
    struct SGroup
    {
        QUuid uuid;
        QString name;
    };

    /// Projects first, then devices, each in the order of adding.
    QList<SDevice> devices() const;
    std::optional<SDevice> device(const QUuid &processor) const;
    bool contains(const QUuid &processor) const;
    bool isOnline(const QUuid &processor) const;
    bool isProject(const QUuid &processor) const;
    /// Whether the working layout, or a project's settings, differ from what was last read or saved.
    bool isModified(const QUuid &processor) const;
    QList<SGroup> groups() const;
    QList<ProcessorTree::ProcessorNode> nodes() const;

    /// The processor whose working layout holds the cabinet; a default record without one.
    ProcessorTree::ProcessorNode nodeOfCabinet(const QUuid &cabinet) const;

    /// Adds a processor, or replaces the one of the same key.
    void put(const SDevice &device);
    void remove(const QUuid &processor);
    void setGroups(const QList<SGroup> &groups);
    /// Lets @p edit change a processor under the lock; false when it is not known. @p edit must be short and
    /// call nothing else of the table.
    bool change(const QUuid &processor, const std::function<void(SDevice &)> &edit);

    /// Lets @p edit change the working layout of a copy, without the lock: for edits that take long. Called
    /// again when somebody else changed it meanwhile. Only SDevice::working is taken over; false as with
    /// change().
    bool changeLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit);

    int onlineDeviceCount() const; ///< projects do not count

    /// The processors that a job works with.
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

    mutable std::mutex m_mutex;
    std::vector<SDevice> m_projects; // never shared with what callers were given
    std::vector<SDevice> m_devices;
    QList<SGroup> m_groups;
    QList<QUuid> m_busy;
    QUuid m_current;
    QList<QUuid> m_selection;
};
