// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/output/CSheetPrinter.h"

#include "layout/printing/output/CSheetPainter.h"
#include "layout/printing/sheets/CSheetFont.h"

#include <QFile>
#include <QPainter>
#include <QPrinter>

namespace {

constexpr double MillimetresPerInch = 25.4;

void setPage(QPrinter &printer, const SSheet &sheet)
{
    const bool level = sheet.size.width() > sheet.size.height();
    const QSizeF upright = level ? sheet.size.transposed() : sheet.size;
    printer.setPageLayout(
        QPageLayout(QPageSize(upright, QPageSize::Millimeter, QString(), QPageSize::FuzzyMatch),
                    level ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()));
    printer.setFullPage(true);
}

} // namespace

CStatus CSheetPrinter::print(const QVector<SSheet> &sheets, QPrinter &printer,
                             const SheetFiles::Progress &progress)
{
    const CStatus failed =
        CStatus::failure(tr("The printer \"%1\" does not accept the job.").arg(printer.printerName()));
    const int first = printer.fromPage() > 0 ? printer.fromPage() - 1 : 0;
    const int last = printer.toPage() > 0 ? qMin(printer.toPage(), sheets.size()) : sheets.size();
    QPainter painter;
    for (int i = first; i < last; ++i) {
        setPage(printer, sheets.at(i));
        if (i == first ? !painter.begin(&printer) : !printer.newPage())
            return failed;
        painter.resetTransform();
        const double scale = printer.resolution() / MillimetresPerInch / CSheetFont::UnitsPerMillimetre;
        painter.scale(scale, scale);
        CSheetPainter::paint(painter, sheets.at(i));
        if (progress && !progress(i + 1)) {
            printer.abort();
            painter.end();
            if (!printer.outputFileName().isEmpty())
                QFile::remove(printer.outputFileName()); // printed into a file, of which half would remain
            return CStatus::done();
        }
    }
    return painter.end() && printer.printerState() != QPrinter::Error ? CStatus::done() : failed;
}
