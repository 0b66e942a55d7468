// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDate>
#include <QMetaType>
#include <QSizeF>
#include <QString>
#include <QUuid>
#include <QVector>

/// Print settings of the whole job (null processor) or of one processor.
struct PrintConfig
{
    enum Paper { A4 = 0, A3 = 1, A2 = 2, A1 = 3, A0 = 4, Letter = 5, Tabloid = 6, CustomPaper = 7 };
    enum Views { FrontView = 0, BackView = 1, BothViews = 2 };
    enum Binding { NoBinding = 0, BindLeft = 1, BindTop = 2 };
    /// The kinds of sheets; flags.
    enum Sheet {
        Cover = 1,
        PortTable = 2,
        Overview = 4,
        PortSheets = 8,
        CabinetList = 16,
        PartsList = 32,
        AllSheets = 63
    };

    /// Where the processors stand, and where the wall hangs above their floor.
    struct SRack
    {
        bool right = false;   ///< of the wall as seen from the front
        int distance = 3000;  ///< millimetres from the wall's side
        int lowerEdge = 1000; ///< of the wall, millimetres above the floor on which the rack stands

        friend bool operator==(const SRack &a, const SRack &b)
        {
            return a.right == b.right && a.distance == b.distance && a.lowerEdge == b.lowerEdge;
        }
    };
    /// What signal cables there are.
    struct SCables
    {
        int hopSlack = 300;                                         ///< millimetres, from cabinet to cabinet
        int feedSlack = 2000;                                       ///< millimetres, between rack and wall
        QVector<int> stock{1, 2, 3, 5, 10, 15, 20, 25, 30, 40, 50}; ///< metres, ascending
        int sparePercent = 5;                                       ///< of cabinets and cables

        friend bool operator==(const SCables &a, const SCables &b)
        {
            return a.hopSlack == b.hopSlack && a.feedSlack == b.feedSlack && a.stock == b.stock &&
                   a.sparePercent == b.sparePercent;
        }
    };
    /// What the power comes from.
    struct SSupply
    {
        int volts = 230;
        int phases = 3;
        int circuitAmperes = 16;
        int usablePercent = 80; ///< of a circuit

        friend bool operator==(const SSupply &a, const SSupply &b)
        {
            return a.volts == b.volts && a.phases == b.phases && a.circuitAmperes == b.circuitAmperes &&
                   a.usablePercent == b.usablePercent;
        }
    };

    QUuid processor;
    bool own = false; ///< settings that were kept, although they are the usual ones
    QString address;  ///< of the processor, for one that has no device; not for the whole job
    QString project;
    QString venue;
    QString designer;
    QString auditor;
    QDate date; ///< invalid: today
    QString notes;
    QString watermark;
    Paper paper = A4;
    QSizeF customPaper{297, 210}; ///< millimetres, as it lies; only for CustomPaper
    bool landscape = true;        ///< not for CustomPaper
    Binding binding = BindLeft;
    double bindingMargin = 20; ///< millimetres, at the edge that is bound
    double margin = 10;        ///< millimetres, at the other edges
    Views views = FrontView;
    int scale = 0;     ///< the drawings are 1:scale; 0: they fit the sheet
    bool grey = false; ///< without the ports' colours
    int sheets = AllSheets;
    QString farEnd; ///< "name (address)" of the processor that the ends of the strings are looped back to;
                    ///< empty: only ports that are primaries of a pair are looped back
    double pixelPitch = 2.6; ///< millimetres, for cabinets whose type does not tell
    SRack rack;
    SCables cables;
    SSupply supply;

    /// Without processor and date, which no file keeps; differs from settings that nobody has kept.
    PrintConfig kept() const;

    friend bool operator==(const PrintConfig &a, const PrintConfig &b);
    friend bool operator!=(const PrintConfig &a, const PrintConfig &b) { return !(a == b); }
};
Q_DECLARE_METATYPE(PrintConfig)
