// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/SBackgroundInfo.h"

#include <QMap>

/// What the store remembers of one processor.
class CProcessorState
{
public:
    virtual ~CProcessorState() = default;

    CabinetLayout layout; ///< as last taken from the host or from the editor
    QSize canvas;         ///< pixels
    SBackgroundInfo background;
    QMap<int, QRect> portBounds; ///< area of each port's cabinets on the canvas, by port index
};
