// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PasteCache.h"

class CSceneSelection;

/// What a paste cache holds and what becomes of it in a port. GUI thread.
class CPasteContent final
{
public:
    /// The selected cabinets and groups as their records tell them.
    static PasteCache copyOf(const CSceneSelection &selection);

    static int cabinetCount(const PasteCache &cache);
    /// The union of all cabinets' rectangles, canvas pixels.
    static QRect extent(const PasteCache &cache);
    /// The copied cabinets and groups as a port's record, moved so that the corner of their extent comes to
    /// lie at @p corner. All are without identity yet. Cabinets that were wired are ranked in the order of
    /// their ports and chains; what the processor knew of the originals is left out.
    static CabinetLayout::CabinetPort placed(const PasteCache &cache, const QPoint &corner);
};
