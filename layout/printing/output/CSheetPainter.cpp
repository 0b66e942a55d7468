// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/output/CSheetPainter.h"

#include "layout/printing/graphics/Hatching.h"
#include "layout/printing/sheets/CSheetFont.h"

#include <QEventLoop>
#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainter>

namespace {

constexpr double Units = CSheetFont::UnitsPerMillimetre;

QPainterPath scaled(const QPainterPath &path)
{
    return QTransform::fromScale(Units, Units).map(path);
}

QPen penOf(const QColor &color, double millimetres)
{
    QPen pen(color, millimetres * Units, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    return pen;
}

/// Where the base line of a text begins, relative to its box's centre or corner.
QPointF startOf(const SSheetText &text, double width, const QRectF &box)
{
    const double cap = CSheetFont::capHeight(text.points) * Units;
    const double line = CSheetFont::lineHeight(text.points) * Units;
    QPointF start(box.left(), box.center().y() + cap / 2);
    if (text.alignment & Qt::AlignTop)
        start.setY(box.top() + (line + cap) / 2);
    else if (text.alignment & Qt::AlignBottom)
        start.setY(box.bottom() - (line - cap) / 2);
    if (text.alignment & Qt::AlignRight)
        start.setX(box.right() - width);
    else if (text.alignment & Qt::AlignHCenter)
        start.setX(box.center().x() - width / 2);
    return start;
}

} // namespace

CSheetPainter::CSheetPainter(QPainter &painter)
    : m_painter(painter)
{
}

void CSheetPainter::paint(QPainter &painter, const SSheet &sheet)
{
    const QEventLoop
        timers; // fonts keep one on each thread that draws letters, also where no events are handled
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    CSheetPainter drawing(painter);
    for (const SSheetMark &mark : sheet.marks)
        std::visit([&drawing](const auto &kind) { drawing.draw(kind); }, mark);
    painter.restore();
}

void CSheetPainter::draw(const SSheetFill &fill)
{
    if (fill.color.isValid())
        m_painter.fillPath(scaled(fill.path), fill.color);
    if (fill.hatching <= 0)
        return;
    const Hatching::SStrokes strokes = Hatching::strokes(fill.path, fill.hatching);
    QPen pen = penOf(QColor(Hatching::Color), strokes.width);
    if (strokes.round)
        pen.setCapStyle(Qt::RoundCap);
    m_painter.strokePath(scaled(strokes.path), pen);
}

void CSheetPainter::draw(const SSheetStroke &stroke)
{
    const QPainterPath path = scaled(stroke.path);
    if (stroke.whiteEdge > 0)
        m_painter.strokePath(path, penOf(Qt::white, stroke.width + 2 * stroke.whiteEdge));
    QPen pen = penOf(stroke.color, stroke.width);
    if (!stroke.dashes.isEmpty()) {
        QVector<qreal> pattern; // in widths of the pen
        for (const qreal length : stroke.dashes)
            pattern << length / stroke.width;
        pen.setDashPattern(pattern);
    }
    m_painter.strokePath(path, pen);
}

void CSheetPainter::draw(const SSheetText &text)
{
    const QFont font = CSheetFont::font(text.points, text.bold);
    const double width = CSheetFont::width(text.text, text.points, text.bold) * Units;
    QRectF box(text.box.topLeft() * Units, text.box.size() * Units);
    const bool turned = text.turned != 0;
    if (turned) {
        m_painter.save();
        m_painter.translate(box.center());
        m_painter.rotate(text.turned);
        box.moveCenter({0, 0});
    }
    const QPointF start = startOf(text, width, box);
    if (text.whiteEdge > 0) {
        QPainterPath letters;
        letters.addText(start, font, text.text);
        m_painter.strokePath(
            letters, QPen(Qt::white, 2 * text.whiteEdge * Units, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    m_painter.setPen(text.color);
    drawLetters(start, font, text.text);
    if (turned)
        m_painter.restore();
}

void CSheetPainter::drawLetters(const QPointF &start, const QFont &font, const QString &letters)
{
    if (font.stretch() == 100 || m_painter.paintEngine()->type() != QPaintEngine::SVG) {
        m_painter.setFont(font);
        m_painter.drawText(start, letters);
        return;
    }
    // An SVG names family and size of its letters, but not how narrow they are.
    QFont wide = font;
    wide.setStretch(100);
    const double width = QFontMetricsF(wide).horizontalAdvance(letters);
    m_painter.save();
    m_painter.translate(start);
    m_painter.scale(width > 0 ? QFontMetricsF(font).horizontalAdvance(letters) / width : 1, 1);
    m_painter.setFont(wide);
    m_painter.drawText(QPointF(), letters);
    m_painter.restore();
}
