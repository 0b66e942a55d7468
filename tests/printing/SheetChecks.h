// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"
#include "tests/printing/GraphicsWalls.h"

#include <QStringList>

/// Makes drawings and finds what is on them.
namespace SheetChecks {

constexpr double Smallest = 7; // points
constexpr double Hair = 0.02;  // millimetres

PrintConfig configOf(PrintConfig::Paper paper, bool landscape = true);
/// Every drawing of a wall.
QVector<SSheet> drawings(const SPrintPlan &plan);
QStringList textsOf(const SSheet &sheet, EMark mark);
/// What is wrong with a sheet; empty if nothing is.
QString faultOf(const SSheet &sheet);
/// The cabinet numbers of all sheets of a port, sorted.
QVector<int> numbersOf(const QVector<SSheet> &sheets, const QString &processor, int port);
QVector<int> upTo(int last);
/// One port of @p columns x @p rows cabinets, row by row.
GraphicsWalls::SWallKind onePort(int columns, int rows);
/// The borders of cabinets, by place.
QVector<QRectF> cabinetsOf(const SSheet &sheet);

} // namespace SheetChecks
