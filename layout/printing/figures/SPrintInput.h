// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SPortLoad.h"
#include "layout/api/records/SSettings.h"

#include <QMap>
#include <QPair>
#include <QSet>
#include <QSize>
#include <QString>
#include <QVector>

/// One processor that is printed: its wall, and the figures that only the host knows.
struct SPrintedProcessor
{
    ProcessorTree::ProcessorNode node; ///< with address 0 for a project, which has none
    CabinetLayout layout;
    QSize canvas; ///< pixels
    QString kind; ///< the model; empty: unknown
    int portCount = 0;
    int frameRate = 60;         ///< hertz
    int colorDepth = 8;         ///< bits
    qint64 pixelLimit = 0;      ///< what the processor can drive in all; 0: unknown
    int bitsPerPixel = 0;       ///< on the wire; 0: unknown
    qint64 bitsPerSecond = 0;   ///< net rate of a port
    QMap<int, SPortLoad> loads; ///< by output-port index; of every port, perhaps of its primary elsewhere
    QUuid redundancy;           ///< the processor that takes over when this one fails; null: none
    QUuid primary;              ///< the processor that this one takes over for; null: none
};

/// What is printed. A value: what happens to the layout later does not change it.
struct SPrintInput
{
    using RcvTypeInfo = SSettings::TypeLibrary::STreeNode::RcvTypeInfo;

    QVector<SPrintedProcessor> processors;
    QMap<SMD5, RcvTypeInfo> types;            ///< of all cabinets whose type the library knows
    QMap<QPair<int, int>, RcvTypeInfo> alike; ///< by width and height in pixels: a type of that size, which
                                              ///< stands in for cabinets without a type
    /// Where the types come from that are not known yet, see takeTypes().
    QVector<SSettings::TypeLibrary::STreeNode> library;
    QMap<QUuid, ProcessorTree::ProcessorNode>
        others;         ///< processors that may be redundancy, or hold ports of pairs
    QSet<QUuid> unread; ///< of the others: whether they have cabinets is not known

    /// Sets the types of all cabinets of the processors from the library. Looks at every cabinet.
    void takeTypes();
};
