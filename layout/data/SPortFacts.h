// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

/// What a walk over the cabinets of a port has given, kept so that nobody walks again.
struct SPortFacts
{
    QRect area;               ///< of its cabinets on the canvas
    bool highlighted = false; ///< one of them carries the number of a running highlight

    static SPortFacts of(const CabinetLayout::CabinetPort &port);
    /// Takes the numbers of a highlight from the cabinets of @p port, whose facts these are.
    void endHighlight(CabinetLayout::CabinetPort &port);
};
