// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/printing/PdfText.h"

#include <QHash>
#include <QPolygonF>
#include <QTransform>

/// Follows the operators of a page, as far as QPdfWriter uses them.
class CPdfContent final
{
public:
    struct SFont
    {
        QHash<int, QString> letters; ///< by glyph
        QVector<int> widths;         ///< by glyph, in thousandths of the size of the letters
    };

    /// @p height: of the page, in points.
    CPdfContent(const QHash<QByteArray, SFont> &fonts, double height);

    PdfText::SPage read(const QByteArray &content);

private:
    void obey(const QByteArray &name);
    void obeyText(const QByteArray &name);
    /// The operand at @p place, from the last one back.
    double operand(int place) const { return m_operands.value(m_operands.size() - place, 0.0); }
    QTransform matrix() const;
    void show(const QByteArray &glyphs);
    void addPoint(double x, double y);
    void paint(double pen);

    const QHash<QByteArray, SFont> &m_fonts;
    PdfText::SPage m_page;
    QTransform m_place;
    QVector<QTransform> m_saved;
    QVector<double> m_operands;
    QByteArray m_word; ///< the operand that is no number
    QPolygonF m_path;
    double m_pen = 1;
    SFont m_font;
    double m_size = 0;
    QTransform m_text; ///< of the letters
    QPointF m_at;      ///< where the next letter begins
};
