// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QString>
#include <QUuid>
#include <QtGlobal>

/// The largest canvas of a processor, in pixels; the area is width times height.
struct SCanvasLimits
{
    int maximumWidth = 0;
    int maximumHeight = 0;
    qint64 maximumArea = 0;
};

/// The signals that a processor's ports can carry.
struct SSignalModes
{
    QList<int> frameRates;  ///< hertz
    QList<int> colorDepths; ///< bits
};

/// The part of the display that an output port carries, in pixels.
struct SPortArea
{
    quint16 port = 0; ///< output-port index, from 0
    quint16 x = 0;
    quint16 y = 0;
    quint16 width = 0;
    quint16 height = 0;

    friend bool operator==(const SPortArea &a, const SPortArea &b)
    {
        return a.port == b.port && a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
    }
    friend bool operator!=(const SPortArea &a, const SPortArea &b) { return !(a == b); }
};

/// One set of current-gain parameters of a processor.
struct SCurrentGain
{
    int frameRateCode = 0; ///< 0: 60 Hz, 1: 50 Hz, 2: 30 Hz
    int gainLevel = 0;     ///< 0: low, 1: medium, 2: high
    bool imported = false;
    bool on = false;

    friend bool operator==(const SCurrentGain &a, const SCurrentGain &b)
    {
        return a.frameRateCode == b.frameRateCode && a.gainLevel == b.gainLevel && a.imported == b.imported &&
               a.on == b.on;
    }
    friend bool operator!=(const SCurrentGain &a, const SCurrentGain &b) { return !(a == b); }
};

/// How the mapping is read.
struct SMappingOptions
{
    bool numberMapping = false;       ///< the cabinets show their numbers on the wall while being read
    bool realtime = false;            ///< the mapping is read again whenever the processor reports a change
    bool mappingFromProcessor = true; ///< the saved mapping; otherwise the one that the cabinets report
};

/// How a device operation ended.
struct SDeviceOutcome
{
    enum Result { Done, Cancelled, Failed };
    Result result = Done;
    QString text; ///< for the user: what failed and on which processor, also before a cancellation; or how
                  ///< many of several were done, where the user has left out some

    bool isDone() const { return result == Done; }
};

/// In what a layout differs from what was saved to its processor or file.
struct SUnsavedEdits
{
    quint64 saved = 0;     ///< which mapping was saved or read last; all have different numbers
    bool cabinets = false; ///< cabinets, groups or wiring, which are what steps of a history change
    bool settings =
        false; ///< anything else: locks, colours, pairs, the number of ports, a project's settings

    bool unannounced = false; ///< the layout has replaced the one that the module knows

    bool any() const { return cabinets || settings; }
    friend bool operator==(const SUnsavedEdits &a, const SUnsavedEdits &b)
    {
        return a.saved == b.saved && a.cabinets == b.cabinets && a.settings == b.settings;
    }
    friend bool operator!=(const SUnsavedEdits &a, const SUnsavedEdits &b) { return !(a == b); }
};

/// What prevents a processor's canvas size from being changed.
enum class CanvasBlock : int {
    None = 0,
    Frozen = 1,
    ZeroFrameDelay = 2,
    Bypass = 3,
    Polling = 4,
    HdmiOutput = 5
};

/// Which of several ports are locked.
enum class PortLocks : int {
    NoPorts = 0, ///< there are none
    All = 1,
    NotAll = 2
};

/// How a processor works.
enum class ProcessorWorkMode : int { VideoProcessor = 0, Bypass = 1, FiberTransceiver = 2 };

/// The ways in which a cabinet can be highlighted on the wall.
enum class CabinetHighlight : int { Off = 0, FlashingBox = 1, LedIndicator = 2 };
