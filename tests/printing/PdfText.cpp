// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/printing/PdfText.h"

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
    return from < 0 ? 0 : dictionary.mid(from + name.size() + 2).split(' ').first().toInt();
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

QString textOf(const QByteArray &content, const QHash<QString, Letters> &fonts)
{
    QString text;
    Letters letters;
    const QRegularExpression part(QStringLiteral("/(F\\d+) [\\d.]+ Tf|<([0-9A-Fa-f]+)> Tj"));
    const QString operators = QString::fromLatin1(content);
    for (auto it = part.globalMatch(operators); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        if (match.capturedLength(1) > 0)
            letters = fonts.value(match.captured(1));
        const QByteArray glyphs = match.captured(2).toLatin1();
        for (int i = 0; i + 4 <= glyphs.size(); i += 4)
            text += letters.value(glyphs.mid(i, 4).toInt(nullptr, 16));
    }
    return text;
}

} // namespace

QStringList PdfText::pages(const QByteArray &pdf)
{
    const QHash<int, QByteArray> objects = objectsOf(pdf);
    QHash<QString, Letters> fonts;
    QMap<int, int> contents; // of pages, by the number of the page's object, which ascends
    for (auto it = objects.begin(); it != objects.end(); ++it) {
        if (it->contains("/Subtype /Type0"))
            fonts.insert(QStringLiteral("F%1").arg(it.key()),
                         lettersOf(streamOf(objects.value(referenceIn(*it, "ToUnicode")))));
        if (it->contains("/Type /Page\n"))
            contents.insert(it.key(), referenceIn(*it, "Contents"));
    }
    QStringList pages;
    for (int content : qAsConst(contents))
        pages << textOf(streamOf(objects.value(content)), fonts);
    return pages;
}
