// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

/// The colours of output ports and what is derived from them. Any thread.
class CPortColors final
{
public:
    /// The fill of a port whose record names none: always the same for a port index; ports up to six numbers
    /// apart differ clearly, also for colour-blind users.
    static QColor fill(int port);
    /// A light variant, for labels and edges of the port.
    static QColor tint(const QColor &fill);
    /// Black or white, whichever contrasts more with @p fill.
    static QColor ink(const QColor &fill);
    /// What a selected cabinet is filled with.
    static QColor selected(const QColor &fill);
    /// What a cabinet that is not wired is filled with.
    static QColor faded(const QColor &fill);
    /// @p share of @p over, the rest of @p under.
    static QColor blended(const QColor &under, const QColor &over, qreal share);
};
