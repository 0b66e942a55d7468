// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/output/CSheetWriter.h"

#include <QFileInfo>

namespace {

bool isPdf(const QString &file)
{
    return QFileInfo(file).suffix().compare(QLatin1String("pdf"), Qt::CaseInsensitive) == 0;
}

} // namespace

QStringList CSheetWriter::namesOf(const QString &file, int count)
{
    if (count == 1 || isPdf(file))
        return {file};
    const QFileInfo info(file);
    const QString folder = file.left(file.size() - info.fileName().size());
    QStringList names;
    const int digits = QString::number(count).size();
    for (int i = 1; i <= count; ++i)
        names << QStringLiteral("%1%2-%3.%4")
                     .arg(folder, info.completeBaseName(),
                          QString::number(i).rightJustified(digits, QLatin1Char('0')), info.suffix());
    return names;
}

QString CSheetWriter::fontProblem(const QVector<SSheet> &sheets)
{
    const QString missing = SheetFiles::missingLetters(sheets);
    return missing.isEmpty() ? QString()
                             : tr("There is no font for the letters \"%1\": install one, for example "
                                  "fonts-noto-cjk for Chinese.")
                                   .arg(missing);
}

QString CSheetWriter::scaleProblem(const QVector<SSheet> &sheets)
{
    QStringList missed;
    for (int i = 0; i < sheets.size(); ++i) {
        if (sheets.at(i).scaleMissed)
            missed << QString::number(i + 1);
    }
    return missed.isEmpty() ? QString()
                            : tr("at the scale, these sheets would be unreadable; they are drawn to fit: %1")
                                  .arg(missed.join(QStringLiteral(", ")));
}

CResult<QStringList> CSheetWriter::write(const QVector<SSheet> &sheets, const SOrder &order,
                                         const Write &write, const SheetFiles::Progress &progress)
{
    using Names = CResult<QStringList>;
    const QString missing = fontProblem(sheets);
    if (!missing.isEmpty())
        return Names::failure(missing);
    bool stopped = false;
    const SheetFiles::Progress watched = [&](int done) {
        stopped = progress && !progress(done);
        return !stopped;
    };
    const QStringList names = namesOf(order.file, sheets.size());
    const auto failureAfter = [&](int written, const QString &problem) {
        const QString count = written == 1 ? tr("1 of %1 files is written.").arg(names.size())
                                           : tr("%1 of %2 files are written.").arg(written).arg(names.size());
        return Names::failure(written == 0 ? problem : problem + QLatin1Char(' ') + count);
    };
    for (int i = 0; i < names.size(); ++i) {
        const CResult<QByteArray> made = content(sheets, i, order, watched);
        if (stopped)
            return QStringList();
        if (!made)
            return failureAfter(i, made.error());
        const QString failure = write(names.at(i), made.value());
        if (!failure.isEmpty())
            return failureAfter(i, failure);
        if (i + 1 < names.size() && !watched(i + 1))
            return QStringList();
    }
    return names;
}

CResult<QByteArray> CSheetWriter::content(const QVector<SSheet> &sheets, int sheet, const SOrder &order,
                                          const SheetFiles::Progress &progress)
{
    const bool svg = QFileInfo(order.file).suffix().compare(QLatin1String("svg"), Qt::CaseInsensitive) == 0;
    const QByteArray made = isPdf(order.file) ? SheetFiles::pdf(sheets, order.title, order.date, progress)
                            : svg             ? SheetFiles::svg(sheets.at(sheet), order.title)
                                              : SheetFiles::png(sheets.at(sheet), order.dotsPerInch);
    if (made.isEmpty())
        return CResult<QByteArray>::failure(tr("There is not enough memory for the sheets."));
    return made;
}
