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

/// Settings of the simulated network.
struct SDeviceSettings
{
    QString stateFolder;     ///< where the simulated processors keep their state between starts
    double delayScale = 1.0; ///< factor of all simulated delays and time-outs; 0: answers at once
    QString journalFolder{}; ///< of edits that are not saved yet; empty: none are kept
};

/// What all parts that work with devices share: the table of known devices, the devices themselves, and the
/// announcer of changes. Created on the GUI thread; any thread, unless a function says otherwise.
class CDeviceServices final
{
public:
    explicit CDeviceServices(const SDeviceSettings &settings);

    CDeviceTable &table() { return m_table; }
    const CDeviceTable &table() const { return m_table; }
    const CSimulatedPark &park() const { return m_park; }
    CDeviceAnnouncer &announcer() { return m_announcer; }
    /// Delivers work to the GUI thread.
    CMailbox &mailbox() { return m_mailbox; }

    /// The simulated device behind a processor; null for projects and unknown keys.
    std::shared_ptr<CSimulatedProcessor> device(const QUuid &processor) const;
    /// Stores the settings that a processor has now, and announces the changes.
    void takeSettings(const QUuid &processor, const SProcessorSettings &settings);
    /// Returns a function that returns the working layout of a processor.
    PortPairs::LayoutOf layoutOf() const;
    /// Call after a processor was saved: takes over the mirrors of its redundancy ports @p ports from
    /// @p saved.
    void takeMirrors(const QUuid &processor, const CabinetLayout &saved, const QVector<int> &ports);
    /// Lets @p edit replace a working layout, as in CDeviceTable::changeLayout(), and announces that.
    void replaceLayout(const QUuid &processor, const std::function<void(SDevice &)> &edit);
    /// Stores and announces whether a processor answers.
    void setOnline(const QUuid &processor, bool online);
    /// Stores the answer of a processor to a search; @p before is its record from when it was asked. Settings
    /// and state that changed in between are newer than the answer and are kept; so are ports that hold
    /// cabinets.
    void takeAnswer(const SDevice &before, const SDevice &answer);
    /// What became of a mapping that was read.
    enum class Taken { Yes, Edited, Cancelled };
    /// Replaces layout, saved mapping and revision of a processor with those of @p read, unless the layout
    /// was edited since its record was @p before. Edits that the module still holds count, too: the GUI
    /// thread hands them over, compares and replaces in one go. @p replaced tells whether the layout is
    /// another one, which is announced. @p cancel ends waiting for the GUI thread. Any thread.
    Taken takeMapping(const SDevice &before, SDevice &read, bool replaced, const CCancelToken &cancel);
    /// Sets what is selected in the device tree. A single processor becomes the current one. GUI thread.
    void select(const QList<QUuid> &processors, PrcTreeNodeType type);

    /// Sets the function that makes the module hand over its pending edits. GUI thread.
    void setFlush(std::function<void()> flush);
    /// Call before anything that depends on the working layouts. GUI thread.
    void flush() const;

    /// Delivers pending notifications; nothing is announced afterwards. GUI thread.
    void stop();

private:
    /// Gives the working layout the ports that are in use now, and announces that.
    void takePortCount(const QUuid &processor);
    void announceSettings(const QUuid &processor, const SProcessorSettings &before,
                          const SProcessorSettings &after, bool online);
    void announceUnsavedEdits();
    void announceReplacement(const QUuid &processor);
    /// Announces a selection of several processors again if @p processor, whose area has changed, is one of
    /// them.
    void announceArea(const QUuid &processor);

    CMailbox m_mailbox;
    CDeviceTable m_table;
    CSimulatedPark m_park;
    CDeviceAnnouncer m_announcer;
    std::atomic<PrcTreeNodeType> m_selectionType{PrcTreeNodeType::Processor};
    std::function<void()> m_flush;
    QHash<QUuid, SUnsavedEdits> m_unsavedEdits; // as announced last
};
