// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/CSheetFont.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>

namespace {

constexpr double MillimetresPerPoint = 25.4 / 72;
constexpr double CapShare = 0.73;   ///< of a capital in the size of the letters
constexpr double LineShare = 1.16;  ///< of a line
constexpr double UsualDigit = 0.56; ///< width of a digit in the size of the letters
constexpr int Narrowest = 50;       ///< percent to which letters are narrowed at most
constexpr int MeasuredPixels = 1000;

QFont namedFont()
{
    QFont font;
    font.setFamilies({QStringLiteral("Liberation Sans"), QStringLiteral("Nimbus Sans"),
                      QStringLiteral("Arial"), QStringLiteral("Helvetica"), QStringLiteral("DejaVu Sans"),
                      QStringLiteral("sans-serif")});
    font.setStyleHint(QFont::SansSerif, QFont::StyleStrategy(QFont::PreferOutline | QFont::PreferAntialias));
    font.setHintingPreference(QFont::PreferNoHinting);
    // The width of a text is the sum of its letters': no kerning, and no ligatures, which any given spacing
    // switches off, also the usual one.
    font.setKerning(false);
    font.setLetterSpacing(QFont::PercentageSpacing, 100);
    return font;
}

/// Percent to which letters are narrowed. Where only a wide family is installed, sheets would have no room
/// for their numbers.
int stretchOf(const QString &family, bool bold)
{
    QFont font = namedFont();
    font.setFamily(family);
    font.setPixelSize(MeasuredPixels);
    font.setBold(bold);
    int stretch = 100;
    for (int tries = 0; tries < 4; ++tries) { // a condensed face has another width than was asked for
        font.setStretch(stretch);
        const double digit = QFontMetricsF(font).horizontalAdvance(QLatin1Char('0')) / MeasuredPixels;
        if (digit <= UsualDigit)
            break;
        stretch = std::max(Narrowest, std::min(stretch - 1, int(stretch * UsualDigit / digit)));
    }
    return stretch;
}

QFont fontOf(int pixels, bool bold)
{
    QFont font = namedFont();
    // Of the families the one that is installed: a vector picture names only this one.
    static const QString family = QFontInfo(font).family();
    static const int usual = stretchOf(family, false);
    static const int heavy = stretchOf(family, true);
    font.setFamily(family);
    font.setStretch(bold ? heavy : usual);
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

/// Advances of the letters of Latin-1 in parts of their size: shaping each text again takes most of the time
/// that a plan takes.
using Advances = std::array<double, 256>;

Advances measuredAdvances(bool bold)
{
    const QFontMetricsF metrics(fontOf(MeasuredPixels, bold));
    Advances advances{};
    for (int letter = 0; letter < int(advances.size()); ++letter)
        advances[size_t(letter)] = metrics.horizontalAdvance(QString(QChar(letter))) / MeasuredPixels;
    return advances;
}

const Advances &advancesOf(bool bold)
{
    static const Advances usual = measuredAdvances(false);
    static const Advances heavy = measuredAdvances(true);
    return bold ? heavy : usual;
}

/// The pieces between the boundaries in a text.
QStringList pieces(const QString &text, QTextBoundaryFinder::BoundaryType type)
{
    QStringList pieces;
    QTextBoundaryFinder finder(type, text);
    for (int from = 0, to = finder.toNextBoundary(); to > from; from = to, to = finder.toNextBoundary())
        pieces << text.mid(from, to - from);
    return pieces;
}

QString withoutEnd(QString text)
{
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    return text;
}

} // namespace

QFont CSheetFont::font(double points, bool bold)
{
    return fontOf(qRound(points * MillimetresPerPoint * UnitsPerMillimetre), bold);
}

bool CSheetFont::has(uint letter)
{
    return QFontMetricsF(fontOf(MeasuredPixels, false)).inFontUcs4(letter);
}

double CSheetFont::width(const QString &text, double points, bool bold)
{
    const Advances &advances = advancesOf(bold);
    double width = 0;
    for (const QChar letter : text) {
        if (letter.unicode() >= advances.size())
            return QFontMetricsF(fontOf(MeasuredPixels, bold)).horizontalAdvance(text) / MeasuredPixels *
                   points * MillimetresPerPoint;
        width += advances[letter.unicode()];
    }
    return width * points * MillimetresPerPoint;
}

double CSheetFont::lineHeight(double points)
{
    return LineShare * points * MillimetresPerPoint;
}

double CSheetFont::capHeight(double points)
{
    return CapShare * points * MillimetresPerPoint;
}

QString CSheetFont::elided(const QString &text, double points, bool bold, double width)
{
    if (CSheetFont::width(text, points, bold) <= width)
        return text;
    const QFontMetricsF metrics(fontOf(MeasuredPixels, bold));
    return metrics.elidedText(text, Qt::ElideMiddle, width / (points * MillimetresPerPoint) * MeasuredPixels);
}

QStringList CSheetFont::lines(const QString &text, double points, bool bold, double width)
{
    const auto fits = [&](const QString &line) {
        return CSheetFont::width(withoutEnd(line), points, bold) <= width;
    };
    if (!text.contains(QLatin1Char('\n')) && fits(text))
        return {withoutEnd(text)};
    QStringList lines;
    for (const QString &paragraph : text.split(QLatin1Char('\n'))) {
        QString line;
        for (const QString &word : pieces(paragraph, QTextBoundaryFinder::Line)) {
            if (!line.isEmpty() && fits(line + word)) {
                line += word;
                continue;
            }
            if (!line.isEmpty())
                lines << withoutEnd(line);
            line = word;
            if (fits(word))
                continue;
            line.clear();
            for (const QString &letter : pieces(word, QTextBoundaryFinder::Grapheme)) {
                if (!line.isEmpty() && !fits(line + letter)) {
                    lines << line;
                    line.clear();
                }
                line += letter;
            }
        }
        lines << withoutEnd(line);
    }
    return lines;
}
