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

/// The settings that a processor keeps beside its mapping.
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
    bool frozen = false;     ///< the picture stands still; not kept when switched off
    bool polling = false;    ///< shows its inputs in turn
    bool hdmiOutput = false; ///< also sends the canvas to its HDMI output
    bool statusLed = false;  ///< the status LEDs of the cabinets are on
    ProcessorWorkMode workMode = ProcessorWorkMode::VideoProcessor;
    QUuid primary; ///< the processor whose redundancy it is; null: none
    QList<SPortArea> portAreas;
    QVector<SCurrentGainRow> gainRows; ///< current-gain parameters sent to it
    QList<SCurrentGain> gains;         ///< which of them are switched on
    QMap<SMD5, double> gammas;         ///< gamma sent to the receivers, by cabinet type

    friend bool operator==(const SProcessorSettings &a, const SProcessorSettings &b);
    friend bool operator!=(const SProcessorSettings &a, const SProcessorSettings &b) { return !(a == b); }
};
