// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/CDeviceAnnouncer.h"
#include "host/devices/services/CDeviceTable.h"
#include "host/devices/services/CMailbox.h"
#include "host/devices/services/CSimulatedPark.h"
#include "layout/api/records/PortPairs.h"

#include <atomic>
#include <functional>

/// How devices are reached.
struct SDeviceSettings
{
    QString stateFolder;     ///< where the simulated processors keep their state between starts
    double delayScale = 1.0; ///< factor of all simulated delays and time-outs; 0: answers at once
};

/// What everything that works with devices shares: the table of what is known of them, the devices
/// themselves, and the announcer of changes. Made on the GUI thread; any thread unless a function says
/// otherwise.
class CDeviceServices final
{
public:
    explicit CDeviceServices(const SDeviceSettings &settings);

    CDeviceTable &table() { return m_table; }
    const CDeviceTable &table() const { return m_table; }
    const CSimulatedPark &park() const { return m_park; }
    CDeviceAnnouncer &announcer() { return m_announcer; }
    /// Carries work to the GUI thread.
    CMailbox &mailbox() { return m_mailbox; }

    /// The simulated device behind a processor; null for projects and unknown keys.
    std::shared_ptr<CSimulatedProcessor> device(const QUuid &processor) const;
    /// Takes over what a processor now keeps, and announces what follows from it.
    void takeSettings(const QUuid &processor, const SProcessorSettings &settings);
    /// Gives the working layout of a processor.
    PortPairs::LayoutOf layoutOf() const;
    /// Redundancy ports @p ports of a processor hold, now that it was saved, what @p saved tells of them.
    void takeMirrors(const QUuid &processor, const CabinetLayout &saved, const QVector<int> &ports);
    /// Takes note of whether a processor answers.
    void setOnline(const QUuid &processor, bool online);
    /// Takes over what a processor answered to a search; @p before is what was known of it when it was asked.
    /// Settings and state that were changed in between are newer than the answer and stay.
    void takeAnswer(const SDevice &before, const SDevice &answer);
    /// Sets what is selected in the device tree. A single processor becomes the current one. GUI thread.
    void select(const QList<QUuid> &processors, PrcTreeNodeType type);

    /// Sets what brings the table up to date with edits that a module still holds. GUI thread.
    void setFlush(std::function<void()> flush);
    /// Called before anything that depends on the working layouts begins. GUI thread.
    void flush() const;

    /// Delivers the notifications that wait; nothing is announced afterwards. GUI thread.
    void stop();

private:
    void announceSettings(const QUuid &processor, const SProcessorSettings &before,
                          const SProcessorSettings &after, bool online);
    /// Announces a selection of several again when @p processor, whose area has changed, is one of them.
    void announceArea(const QUuid &processor);

    CMailbox m_mailbox;
    CDeviceTable m_table;
    CSimulatedPark m_park;
    CDeviceAnnouncer m_announcer;
    std::atomic<PrcTreeNodeType> m_selectionType{PrcTreeNodeType::Processor};
    std::function<void()> m_flush;
};
