// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QMap>
#include <QMetaType>
#include <QRect>
#include <QString>
#include <QUuid>

/// The kind of what is selected in the host's device tree. Other: a heading, which names no processor.
enum class PrcTreeNodeType : int { Processor = 0, Group = 1, Other = 2 };

/// The host's device tree as the module sees it.
struct ProcessorTree
{
    /// One processor.
    struct ProcessorNode
    {
        QUuid uuid;
        QString name;
        int index = -1;       ///< place among the detected processors, from 0; -1: not detected
        int groupIndex = -1;  ///< place in its group, from 0; -1: not in a group
        int colorDepth = 8;   ///< bits per colour
        int brightness = 100; ///< percent
        QString model;        ///< name of the processor kind
        QString serialNumber;
        quint32 address = 0x7F000001; ///< IPv4, most significant byte first; 0: none
        bool online = false;
        bool fiberTransceiver = false; ///< in fibre optic transceiver mode

        /// The dotted address, most significant byte first.
        QString addressText() const;
        /// How a processor is shown to the user: "name(address)", or the name alone if there is no address.
        QString displayText() const;

        friend bool operator==(const ProcessorNode &a, const ProcessorNode &b);
        friend bool operator!=(const ProcessorNode &a, const ProcessorNode &b) { return !(a == b); }
    };

    /// A group of processors.
    struct ProcessorGroupNode
    {
        QUuid uuid;
        QString name;
        QList<ProcessorNode> processors;

        friend bool operator==(const ProcessorGroupNode &a, const ProcessorGroupNode &b)
        {
            return a.uuid == b.uuid && a.name == b.name && a.processors == b.processors;
        }
        friend bool operator!=(const ProcessorGroupNode &a, const ProcessorGroupNode &b) { return !(a == b); }
    };
};

/// Processors' bounding rectangles, in pixels of the shared canvas of a selection.
using ProcessorBoundingRects = QMap<QUuid, QRect>;
/// Where processors' areas lie on the shared canvas, in pixels.
using ProcessorOffsets = QMap<QUuid, QPoint>;

Q_DECLARE_METATYPE(PrcTreeNodeType)
Q_DECLARE_METATYPE(ProcessorTree::ProcessorNode)
Q_DECLARE_METATYPE(ProcessorTree::ProcessorGroupNode)
