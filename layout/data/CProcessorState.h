// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "layout/data/PortRedundancyNote.h"
#include "layout/data/SPortFacts.h"

#include <QHash>

/// What the store remembers about one processor.
class CProcessorState
{
public:
    virtual ~CProcessorState() = default;

    CabinetLayout layout; ///< as last received from the host or the editor
    QSize canvas;         ///< pixels
    SBackgroundInfo background;
    QHash<int, SPortFacts> facts;          ///< by port index
    QHash<int, SPortRedundancyNote> notes; ///< by port index; none: nothing to say
};
