// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/printing/PdfText.h"

#include "tests/printing/CPdfContent.h"

#include <QHash>
#include <QMap>
#include <QRegularExpression>

namespace {

using Letters = QHash<int, QString>; ///< by glyph

/// The objects of a document by their number.
QHash<int, QByteArray> objectsOf(const QByteArray &pdf)
{
    QHash<int, QByteArray> objects;
    const QRegularExpression heading(QStringLiteral("\\n(\\d+) 0 obj\\n"));
    const QString text = QString::fromLatin1(pdf.constData(), pdf.size()); // a character for each byte
    for (auto it = heading.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        const int end = pdf.indexOf("endobj", match.capturedEnd());
        objects.insert(match.captured(1).toInt(), pdf.mid(match.capturedEnd(), end - match.capturedEnd()));
    }
    return objects;
}

/// The number of the object that a name stands for, in a dictionary; 0 if there is none.
int referenceIn(const QByteArray &dictionary, const QByteArray &name)
{
    const int from = dictionary.indexOf('/' + name + ' ');
    return from < 0
               ? 0
               : dictionary.mid(from + name.size() + 2).replace('[', QByteArray()).split(' ').first().toInt();
}

QByteArray streamOf(const QByteArray &object)
{
    const QByteArray begin("stream\n");
    const int from = object.indexOf(begin) + begin.size();
    const QByteArray stream = object.mid(from, object.lastIndexOf("endstream") - from);
    if (!object.left(from).contains("/FlateDecode"))
        return stream;
    return qUncompress(QByteArray(4, '\0') + stream); // it grows the buffer to what is needed
}

QString unicode(const QByteArray &hex)
{
    QString text;
    for (int i = 0; i + 4 <= hex.size(); i += 4)
        text += QChar(ushort(hex.mid(i, 4).toUShort(nullptr, 16)));
    return text;
}

/// "<from> <to> <text>" and "<from> <to> [<text> <text>…]" of a table from glyphs to letters.
Letters lettersOf(const QByteArray &table)
{
    Letters letters;
    const QRegularExpression range(
        QStringLiteral("<([0-9A-Fa-f]{4})>\\s*<([0-9A-Fa-f]{4})>\\s*(<[0-9A-Fa-f]+>|\\[[^\\]]*\\])"));
    const QRegularExpression item(QStringLiteral("<([0-9A-Fa-f]+)>"));
    const QString text = QString::fromLatin1(table.mid(table.indexOf("endcodespacerange")));
    for (auto it = range.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        int glyph = match.captured(1).toInt(nullptr, 16);
        const int last = match.captured(2).toInt(nullptr, 16);
        const bool list = match.captured(3).startsWith(QLatin1Char('['));
        if (list && match.captured(3).count(QLatin1Char('<')) != last - glyph + 1)
            continue; // a range that readers refuse
        QString letter;
        for (auto items = item.globalMatch(match.captured(3)); glyph <= last; ++glyph) {
            if (items.hasNext())
                letter = unicode(items.next().captured(1).toLatin1());
            else if (!list)
                letter[letter.size() - 1] = QChar(letter.at(letter.size() - 1).unicode() + 1);
            letters.insert(glyph, letter);
        }
    }
    return letters;
}

/// "0 [<width> <width>…]" of a font, by glyph.
QVector<int> widthsOf(const QByteArray &font)
{
    const int from = font.indexOf("/W [0 [") + 7;
    QVector<int> widths;
    for (const QByteArray &width : font.mid(from, font.indexOf(']', from) - from).simplified().split(' '))
        widths << width.toInt();
    return widths;
}

double heightOf(const QByteArray &page)
{
    const int from = page.indexOf("/MediaBox [") + 11;
    return page.mid(from, page.indexOf(']', from) - from).split(' ').last().toDouble();
}

} // namespace

QVector<PdfText::SPage> PdfText::pages(const QByteArray &pdf)
{
    const QHash<int, QByteArray> objects = objectsOf(pdf);
    QHash<QByteArray, CPdfContent::SFont> fonts;
    QMap<int, QByteArray> pages; // by the number of the page's object, which ascends
    for (auto it = objects.begin(); it != objects.end(); ++it) {
        if (it->contains("/Subtype /Type0"))
            fonts.insert('F' + QByteArray::number(it.key()),
                         {lettersOf(streamOf(objects.value(referenceIn(*it, "ToUnicode")))),
                          widthsOf(objects.value(referenceIn(*it, "DescendantFonts")))});
        if (it->contains("/Type /Page\n"))
            pages.insert(it.key(), *it);
    }
    QVector<SPage> read;
    for (const QByteArray &page : qAsConst(pages))
        read << CPdfContent(fonts, heightOf(page))
                    .read(streamOf(objects.value(referenceIn(page, "Contents"))));
    return read;
}
