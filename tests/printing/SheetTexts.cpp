// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/printing/SheetTexts.h"

#include "layout/printing/sheets/CSheetFont.h"

#include <QStringList>
#include <QTransform>

#include <algorithm>

QVector<SSheetText> SheetTexts::of(const SSheet &sheet)
{
    QVector<SSheetText> texts;
    for (const SSheetMark &mark : sheet.marks) {
        if (const auto *text = std::get_if<SSheetText>(&mark))
            texts << *text;
    }
    return texts;
}

QString SheetTexts::whole(const SSheet &sheet)
{
    QStringList parts;
    for (const SSheetText &text : of(sheet))
        parts << text.text;
    return parts.join(QLatin1Char(' '));
}

bool SheetTexts::has(const SSheet &sheet, const char *wanted)
{
    const QVector<SSheetText> texts = of(sheet);
    return std::any_of(texts.begin(), texts.end(),
                       [wanted](const SSheetText &text) { return text.text == QString::fromUtf8(wanted); });
}

QRectF SheetTexts::lettersOf(const SSheetText &text)
{
    const double width = CSheetFont::width(text.text, text.points, text.bold);
    QRectF letters(0, 0, width, CSheetFont::capHeight(text.points));
    letters.moveCenter(text.box.center());
    if (text.alignment & Qt::AlignRight)
        letters.moveRight(text.box.right());
    else if (!(text.alignment & Qt::AlignHCenter))
        letters.moveLeft(text.box.left());
    return text.turned == 0 ? letters
                            : QTransform()
                                  .translate(letters.center().x(), letters.center().y())
                                  .rotate(text.turned)
                                  .translate(-letters.center().x(), -letters.center().y())
                                  .mapRect(letters);
}

QRectF SheetTexts::extentOf(const SSheetMark &mark)
{
    if (const auto *fill = std::get_if<SSheetFill>(&mark))
        return fill->path.boundingRect();
    if (const auto *stroke = std::get_if<SSheetStroke>(&mark))
        return stroke->path.boundingRect();
    return lettersOf(std::get<SSheetText>(mark));
}

bool SheetTexts::isWithin(const QRectF &outer, const QRectF &inner)
{
    constexpr double Rounding = 0.01;
    return inner.left() >= outer.left() - Rounding && inner.right() <= outer.right() + Rounding &&
           inner.top() >= outer.top() - Rounding && inner.bottom() <= outer.bottom() + Rounding;
}

QString SheetTexts::touching(QVector<QPair<QRectF, QString>> placed)
{
    std::sort(placed.begin(), placed.end(),
              [](const auto &a, const auto &b) { return a.first.top() < b.first.top(); });
    for (int i = 0; i < placed.size(); ++i) {
        for (int j = i + 1; j < placed.size() && placed.at(j).first.top() < placed.at(i).first.bottom();
             ++j) {
            if (placed.at(i).first.intersects(placed.at(j).first))
                return placed.at(i).second + QStringLiteral(" / ") + placed.at(j).second;
        }
    }
    return {};
}

QString SheetTexts::touching(const SSheet &sheet)
{
    QVector<QPair<QRectF, QString>> placed;
    for (const SSheetText &text : of(sheet)) {
        if (text.mark != EMark::Watermark)
            placed << qMakePair(lettersOf(text), text.text);
    }
    return touching(placed);
}
