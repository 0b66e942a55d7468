// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"

#include <QMap>
#include <QString>

/// What the receivers of one generation accept on a 1 Gbit port.
struct SReceiverGeneration
{
    QString id;
    qint64 netBitsPerSecond = 0;
    QMap<int, int> wireBits; ///< colour depth in bits → bits per pixel on the wire; other depths are refused
    bool chargesBoundingRect = false; ///< a port is charged the rectangle around its cabinets, not their sum
};

/// What a kind of processor can do.
struct SProcessorKind
{
    QString id;
    QString name;          ///< the model, as shown to the user
    int ports = 0;         ///< output ports
    qint64 pixelLimit = 0; ///< largest number of pixels of all ports together
    SCanvasLimits canvas;
    int lowLatencyWidth = 0; ///< pixels; 0: no limit
    bool portRedundancy = false;
    QList<int> frameRates; ///< hertz
    SReceiverGeneration generation;

    SSignalModes signalModes() const { return {frameRates, generation.wireBits.keys()}; }
};
