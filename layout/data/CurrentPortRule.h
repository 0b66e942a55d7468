// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

/// The output port that commands without a selection act on. -1: none.
struct SCurrentPort
{
    int port = -1;
    int ofWall = -1; ///< the last one of the wall in the editor, for when nothing is current for a moment

    friend bool operator==(const SCurrentPort &a, const SCurrentPort &b)
    {
        return a.port == b.port && a.ofWall == b.ofWall;
    }
};

/// What can make another port the current one.
enum class PortEvent {
    Suspended,    ///< a detection has ended, or another processor came into view of the host
    PortsChanged, ///< the processor in view has other ports than before
    WallShown,    ///< the editor shows the wall that it showed before
    NewWall,      ///< the editor shows the wall of another processor
    Chosen        ///< the user chose a port, or selects in one port alone
};

/// The one rule that decides which output port is current.
namespace CurrentPortRule {

/// What follows from @p event, where there are ports of the indices @p ports; @p chosen is the port of
/// PortEvent::Chosen.
SCurrentPort after(const SCurrentPort &before, PortEvent event, const QVector<int> &ports, int chosen = -1);

} // namespace CurrentPortRule
