// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

class CGraphicsGroupItem;
class CGraphicsPortItem;

/// Reads items back into records, the reverse of CLayoutBuilder.
class CLayoutReader final
{
public:
    /// Groups and cabinets are in the order in which they were built; ungrouped cabinets form the loose
    /// group.
    static CabinetLayout::CabinetPort read(const CGraphicsPortItem &port);
    static CabinetLayout::CabinetPort::CabinetGroup read(const CGraphicsGroupItem &group);
};
