// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/printing/CPdfContent.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

constexpr double PointsPerMillimetre = 72 / 25.4;
constexpr double CapHeight = 0.7; // of the size of the letters

} // namespace

CPdfContent::CPdfContent(const QHash<QByteArray, SFont> &fonts, double height)
    : m_fonts(fonts)
    , m_place(1 / PointsPerMillimetre, 0, 0, -1 / PointsPerMillimetre, 0, height / PointsPerMillimetre)
{
}

PdfText::SPage CPdfContent::read(const QByteArray &content)
{
    const char *at = content.constData();
    const char *const end = at + content.size();
    while (at < end) {
        const char *const from = at;
        if (std::strchr(" \n[]", *at)) {
            ++at;
        } else if (std::isdigit(*at) || *at == '-' || *at == '.') {
            char *behind = nullptr;
            m_operands << std::strtod(at, &behind);
            at = behind;
        } else {
            while (at < end && !std::strchr(" \n[]", *at))
                ++at;
            const QByteArray word(from, int(at - from));
            if (*from == '/' || *from == '<') {
                m_word = word;
                continue;
            }
            obey(word);
            m_operands.clear();
        }
    }
    return m_page;
}

QTransform CPdfContent::matrix() const
{
    return {operand(6), operand(5), operand(4), operand(3), operand(2), operand(1)};
}

void CPdfContent::obey(const QByteArray &name)
{
    if (name == "q") {
        m_saved << m_place;
    } else if (name == "Q") {
        m_place = m_saved.takeLast();
    } else if (name == "cm") {
        m_place = matrix() * m_place;
    } else if (name == "w") {
        m_pen = operand(1);
    } else if (name == "m" || name == "l") {
        addPoint(operand(2), operand(1));
    } else if (name == "c") {
        for (int point = 6; point > 0; point -= 2)
            addPoint(operand(point), operand(point - 1));
    } else if (name == "re") {
        addPoint(operand(4), operand(3));
        addPoint(operand(4) + operand(2), operand(3) + operand(1));
    } else if (name == "S" || name == "B" || name == "B*") {
        paint(m_pen);
    } else if (name == "f" || name == "f*") {
        paint(0);
    } else if (name == "n") {
        m_path.clear();
    } else {
        obeyText(name);
    }
}

void CPdfContent::obeyText(const QByteArray &name)
{
    if (name == "BT") {
        m_page.runs << PdfText::SRun();
        m_at = {};
    } else if (name == "Tf") {
        m_font = m_fonts.value(m_word.mid(1));
        m_size = operand(1);
    } else if (name == "Tm") {
        m_text = matrix();
    } else if (name == "Td") {
        m_at += QPointF(operand(2), operand(1));
    } else if (name == "Tj") {
        show(QByteArray::fromHex(m_word));
    }
}

void CPdfContent::show(const QByteArray &glyphs)
{
    PdfText::SRun &run = m_page.runs.last();
    for (int i = 0; i + 1 < glyphs.size(); i += 2) {
        const int glyph = uchar(glyphs.at(i)) << 8 | uchar(glyphs.at(i + 1));
        const QRectF letter(m_at, QSizeF(m_font.widths.value(glyph) * m_size / 1000, CapHeight * m_size));
        run.letters |= (m_text * m_place).mapRect(letter);
        run.text += m_font.letters.value(glyph);
        m_page.text += m_font.letters.value(glyph);
    }
}

void CPdfContent::addPoint(double x, double y)
{
    m_path << m_place.map(QPointF(x, y));
}

void CPdfContent::paint(double pen)
{
    const double half = pen / 2 * std::sqrt(std::abs(m_place.determinant()));
    const QRectF around = m_path.boundingRect();
    const QRectF painted = around.adjusted(-half, -half, half, half);
    m_page.drawn = m_page.drawn.isNull() ? painted : m_page.drawn.united(painted);
    m_path.clear();
}
