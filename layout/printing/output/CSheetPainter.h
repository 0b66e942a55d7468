// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/sheets/SSheet.h"

class QFont;
class QPainter;

/// Draws sheets: for files, printers and the preview alike. Any thread.
class CSheetPainter final
{
public:
    /// The painter must have CSheetFont::UnitsPerMillimetre, with the origin in the sheet's upper left
    /// corner.
    static void paint(QPainter &painter, const SSheet &sheet);

private:
    explicit CSheetPainter(QPainter &painter);
    void draw(const SSheetFill &fill);
    void draw(const SSheetStroke &stroke);
    void draw(const SSheetText &text);
    void drawLetters(const QPointF &start, const QFont &font, const QString &letters);

    QPainter &m_painter;
};
