// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SMD5.h"

#include <QColor>
#include <QList>
#include <QRect>
#include <QUuid>
#include <QVector>

#include <memory>

/// The whole layout of one processor: its output ports. All containers are implicitly shared, so a copy costs
/// nothing, and an edit copies only the port that it changes.
struct CabinetLayout
{
    /// One output port: its cabinets, organised as groups, and what the editor shows of the port.
    struct CabinetPort
    {
        /// The areas of a resized cabinet before it was first resized, in pixels of its size then. The areas
        /// for every other size are computed from them, so that returning to a size restores its areas.
        struct SOriginalAreas
        {
            QSize size;
            QVector<QRect> rects;
            QVector<QRect> blanks;
        };

        /// One cabinet (LED panel with its receiver cards) placed on the canvas.
        struct Cabinet
        {
            QUuid uuid;    ///< identity, by which the host finds the processor that holds the cabinet
            int port = -1; ///< output-port index, from 0
            QRect rect;    ///< placement on the canvas in pixels; right and bottom are inclusive
            int rank = -1; ///< place in the port's wiring chain, from 0; -1: not wired
            SMD5 type;     ///< key of the type in the library; null: a custom size
            bool directionFixed = false; ///< the order of @ref rects must not be reversed
            bool custom = false;         ///< marked by the user as custom-defined
            QVector<QRect>
                rects; ///< one rectangle for each receiver area, in wiring order, in the cabinet's own pixels
            int mappingIndex = -1;     ///< place in the processor's saved mapping; -1: not in it
            int calibrationIndex = -1; ///< number of the running highlight on the processor; -1: none
            QUuid group;               ///< the group that holds it; null: none
            QVector<int> receivers;    ///< numbers of the receiver cards that answered, in wiring order
            QVector<QRect> blanks;     ///< parts of the cabinet without LEDs, in the cabinet's own pixels
            std::shared_ptr<const SOriginalAreas> original; ///< null: the areas are the original ones

            /// Returns whether the cabinet has a size of its own instead of a type of the library.
            bool isCustomDefined() const { return type.isNull(); }

            friend bool operator==(const Cabinet &a, const Cabinet &b);
            friend bool operator!=(const Cabinet &a, const Cabinet &b) { return !(a == b); }
        };

        /// A group of cabinets; groups can be nested. A port's ungrouped cabinets form one group of their
        /// own, the loose group: it has a null identity and no sub-groups, and is the first in the port.
        struct CabinetGroup
        {
            QUuid uuid; ///< identity; null for the loose group
            QString name;
            QVector<Cabinet> cabinets;
            QVector<CabinetGroup> groups;

            bool isLoose() const { return uuid.isNull(); }
            /// Every cabinet below the group: its own, then its sub-groups', depth first.
            QVector<Cabinet> allCabinets() const;
            int cabinetCount() const;
            /// The union of the rectangles of all cabinets below the group; null if there are none.
            QRect boundingRect() const;

            friend bool operator==(const CabinetGroup &a, const CabinetGroup &b);
            friend bool operator!=(const CabinetGroup &a, const CabinetGroup &b) { return !(a == b); }
        };

        /// A port's part in a pair of ports that carry the same signal.
        enum Redundancy { NoRedundancy = 0, Primary = 1, Redundant = 2 };

        int index = -1; ///< output-port index, from 0; -1 in a request: every port
        QVector<CabinetGroup> groups;
        QColor color;        ///< fill of its cabinets on the canvas; invalid: the port's default
        bool locked = false; ///< refuses edits
        Redundancy redundancy = NoRedundancy;
        int redundancyPort = -1;   ///< the other port of the pair; -1: none
        QUuid redundancyProcessor; ///< processor of the other port; null: the same processor
        /// For a redundancy port: the wired cabinets of its primary, in order, as they were when last copied
        /// here. The port's own cabinets stay in the groups, without wiring, until the pair ends.
        QVector<Cabinet> mirrored;
        qint64 load = 0; ///< percent of the port's capacity; above 100: overloaded

        /// Every cabinet of the port: a group's own cabinets, then its sub-groups', depth first in stored
        /// order.
        QVector<Cabinet> getAllCabinets() const;
        int cabinetCount() const;
        /// The cabinets that are in no group, in stored order.
        QVector<Cabinet> looseCabinets() const;

        friend bool operator==(const CabinetPort &a, const CabinetPort &b);
        friend bool operator!=(const CabinetPort &a, const CabinetPort &b) { return !(a == b); }
    };

    QUuid processor;            ///< the processor whose layout this is
    QVector<CabinetPort> ports; ///< in ascending port index

    int cabinetCount() const;
    /// The port with that output-port index, or null. The pointer is valid until the layout is changed.
    const CabinetPort *port(int index) const;
    /// The union of all cabinets' rectangles; empty when there are none.
    QRect boundingRect() const;

    friend bool operator==(const CabinetLayout &a, const CabinetLayout &b);
    friend bool operator!=(const CabinetLayout &a, const CabinetLayout &b) { return !(a == b); }
};
Q_DECLARE_TYPEINFO(CabinetLayout::CabinetPort::Cabinet, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(CabinetLayout::CabinetPort::CabinetGroup, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(CabinetLayout::CabinetPort, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(CabinetLayout)
Q_DECLARE_METATYPE(CabinetLayout::CabinetPort)
Q_DECLARE_METATYPE(CabinetLayout::CabinetPort::Cabinet)
Q_DECLARE_METATYPE(CabinetLayout::CabinetPort::CabinetGroup)
