// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PasteCache.h"

class CSceneSelection;

/// Makes a paste cache from the selection, and a port record from a paste cache. GUI thread.
class CPasteContent final
{
public:
    /// Returns the records of the selected cabinets and groups.
    static PasteCache copyOf(const CSceneSelection &selection);

    static int cabinetCount(const PasteCache &cache);
    /// The union of all cabinets' rectangles, canvas pixels.
    static QRect extent(const PasteCache &cache);
    /// Returns the copied cabinets and groups as a port record, moved so that the upper left corner of their
    /// extent is at @p corner. All have null identities. Cabinets that were wired are ranked in the order of
    /// their ports and chains; what the processor knew of the originals is left out.
    static CabinetLayout::CabinetPort placed(const PasteCache &cache, const QPoint &corner);
};
