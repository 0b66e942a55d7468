// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

/// The receiver areas and blanks of a cabinet as a function of its size and its original areas.
class CReceiverAreas final
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// Scales the areas of @p cabinet, which are given for the size @p from, to the size @p to. Areas that
    /// tile the original size without gaps tile every size from smallest() on, and the original size restores
    /// the original areas, except what lies outside that size. The rectangle of the cabinet is not changed.
    static void resize(Cabinet &cabinet, const QSize &from, const QSize &to);
    /// The smallest size in which every area keeps at least one pixel; 1 x 1 for a cabinet without areas.
    /// @p size is the size for which its areas are given.
    static QSize smallest(const Cabinet &cabinet, const QSize &size);
    /// Reverses the order in which the signal runs through the receivers.
    static void reverse(Cabinet &cabinet);
};
