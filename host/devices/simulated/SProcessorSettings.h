// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CCurrentGainFile.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "layout/api/records/SHostRecords.h"
#include "layout/api/records/SMD5.h"

#include <QMap>
#include <QPoint>
#include <QSize>

/// What a processor keeps beside its mapping.
struct SProcessorSettings
{
    int portCount = 0; ///< output ports in use
    QSize canvas{1920, 1080};
    QPoint offset; ///< of its area on the shared canvas, in pixels
    SBackgroundInfo background;
    int frameRate = 60; ///< hertz
    int colorDepth = 8; ///< bits
    bool threeD = false;
    bool lowLatency = false; ///< shows each frame without delay
    bool frozen = false;     ///< the picture stands still; forgotten without power
    bool polling = false;    ///< shows its inputs in turn
    bool hdmiOutput = false; ///< sends the canvas to its HDMI output, too
    bool statusLed = false;  ///< the status LEDs of the cabinets are on
    ProcessorWorkMode workMode = ProcessorWorkMode::VideoProcessor;
    QUuid primary; ///< the processor that it stands in for; null: none
    QList<SPortArea> portAreas;
    QVector<SCurrentGainRow> gainRows; ///< current-gain parameters that were sent to it
    QList<SCurrentGain> gains;         ///< which of them are switched on
    QMap<SMD5, double> gammas;         ///< gamma that the receivers of a cabinet type were given

    friend bool operator==(const SProcessorSettings &a, const SProcessorSettings &b);
    friend bool operator!=(const SProcessorSettings &a, const SProcessorSettings &b) { return !(a == b); }
};
