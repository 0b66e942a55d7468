// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

/// The current output port, on which commands without a selection act. -1: none.
struct SCurrentPort
{
    int port = -1;
    int ofWall = -1; ///< the last current port of the layout in the editor; kept while no port is current

    friend bool operator==(const SCurrentPort &a, const SCurrentPort &b)
    {
        return a.port == b.port && a.ofWall == b.ofWall;
    }
};

/// Events that can make another port the current one.
enum class PortEvent {
    Suspended,    ///< a detection has ended, or another processor came into view of the host
    PortsChanged, ///< the processor in view has other ports than before
    WallShown,    ///< the editor shows the same layout as before
    NewWall,      ///< the editor shows the layout of another processor
    Chosen        ///< the user chose a port, or selected cabinets of a single port
};

/// The one rule that decides which output port is current.
namespace CurrentPortRule {

/// Returns the current port after @p event. @p ports are the indices of the existing ports; @p chosen is the
/// port of PortEvent::Chosen.
SCurrentPort after(const SCurrentPort &before, PortEvent event, const QVector<int> &ports, int chosen = -1);

} // namespace CurrentPortRule
