// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CSheetWork.h"
#include "layout/printing/output/CSheetPrinter.h"
#include "layout/printing/output/CSheetWriter.h"
#include "tests/harness/CTestBase.h"
#include "tests/printing/SheetJobs.h"

#include <QApplication>
#include <QPrinter>
#include <QRegularExpression>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <new>
#include <thread>

/// Writing and printing: what is written, and when it stops.
class CPrintOutputTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    /// Whoever cancels or closes waits for no more than the sheet in work.
    void stopsWritingWhenCancelled()
    {
        QSemaphore begun;
        const auto endless = [&begun](const SheetFiles::Progress &progress) {
            begun.release();
            while (progress(1))
                std::this_thread::yield();
            return CResult<QStringList>(QStringList());
        };
        {
            CSheetWork work;
            QSignalSpy written(&work, &CSheetWork::notifyWritten);
            work.run(endless);
            begun.acquire();
            work.cancel();
            QTRY_COMPARE(written.size(), 1);
            QCOMPARE(written[0][0].toStringList(), QStringList());
            const QStringList name{QStringLiteral("plan.pdf")};
            work.run([name](const SheetFiles::Progress &progress) {
                return CResult<QStringList>(progress(1) ? name : QStringList());
            });
            QTRY_COMPARE(written.size(), 2);
            QCOMPARE(written[1][0].toStringList(), name); // not cancelled any more
            work.run(endless);
            begun.acquire();
        } // closed while it writes
        const QTemporaryDir folder;
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(folder.filePath(QStringLiteral("out.pdf")));
        const QVector<SSheet> sheets = SheetJobs::someSheets(PrintConfig::PortSheets);
        const auto cancelled = CSheetPrinter::print(sheets, printer, [](int sheet) { return sheet < 3; });
        QVERIFY(cancelled && cancelled.value().isEmpty()); // told as cancelled, not as done
        QVERIFY(!QFile::exists(printer.outputFileName()));
        QVERIFY_EXCEPTION_THROWN(
            (void)CSheetPrinter::print(sheets, printer, [](int) -> bool { throw std::bad_alloc(); }),
            std::bad_alloc);
        QVERIFY(!QFile::exists(printer.outputFileName()));
    }

    void writesPicturesOneByOneAndStopsAtAFailure()
    {
        const QVector<SSheet> sheets = SheetJobs::someSheets(PrintConfig::Cover | PrintConfig::PortSheets);
        QStringList written;
        int possible = sheets.size();
        const QString failure = QStringLiteral("The disk has no room for plan%1.png.");
        const auto write = [&](const QString &file, const QByteArray &content) {
            if (written.size() == possible)
                return failure;
            written << file;
            return content.isEmpty() ? QStringLiteral("empty") : QString();
        };
        CSheetWriter::SOrder order{QStringLiteral("/x/plan.png"), QStringLiteral("t"), QDate(2026, 5, 4), 20};
        const auto all = CSheetWriter::write(sheets, order, write);
        QVERIFY(all);
        QCOMPARE(all.value(), written);
        QCOMPARE(written.first(), QStringLiteral("/x/plan-1.png"));
        QCOMPARE(written.size(), sheets.size());
        const QString counts[] = {
            {}, QStringLiteral(" 1 of %1 files is written."), QStringLiteral(" 2 of %1 files are written.")};
        for (possible = 0; possible < 3; ++possible) {
            written.clear();
            const QString count = possible == 0 ? QString() : counts[possible].arg(sheets.size());
            QCOMPARE(CSheetWriter::write(sheets, order, write).error(), failure + count);
        }
        written.clear();
        order.file = QStringLiteral("/x/plan.pdf");
        const auto stopped = CSheetWriter::write(sheets, order, write, [](int done) { return done < 3; });
        QVERIFY(stopped && stopped.value().isEmpty() && written.isEmpty()); // no half file
    }

    void printsThePagesThatWereAskedFor()
    {
        const QTemporaryDir folder;
        const QVector<SSheet> sheets = SheetJobs::someSheets(PrintConfig::Cover | PrintConfig::PortSheets);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(folder.filePath(QStringLiteral("out.pdf")));
        printer.setFromTo(2, 4);
        QVector<int> done;
        QVERIFY(CSheetPrinter::print(sheets, printer, [&done](int sheet) {
            done << sheet;
            return true;
        }));
        QCOMPARE(done, QVector<int>({2, 3, 4}));
        QFile file(printer.outputFileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray content = file.readAll();
        QCOMPARE(content.count("/Type /Page\n"), 3);
        expectWarning(QRegularExpression(QStringLiteral("QPainter::begin|Cannot call seek")));
        printer.setOutputFileName(folder.filePath(QStringLiteral("none/out.pdf")));
        QVERIFY(CSheetPrinter::print(sheets, printer).error().contains(QStringLiteral("No such file")));
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), folder.filePath(QStringLiteral("full.pdf"))));
        printer.setOutputFileName(folder.filePath(QStringLiteral("full.pdf")));
        QVERIFY(CSheetPrinter::print(sheets, printer).error().contains(QStringLiteral("No space left")));
    }
};

ORVO_TEST_MAIN(QApplication, CPrintOutputTest)
#include "tst_print_output.moc"
