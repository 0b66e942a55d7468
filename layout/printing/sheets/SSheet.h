// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVector>

#include <variant>

/// What a text on a sheet is, so that it can be found.
enum class EMark : int {
    Title,         ///< the sheet's name and what stands beside it
    CabinetNumber, ///< place in the chain, from 1
    CabinetType,
    CabinetPlace, ///< row and column
    CabinetPixel,
    Tag, ///< START, END, stubs
    PortName,
    Fact,
    Ruler,
    TableHead,
    TableCell,
    Caption,
    Note,
    TitleBlock, ///< in the title block and the view box
    Watermark
};

/// A text of one line in a box.
struct SSheetText
{
    QRectF box;
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    double points = 8.5; ///< size of the letters
    bool bold = false;
    QColor color = Qt::black;
    QString text;
    EMark mark = EMark::Note;
    double whiteEdge = 0; ///< width of the white around the letters
    double turned = 0;    ///< degrees clockwise about the box's centre
};

/// A line.
struct SSheetStroke
{
    QPainterPath path;
    double width = 0.18;
    QColor color = Qt::black;
    QVector<qreal> dashes; ///< lengths of dashes and gaps in millimetres; empty: solid
    double whiteEdge = 0;  ///< width of the white on both sides
};

/// An area.
struct SSheetFill
{
    QPainterPath path;
    QColor color;     ///< invalid: only the hatching
    int hatching = 0; ///< 1 to 16; 0: none
};

using SSheetMark = std::variant<SSheetFill, SSheetStroke, SSheetText>;

/// A sheet before it is drawn. Millimetres from its upper left corner.
struct SSheet
{
    enum View { Front, Back };

    QString title;     ///< for the title block
    QString ports;     ///< for the title block: the number of a port, or "all"
    QString processor; ///< for the title block: name (address)
    QSizeF size;
    QRectF frame; ///< nothing is drawn outside
    View view = Front;
    int port = -1;             ///< output-port index of a port sheet, from 0
    bool list = false;         ///< a table or the cover: the view says only how the job is printed
    QString scale;             ///< for the title block: "to fit", "1:25"
    bool scaleMissed = false;  ///< to fit, although a true scale is wanted: that would be unreadable
    QVector<SSheetMark> marks; ///< drawn in this order
};
