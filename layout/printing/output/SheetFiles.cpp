// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/output/SheetFiles.h"

#include "layout/printing/output/CSheetPainter.h"
#include "layout/printing/sheets/CSheetFont.h"

#include <QBuffer>
#include <QHashFunctions>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSet>
#include <QSvgGenerator>

#include <algorithm>

namespace {

constexpr int UnitsPerInch = CSheetFont::UnitsPerMillimetre * 254 / 10;

/// Lets tables of Qt have the same order in every process, on which the order of fonts in a PDF depends.
class CSteadyHashes final
{
public:
    CSteadyHashes() { qSetGlobalQHashSeed(0); }
    ~CSteadyHashes() { qSetGlobalQHashSeed(-1); }
    Q_DISABLE_COPY(CSteadyHashes)
};

/// Replaces the time of creation, which Qt takes from the clock, by the start of @p date. The length stays.
void setDate(QByteArray &pdf, const QDate &date)
{
    const QByteArray name("/CreationDate (D:");
    const int from = pdf.lastIndexOf(name) + name.size();
    const int to = pdf.indexOf(')', from);
    if (from < name.size() || to < from)
        return;
    QByteArray time = date.toString(QStringLiteral("yyyyMMdd")).toLatin1() + "000000Z";
    time.resize(to - from);
    for (int i = 15; i < time.size(); ++i)
        time[i] = "00'00'"[(i - 15) % 6];
    pdf.replace(from, to - from, time);
}

/// Lets readers find spaces as such: Qt names a glyph by its first letter, and a font may have the space's
/// for the tabulator, too. The first and the last glyph of a range are no letters. The length stays.
void setSpaces(QByteArray &pdf)
{
    static const QRegularExpression letters(
        QStringLiteral("<[0-9A-Fa-f]+>\\s*<[0-9A-Fa-f]+>\\s*(<[0-9A-Fa-f]+>|\\[[^\\]]*\\])"));
    const QByteArray begin("beginbfrange");
    for (int from = pdf.indexOf(begin); from >= 0; from = pdf.indexOf(begin, from + 1)) {
        const int to = pdf.indexOf("endbfrange", from);
        const QString table = QString::fromLatin1(pdf.mid(from, to - from));
        for (auto it = letters.globalMatch(table); it.hasNext();) {
            const QRegularExpressionMatch range = it.next();
            const QByteArray named = range.captured(1).toLatin1().replace("<0009>", "<0020>");
            pdf.replace(from + range.capturedStart(1), named.size(), named);
        }
    }
}

QPageLayout pageOf(const SSheet &sheet)
{
    const QPageSize size(sheet.size, QPageSize::Millimeter, QString(), QPageSize::ExactMatch);
    QPageLayout layout(size, QPageLayout::Portrait, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

} // namespace

QString SheetFiles::missingLetters(const QVector<SSheet> &sheets)
{
    QSet<uint> seen;
    for (const SSheet &sheet : sheets) {
        for (const SSheetMark &mark : sheet.marks) {
            if (const auto *text = std::get_if<SSheetText>(&mark)) {
                for (const uint letter : text->text.toUcs4())
                    seen.insert(letter);
            }
        }
    }
    QVector<uint> missing;
    for (const uint letter : qAsConst(seen)) {
        if (!CSheetFont::has(letter))
            missing << letter;
    }
    std::sort(missing.begin(), missing.end());
    return QString::fromUcs4(missing.constData(), missing.size());
}

QByteArray SheetFiles::pdf(const QVector<SSheet> &sheets, const QString &title, const QDate &date,
                           const Progress &progress)
{
    const CSteadyHashes steady;
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(title);
        writer.setCreator(QStringLiteral("Orvo " ORVO_VERSION));
        writer.setResolution(UnitsPerInch);
        QPainter painter;
        for (int i = 0; i < sheets.size(); ++i) {
            writer.setPageLayout(pageOf(sheets.at(i)));
            if (i == 0)
                painter.begin(&writer);
            else
                writer.newPage();
            CSheetPainter::paint(painter, sheets.at(i));
            if (progress && !progress(i + 1))
                return {};
        }
    }
    setDate(content, date);
    setSpaces(content);
    return content;
}

QByteArray SheetFiles::svg(const SSheet &sheet, const QString &title)
{
    QByteArray content;
    QBuffer buffer(&content);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setTitle(title);
    generator.setDescription(QString());
    generator.setResolution(UnitsPerInch);
    const QSize size = (sheet.size * CSheetFont::UnitsPerMillimetre).toSize();
    generator.setSize(size);
    generator.setViewBox(QRect({0, 0}, size));
    QPainter painter(&generator);
    CSheetPainter::paint(painter, sheet);
    painter.end();
    return content;
}

QByteArray SheetFiles::png(const SSheet &sheet, int dotsPerInch)
{
    const double scale = double(dotsPerInch) / UnitsPerInch;
    QImage image((sheet.size * CSheetFont::UnitsPerMillimetre * scale).toSize(), QImage::Format_RGB32);
    if (image.isNull())
        return {};
    image.fill(Qt::white);
    image.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    image.setDotsPerMeterY(image.dotsPerMeterX());
    QPainter painter(&image);
    painter.scale(scale, scale);
    CSheetPainter::paint(painter, sheet);
    painter.end();
    QByteArray content;
    QBuffer buffer(&content);
    QImageWriter writer(&buffer, "png");
    return writer.write(image) ? content : QByteArray();
}
