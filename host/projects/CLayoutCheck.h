// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/SPortLoad.h"

#include <QCoreApplication>
#include <QString>
#include <QUuid>
#include <QVector>

#include <functional>

/// One fault in a layout.
struct SLayoutFinding
{
    enum Kind {
        PortOverCapacity,
        ProcessorOverCapacity,
        TooManyCabinets,
        PortBeyondCount,
        Unwired,
        RankGap,
        RankTwice,
        SamePosition,
        Overlap,
        OutsideCanvas,
        BadSize,
        BadReceivers
    };
    Kind kind = Unwired;
    int port = -1; ///< output-port index, from 0; -1: the whole processor
    QUuid cabinet; ///< null: no single cabinet
    QString text;  ///< for the user, with port (from 1) and place of the cabinet
};

/// What a layout is checked against; defaults are not checked.
struct SLayoutLimits
{
    std::function<SPortLoad(const CabinetLayout::CabinetPort &)> portLoad;
    qint64 processorPixels =
        0;             ///< largest number of pixels that the processor can drive, by portLoad; 0: no limit
    int portCount = 0; ///< output ports in use; 0: any
};

/// Lists the faults in a layout: loads, wiring, placement. Any thread.
class CLayoutCheck final
{
    Q_DECLARE_TR_FUNCTIONS(CLayoutCheck)

public:
    /// Returns the faults in ascending port order, within a port by kind. O(n log n).
    static QVector<SLayoutFinding> findings(const LayoutData &data, const SLayoutLimits &limits = {});
};
