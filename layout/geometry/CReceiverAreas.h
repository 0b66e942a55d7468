// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

/// The receiver areas and blanks of a cabinet as a function of its size and its original areas.
class CReceiverAreas final
{
public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    /// Brings the areas of @p cabinet, which hold for the size @p from, to the size @p to. What tiles the
    /// original size without loss tiles every size from smallest() on, and the original size brings the
    /// original areas back. The rectangle of the cabinet stays as it is.
    static void resize(Cabinet &cabinet, const QSize &from, const QSize &to);
    /// The smallest size in which every area keeps a pixel; 1 x 1 for a cabinet without areas. @p size is the
    /// one for which its areas hold.
    static QSize smallest(const Cabinet &cabinet, const QSize &size);
    /// Reverses the order in which the signal runs through the receivers.
    static void reverse(Cabinet &cabinet);
};
