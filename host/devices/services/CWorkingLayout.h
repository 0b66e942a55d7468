// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SProcessorKind.h"
#include "layout/api/records/CabinetLayout.h"

#include <QHash>
#include <QSet>

/// A processor's working layout beside the mapping that was last saved or read. An edit costs the ports that
/// it changed. A value: copies share.
class CWorkingLayout final
{
public:
    /// Takes another layout; cabinets that are in the saved mapping get their places in it.
    void take(const CabinetLayout &layout, const SReceiverGeneration &generation);
    /// Takes the mapping that device or file now hold; of it, the places of cabinets come from numbered().
    void setSaved(const CabinetLayout &mapping);

    const CabinetLayout &layout() const { return m_layout; }
    const CabinetLayout &saved() const { return m_saved; }
    bool isModified() const { return !m_edited.isEmpty() || m_layout.ports.size() != m_saved.ports.size(); }
    /// Grows with each take() and setSaved(), so that work in the background can tell whether something
    /// changed meanwhile.
    quint64 edition() const { return m_edition; }

    /// Whether a cabinet is in the saved mapping.
    bool isMapped(const QUuid &cabinet) const { return m_places.contains(cabinet); }

    qint64 chargedPixels(int port) const { return m_charged.value(port); }
    qint64 chargedPixels() const; ///< of all ports

    /// The layout with each wired cabinet's place in the mapping: by port, then by rank.
    static CabinetLayout numbered(CabinetLayout layout);

private:
    void renumber(CabinetLayout::CabinetPort &port) const;
    bool differsFromSaved(const CabinetLayout::CabinetPort &port) const;

    CabinetLayout m_taken; // as it was given; shows which ports the next layout shares with it
    CabinetLayout m_layout;
    CabinetLayout m_saved;
    QHash<QUuid, int> m_places;   // of cabinets in the saved mapping
    QHash<int, qint64> m_charged; // pixels by port
    QSet<int> m_edited;           // ports that differ from the saved mapping
    quint64 m_edition = 0;
};
