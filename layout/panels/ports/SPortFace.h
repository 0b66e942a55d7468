// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QString>

/// What a port's button shows.
struct SPortFace
{
    static constexpr int UnknownLoad = 255; ///< shown in a colour of its own

    int port = -1; ///< output-port index, from 0
    int load = 0;  ///< percent; above 100: overloaded
    QColor fill;   ///< of the port's cabinets on the canvas
    QString note;  ///< about the port's pair; empty: nothing to say
    bool locked = false;
    bool redundant = false;  ///< the port is the redundancy of another one
    bool needsReset = false; ///< the mapping must be saved again, or the pair ended

    /// The text of the load: at most 100 percent, whatever the load is.
    QString loadText() const { return QStringLiteral("%1%").arg(qMin(load, 100)); }

    friend bool operator==(const SPortFace &a, const SPortFace &b)
    {
        return a.port == b.port && a.load == b.load && a.fill == b.fill && a.note == b.note &&
               a.locked == b.locked && a.redundant == b.redundant && a.needsReset == b.needsReset;
    }
};
