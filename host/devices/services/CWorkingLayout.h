// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SProcessorKind.h"
#include "layout/api/records/CabinetLayout.h"

#include <QHash>
#include <QSet>

#include <functional>

/// A processor's working layout, and the mapping that was last saved or read. An edit costs only the ports
/// that it changed. A value; copies share data.
class CWorkingLayout final
{
public:
    /// Sets the working layout; cabinets that are in the saved mapping get their places in it.
    void take(const CabinetLayout &layout, const SReceiverGeneration &generation);
    /// Lets @p change set lock and colour of port @p index, -1: of all. Costs no look at cabinets.
    void changeLook(int index, const std::function<void(CabinetLayout::CabinetPort &)> &change);
    /// Sets the mapping that the device or file has now; it must have been numbered by numbered().
    void setSaved(const CabinetLayout &mapping);

    const CabinetLayout &layout() const { return m_layout; }
    const CabinetLayout &saved() const { return m_saved; }
    bool isModified() const { return haveCabinetsChanged() || haveSettingsChanged(); }
    /// Whether cabinets, groups or wiring differ from the saved mapping.
    bool haveCabinetsChanged() const { return !m_edited.cabinets.isEmpty(); }
    /// Whether anything else of the ports does, or their number.
    bool haveSettingsChanged() const
    {
        return !m_edited.settings.isEmpty() || m_layout.ports.size() != m_saved.ports.size();
    }
    quint64 savedNumber() const { return m_savedNumber; } ///< another one after each setSaved()
    /// Incremented by setSaved(), and by take() of a layout that differs, so that background work can tell
    /// whether something changed meanwhile.
    quint64 edition() const { return m_edition; }

    /// Whether a cabinet is in the saved mapping.
    bool isMapped(const QUuid &cabinet) const { return m_places.contains(cabinet); }

    qint64 chargedPixels(int port) const { return m_figures.value(port).charged; }
    qint64 chargedPixels() const; ///< of all ports
    QRect bounds() const;         ///< of all cabinets, canvas pixels; inclusive as in the records

    /// Returns @p layout with the place of each wired cabinet in the mapping: by port, then by rank.
    static CabinetLayout numbered(CabinetLayout layout);

private:
    /// What would cost a walk over a port's cabinets.
    struct SFigures
    {
        qint64 charged = 0; ///< pixels
        QRect bounds;
    };

    /// Ports that differ from the saved mapping.
    struct SEdited
    {
        QSet<int> cabinets;
        QSet<int> settings;
    };

    static SFigures figuresOf(const CabinetLayout::CabinetPort &port, const SReceiverGeneration &generation);
    void renumber(CabinetLayout::CabinetPort &port) const;
    bool haveSettingsChanged(const CabinetLayout::CabinetPort &port) const;
    void compareWithSaved(const CabinetLayout::CabinetPort &port, SEdited &edited) const;

    CabinetLayout m_taken; // as given to take(); shows which ports the next layout shares with it
    CabinetLayout m_layout;
    CabinetLayout m_saved;
    QHash<QUuid, int> m_places;     // of cabinets in the saved mapping
    QHash<int, SFigures> m_figures; // by port
    SEdited m_edited;
    quint64 m_savedNumber = 0;
    quint64 m_edition = 0;
};
