// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

/// What was last copied: the loose cabinets as one loose group, then the copied groups.
struct PasteCache
{
    QVector<CabinetLayout::CabinetPort::CabinetGroup> groups;

    bool isEmpty() const { return groups.isEmpty(); }
    friend bool operator==(const PasteCache &a, const PasteCache &b) { return a.groups == b.groups; }
    friend bool operator!=(const PasteCache &a, const PasteCache &b) { return !(a == b); }
};
