// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SProcessorKind.h"
#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SPortLoad.h"

/// Capacity and load of output ports. Pure arithmetic; any thread.
class CPortCapacity final
{
public:
    /// The signal that ports carry.
    struct SSignal
    {
        int frameRate = 60; ///< hertz
        int colorDepth = 8; ///< bits
        bool threeD = false;
    };

    static constexpr qint64 ThreeDPixels = 640 * 512; ///< capacity of a port with 3D on

    /// Pixels that one port can carry; 0 for a colour depth that the generation does not offer.
    static qint64 capacity(const SReceiverGeneration &generation, const SSignal &signal);
    /// Pixels that a port is charged for its cabinets.
    static qint64 charged(const SReceiverGeneration &generation, const CabinetLayout::CabinetPort &port);
    /// @p used of @p capacity in percent, rounded up; an overload if there is no capacity but some use.
    static int percent(qint64 used, qint64 capacity);
    /// Load of a port that is charged @p used pixels, while all ports together are charged @p total. If the
    /// total exceeds what the processor can drive, every port in use shows at least that overload.
    static SPortLoad load(const SProcessorKind &kind, const SSignal &signal, qint64 used, qint64 total);
    /// @p port with the cabinets that it carries: for a redundancy port those of its primary, its own cause
    /// no load.
    static CabinetLayout::CabinetPort carried(const CabinetLayout::CabinetPort &port);
    /// What @p port, charged @p used pixels, adds to those of the processor with the identity @p processor: a
    /// redundancy port nothing if its primary is on the same one, which is charged for the signal of both.
    static qint64 added(const CabinetLayout::CabinetPort &port, const QUuid &processor, qint64 used);
    /// The loads of the ports of a layout, and of those without cabinets up to @p portCount, by port index.
    static QMap<int, SPortLoad> loads(const SProcessorKind &kind, const SSignal &signal,
                                      const CabinetLayout &layout, int portCount);
};
