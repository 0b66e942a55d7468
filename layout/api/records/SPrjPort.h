// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <array>

/// One port's record as stored in a port project file.
struct SPrjPort
{
    QUuid processor; ///< the processor that the port was exported from
    int index = -1;  ///< output-port index, from 0
    int cabinetCount = 0;
    int load = 0;                     ///< percent at the time of the export
    std::array<quint32, 4> area{};    ///< x, y, width, height of the port's area, in pixels
    int redundancyPort = -1;          ///< the other port of a pair; -1: none
    int version = 1;                  ///< of the record
    int brightness = 0xFFFF;          ///< 16-bit full scale
    QUuid uuid = QUuid::createUuid(); ///< unique for each new record
    CabinetLayout::CabinetPort port;  ///< the cabinets

    friend bool operator==(const SPrjPort &a, const SPrjPort &b);
    friend bool operator!=(const SPrjPort &a, const SPrjPort &b) { return !(a == b); }
};
Q_DECLARE_METATYPE(SPrjPort)
