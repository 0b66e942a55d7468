// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

/// The letters of all sheets: one sans-serif family, measured as they are drawn, independent of any device.
/// Any thread.
class CSheetFont final
{
public:
    /// Widths and heights of letters are computed from this many units per millimetre; painters that draw
    /// sheets use the same unit.
    static constexpr int UnitsPerMillimetre = 100;

    /// The font for a painter that has UnitsPerMillimetre.
    static QFont font(double points, bool bold);
    /// Whether the font, or one that stands in for it, has the letter.
    static bool has(uint letter);
    /// Millimetres that a text takes on its line.
    static double width(const QString &text, double points, bool bold);
    /// Millimetres from the top of the highest letter to the bottom of the lowest, with their room.
    static double lineHeight(double points);
    /// Height of a capital, millimetres.
    static double capHeight(double points);
    /// @p text, or what fits of it: its middle is replaced by an ellipsis.
    static QString elided(const QString &text, double points, bool bold, double width);
    /// Breaks @p text into lines of at most @p width millimetres, where a text may be broken, within words
    /// that are longer, and at line feeds. Spaces at the ends of lines go, everything else stays.
    static QStringList lines(const QString &text, double points, bool bold, double width);
};
