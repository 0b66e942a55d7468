// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintInput.h"
#include "layout/printing/figures/SPrintJob.h"

#include <QColor>
#include <QRectF>

/// A type of cabinet as it appears on the sheets of a job.
struct SPlanType
{
    QString letter; ///< A, B, C … by the order of first use
    QString name;
    QSize pixels;
    QSizeF millimetres;
    bool alike = false;    ///< figures are those of a type of the same size, the cabinets have none
    bool presumed = false; ///< millimetres come from the pitch
    double kilograms = 0;  ///< 0: unknown
    int wattsMaximum = 0;  ///< 0: unknown
    int wattsAverage = 0;  ///< 0: unknown
};

/// A cabinet with its place on the real wall.
struct SPlanCabinet
{
    QUuid uuid;
    int port = -1;  ///< output-port index, from 0
    int number = 0; ///< place in the chain, from 1; 0: not wired
    int type = -1;  ///< index into SPrintPlan::types
    SMD5 typeKey;
    QVector<QRect> receivers; ///< areas of its receivers, in wiring order, in its own pixels
    QRect pixels;             ///< on the canvas
    QRectF millimetres;       ///< from the wall's upper left corner, as seen from the front
    int row = 0;              ///< from 1, from the top
    int column = 0;           ///< from 1, from the left as seen from the front

    QString place() const { return QStringLiteral("r%1 c%2").arg(row).arg(column); }
};

/// One cable.
struct SCableRun
{
    int route = 0; ///< millimetres along level and upright lines
    int need = 0;  ///< route and slack, millimetres
    int stock = 0; ///< the length to take, metres; 0: longer than all stock lengths

    /// "15"; "> 50" of a cable that is longer than all of @p cables. @p stock: the length that was taken.
    static QString metres(int stock, const PrintConfig::SCables &cables);
};

/// Sums over cabinets.
struct SPlanTotals
{
    int cabinets = 0;
    int ports = 0; ///< in use
    qint64 pixels = 0;
    double squareMetres = 0;
    double kilograms = 0;
    qint64 wattsMaximum = 0;
    qint64 wattsAverage = 0;
    bool weightKnown = true;  ///< of every cabinet
    bool maximumKnown = true; ///< the same of its power
    bool averageKnown = true;

    /// Amperes for @p watts, rounded up to a tenth.
    static double amperes(qint64 watts, int volts);
    /// Percent, of a processor whose output ports have these @p loads.
    static int load(const QVector<int> &loads);
};

/// An output port of a plan.
struct SPlanPort
{
    int index = -1;       ///< from 0
    QVector<int> chain;   ///< indices into SPlanProcessor::cabinets, in wiring order
    QVector<int> unwired; ///< the same, of cabinets without wiring, by place
    SPlanTotals totals;
    qint64 charged = 0; ///< pixels that count for the load
    qint64 added = 0;   ///< pixels that count for the processor: none for a port that repeats one of its own
    qint64 capacity = 0;
    int load = 0; ///< percent
    QColor color; ///< of its cabinets on the canvas
    bool locked = false;
    bool looped = false;     ///< the end of the chain is looped back
    QString redundancyName;  ///< of the processor that it is looped back to
    QString redundancyShown; ///< the same with its address
    QString
        redundancyKey; ///< tells that processor apart, whatever its address and the job; empty: its own one
    int redundancyPort = -1; ///< output-port index there, from 0
    bool redundant = false;  ///< it is the redundancy port of a pair
    QVector<SCableRun> hops; ///< from each cabinet of the chain to the next
    SCableRun feed;          ///< only with a chain
    SCableRun loop;          ///< only if looped

    bool hasCabinets() const { return !chain.isEmpty() || !unwired.isEmpty(); }
    /// Whether it carries a signal, be it that of its primary.
    bool isUsed() const { return hasCabinets() || redundant; }
    /// "Main stage B, port 4"; empty if it is not looped back.
    QString redundancyText() const;
};

/// A processor of a plan.
struct SPlanProcessor
{
    SPrintedProcessor source;
    PrintConfig config;             ///< that its sheets are made with
    QString name;                   ///< "name (address)", or the name
    QString farEnd;                 ///< the processor that all strings are looped back to; empty: none
    QString primary;                ///< the processor that this one takes over for; empty: none
    QString version;                ///< of the layout, "C379-AAD8"
    QVector<SPlanCabinet> cabinets; ///< by port, then by place in the chain, then those without wiring
    QVector<SPlanPort> ports;       ///< every output port of the processor, ascending
    QSizeF millimetres;             ///< of the wall
    QRect pixels;                   ///< of the wall, on the canvas
    int rows = 0;
    int columns = 0;
    SPlanTotals totals;

    const SPlanPort *port(int index) const;
};

/// Everything that the sheets of a job tell, computed once.
struct SPrintPlan
{
    PrintConfig config; ///< of the whole job
    QVector<SPlanType> types;
    QMap<SMD5, QString> typeNames; ///< of the types that the library knows
    QVector<SPlanProcessor> processors;
    QStringList empty; ///< names of the processors that have no cabinets, which are not among the others
    SPlanTotals totals;

    static SPrintPlan of(const SPrintInput &input, const SPrintJob &job);
};
