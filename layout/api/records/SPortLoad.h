// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGlobal>

/// The load of an output port, and the figures that it was computed from.
struct SPortLoad
{
    enum Limit {
        PortRate,       ///< what the port can carry at this frame rate and colour depth
        ThreeD,         ///< the smaller capacity of a port while 3D is on
        ProcessorPixels ///< what the processor can drive in all
    };

    qint64 pixels = 0;        ///< that the port is charged for its cabinets
    int frameRate = 0;        ///< hertz
    int bitsPerPixel = 0;     ///< on the wire; 0: the colour depth is not offered
    qint64 bitsPerSecond = 0; ///< net rate of a port
    qint64 capacity = 0;      ///< of the port, pixels
    qint64 totalPixels = 0;   ///< of all ports
    qint64 pixelLimit = 0;    ///< of the processor
    Limit limit = PortRate;   ///< the one that determines the load
    int percent = 0;          ///< above 100: overloaded
};
