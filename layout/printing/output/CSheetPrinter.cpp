// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/output/CSheetPrinter.h"

#include "layout/printing/output/CSheetPainter.h"
#include "layout/printing/sheets/CSheetFont.h"

#include <QFile>
#include <QFileInfo>
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

/// Removes a file that was begun, unless all of it was printed.
class CHalfFile final
{
public:
    explicit CHalfFile(const QString &name)
        : m_name(name)
    {
    }
    ~CHalfFile()
    {
        if (m_begun && !m_whole && QFileInfo(m_name).isFile()) // never a device
            QFile::remove(m_name);
    }
    Q_DISABLE_COPY(CHalfFile)

    void begin() { m_begun = true; }
    void finish() { m_whole = true; }
    /// Printing tells nothing of a full disk: the end of the file does.
    bool hasEnd() const
    {
        constexpr int LastBytes = 32;
        QFile file(m_name);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        if (file.size() > LastBytes)
            file.seek(file.size() - LastBytes);
        return file.read(LastBytes).contains("%%EOF"); // a device might have no end
    }
    /// Why it cannot be written; empty: not known.
    QString problem() const
    {
        constexpr int MoreThanIsLeftOver = 1 << 16; // of the last block of a full disk
        const bool isNew = !QFileInfo::exists(m_name);
        QFile file(m_name);
        if (!file.open(QIODevice::Append))
            return file.errorString();
        const QByteArray tried(m_begun ? MoreThanIsLeftOver : 0, ' ');
        const bool written = file.write(tried) == tried.size() && file.flush();
        const QString problem = written ? QString() : file.errorString();
        if (isNew)
            file.remove();
        return problem;
    }

private:
    const QString m_name;
    bool m_begun = false;
    bool m_whole = false;
};

/// Prints the pages that @p printer was set to print. Returns whether all were printed, or why that failed.
CResult<bool> printPages(const QVector<SSheet> &sheets, QPrinter &printer, CHalfFile &file,
                         const SheetFiles::Progress &progress)
{
    const auto failed = CResult<bool>::failure({});
    const int first = printer.fromPage() > 0 ? printer.fromPage() - 1 : 0;
    const int last = printer.toPage() > 0 ? qMin(printer.toPage(), sheets.size()) : sheets.size();
    QPainter painter;
    for (int i = first; i < last; ++i) {
        setPage(printer, sheets.at(i));
        if (i == first ? !painter.begin(&printer) : !printer.newPage())
            return failed;
        file.begin();
        painter.resetTransform();
        const double scale = printer.resolution() / MillimetresPerInch / CSheetFont::UnitsPerMillimetre;
        painter.scale(scale, scale);
        CSheetPainter::paint(painter, sheets.at(i));
        if (progress && !progress(i + 1)) {
            printer.abort();
            return false;
        }
    }
    return painter.end() && printer.printerState() != QPrinter::Error ? CResult<bool>(true) : failed;
}

} // namespace

CResult<QStringList> CSheetPrinter::print(const QVector<SSheet> &sheets, QPrinter &printer,
                                          const SheetFiles::Progress &progress)
{
    const QString target = printer.outputFileName();
    CHalfFile file(target);
    const CResult<bool> printed = printPages(sheets, printer, file, progress);
    if (printed && !printed.value())
        return QStringList();
    if (printed && (target.isEmpty() || printer.outputFormat() != QPrinter::PdfFormat || file.hasEnd())) {
        file.finish();
        return QStringList{target.isEmpty() ? printer.printerName() : target};
    }
    using Names = CResult<QStringList>;
    if (target.isEmpty())
        return Names::failure(tr("The printer \"%1\" does not accept the job.").arg(printer.printerName()));
    const QString problem = file.problem();
    return Names::failure(problem.isEmpty() ? tr("\"%1\" cannot be written.").arg(target)
                                            : tr("\"%1\" cannot be written: %2.").arg(target, problem));
}
