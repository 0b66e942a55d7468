// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMap>
#include <QPainterPath>
#include <QRgb>
#include <QVector>

/// The hatchings by which output ports are told apart without colour. They are bound to the paper, not to
/// what is drawn: a mirrored wall keeps them. Any thread.
namespace Hatching {

constexpr int Count = 16;
constexpr QRgb Color = 0xff707070;

/// What a hatching draws.
struct SStrokes
{
    QPainterPath path;
    double width = 0;   ///< millimetres
    bool round = false; ///< the lines' ends; dots are lines of hardly any length
};

/// The lines of hatching @p number, from 1 (blank), clipped to @p area; millimetres.
SStrokes strokes(const QPainterPath &area, int number);

/// A hatching for each port, so that no two that touch have the same as far as there are enough of them.
/// @p touching are the ports that touch each port, by output-port index. The port with index n gets number
/// n mod 16 + 1, or the next that is free.
QMap<int, int> chosen(const QMap<int, QVector<int>> &touching);

} // namespace Hatching
