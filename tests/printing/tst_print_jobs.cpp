// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CSheetExport.h"
#include "layout/api/records/PortPairs.h"
#include "layout/printing/lists/CSheetSet.h"
#include "layout/printing/output/SheetFiles.h"
#include "layout/printing/sheets/CSheetFont.h"
#include "layout/printing/sheets/CSheetTable.h"
#include "layout/printing/sheets/SheetNumbers.h"
#include "tests/harness/CTestBase.h"
#include "tests/printing/GraphicsWalls.h"
#include "tests/printing/PdfText.h"
#include "tests/printing/SheetJobs.h"
#include "tests/printing/SheetTexts.h"
#include "tests/projects/ProjectSamples.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QImage>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTransform>

#include <algorithm>

namespace {

using SheetJobs::configOf;
using SheetJobs::sheetsOf;
using SheetTexts::has;

/// Row and column of each cabinet of that size that a list of cabinets names.
QVector<QPair<int, int>> listedPlaces(const SSheet &sheet, const char *pixels)
{
    QVector<QPair<int, int>> places;
    if (sheet.title != QLatin1String("List of cabinets"))
        return places;
    QMap<double, QVector<SSheetText>> rows; // by their height on the sheet
    for (const SSheetText &text : SheetTexts::of(sheet)) {
        if (text.mark == EMark::TableCell)
            rows[text.box.center().y()] << text;
    }
    for (const QVector<SSheetText> &row : qAsConst(rows)) {
        for (int j = 0; j + 8 < row.size(); ++j) {
            if (row.at(j + 6).text == QString::fromUtf8(pixels))
                places << qMakePair(row.at(j + 4).text.toInt(), row.at(j + 5).text.toInt());
        }
    }
    return places;
}

QVector<int> numbersOf(const SSheet &sheet, EMark mark)
{
    QVector<int> numbers;
    for (const SSheetText &text : SheetTexts::of(sheet)) {
        if (text.mark == mark)
            numbers << text.text.toInt();
    }
    return numbers;
}

/// Where a column's number is in the picture of who looks, which is drawn last; 0: nowhere.
double columnOf(const SSheet &sheet, const char *number)
{
    double left = 0;
    for (const SSheetText &text : SheetTexts::of(sheet)) {
        if (text.mark == EMark::TitleBlock && text.text == QLatin1String(number))
            left = SheetTexts::lettersOf(text).left();
    }
    return left;
}

template <typename Value>
bool isEachOnce(QVector<Value> values, int count)
{
    std::sort(values.begin(), values.end());
    return values.size() == count && std::adjacent_find(values.begin(), values.end()) == values.end();
}

/// What is wrong with a page of a PDF that shows @p sheet; empty if nothing is.
QString faultOf(const PdfText::SPage &page, const SSheet &sheet)
{
    QVector<SSheetText> texts = SheetTexts::of(sheet);
    texts.erase(
        std::remove_if(texts.begin(), texts.end(), [](const auto &text) { return text.text.isEmpty(); }),
        texts.end());
    const QRectF margins = QRectF({0, 0}, sheet.size).adjusted(20, 10, -10, -10);
    constexpr double HalfFrame = 0.35; // its middle is where the margins end
    if (!SheetTexts::isWithin(margins.adjusted(-HalfFrame, -HalfFrame, HalfFrame, HalfFrame), page.drawn))
        return QStringLiteral("lines in the margin");
    if (page.runs.size() != texts.size())
        return QStringLiteral("%1 texts instead of %2").arg(page.runs.size()).arg(texts.size());
    static const QRegularExpression cutNumber(QStringLiteral("^[\\d,.]*\u2026[\\d,.]*$"));
    QVector<QPair<QRectF, QString>> placed;
    for (int i = 0; i < texts.size(); ++i) {
        const PdfText::SRun &run = page.runs.at(i);
        if (run.text != texts.at(i).text)
            return run.text + QStringLiteral(" instead of ") + texts.at(i).text;
        if (run.text.contains(cutNumber))
            return run.text + QStringLiteral(" is cut");
        if (!SheetTexts::isWithin(margins, run.letters) || run.letters.isEmpty())
            return run.text + QStringLiteral(" in the margin");
        const QPointF off = run.letters.center() - SheetTexts::lettersOf(texts.at(i)).center();
        if (off.manhattanLength() > 0.5)
            return run.text + QStringLiteral(" elsewhere");
        placed << qMakePair(run.letters, run.text);
    }
    return SheetTexts::touching(placed);
}

} // namespace

/// Whole jobs: their order, and what is read back from their files.
class CPrintJobsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    /// Title block, view and feeds on every sheet; in grey without any colour.
    void tellsOnEverySheetWhatItBelongsTo()
    {
        PrintConfig config = configOf(PrintConfig::A4);
        config.sheets = PrintConfig::AllSheets;
        config.views = PrintConfig::BothViews;
        config.designer = QStringLiteral("Weber");
        config.auditor = QStringLiteral("Ito");
        config.grey = true;
        const SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        const SPrintPlan plan = SPrintPlan::of(CSheetExport::inputOf({project}), {config, {}, {}});
        const QVector<SSheet> sheets = CSheetSet::of(plan).value();
        for (int i = 0; i < sheets.size(); ++i) {
            const SSheet &sheet = sheets.at(i);
            for (const QString &told : {config.designer, config.auditor, config.project, config.farEnd,
                                        QStringLiteral("2026-05-04"), plan.processors.first().version})
                QVERIFY2(has(sheet, told.toUtf8().constData()), qPrintable(told));
            const bool back = sheet.view == SSheet::Back;
            QVERIFY(has(sheet, "BACK VIEW") == back && has(sheet, "FRONT VIEW") == !back);
            QVERIFY(has(sheet, "Column 1 is on your right.") == back &&
                    has(sheet, "Column 1 is on your left.") == !back);
            QVERIFY((columnOf(sheet, "1") < columnOf(sheet, "24")) == !back && columnOf(sheet, "24") > 0);
            const auto *beneath = std::get_if<SSheetText>(&sheet.marks.first());
            QVERIFY(beneath && beneath->mark == EMark::Watermark);
            for (const SSheetMark &mark : sheet.marks) {
                const QColor color = std::visit([](const auto &shown) { return shown.color; }, mark);
                QVERIFY(!color.isValid() || color.saturation() == 0);
            }
            QCOMPARE(sheet.frame.left(), i % 2 == 0 ? 20.0 : 10.0); // bound at the other edge
            QCOMPARE(sheet.size.width() - sheet.frame.right(), i % 2 == 0 ? 10.0 : 20.0);
            if (const SPlanPort *port = plan.processors.first().port(sheet.port)) {
                const QString name = QStringLiteral("port %1").arg(port->index + 1);
                const QString feed = QStringLiteral("cable %1 m").arg(port->feed.stock);
                QVERIFY(has(sheet, qPrintable(name)) && has(sheet, qPrintable(feed)));
            }
        }
        const char *const facts[] = {"16 of type A",
                                     "589,824 of 659,722",
                                     "90 %",
                                     "112.0 kg",
                                     "2,560 W max., 1,280 W average",
                                     "11.2 A max., 5.6 A average",
                                     "15 of 1 m, 2 of 15 m",
                                     "Main stage B, port 1",
                                     "not locked"};
        const auto port =
            std::find_if(sheets.begin(), sheets.end(), [](const auto &s) { return s.port == 0; });
        for (const char *fact : facts)
            QVERIFY2(has(*port, fact), fact);
        QVERIFY(has(sheets.first(), "167.0 A at 230 V; 55.7 A on each of 3 phases"));
        QVERIFY(has(sheets.first(), "83.5 A at 230 V; 27.9 A on each of 3 phases"));
        config.grey = false;
        const QVector<SSheet> coloured = sheetsOf(config, {project});
        QVERIFY(std::any_of(coloured.at(2).marks.begin(), coloured.at(2).marks.end(), [](const auto &mark) {
            return std::visit([](const auto &shown) { return shown.color.saturation() > 0; }, mark);
        }));
    }

    /// An empty side where the sheets before are odd in number.
    void showsBothViewsOnOneLeaf()
    {
        PrintConfig config = configOf(PrintConfig::A4);
        config.views = PrintConfig::BothViews;
        for (int before : {0, int(PrintConfig::Cover), PrintConfig::Cover | PrintConfig::PortTable}) {
            config.sheets = before | PrintConfig::Overview | PrintConfig::PortSheets;
            const QVector<SSheet> sheets = sheetsOf(config, {ProjectSamples::ofWall(CWallBuilder::Small)});
            QCOMPARE(sheets.size() % 2, 0);
            for (int i = 0; i < sheets.size(); ++i) {
                if (!sheets.at(i).list)
                    QCOMPARE(sheets.at(i).view, i % 2 == 0 ? SSheet::Front : SSheet::Back);
            }
            QVERIFY(before == 0 || has(sheets.first(), "5 to 20"));
            QVERIFY(before == 0 || (has(sheets.first(), "unknown") && !has(sheets.first(), "0 W")));
            for (const SSheet &sheet : sheets)
                QVERIFY(!has(sheet, "0.0")); // nor on the table of ports
        }
    }

    void numbersSheetsAndListsEveryCabinet()
    {
        const SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        const QVector<SSheet> sheets = sheetsOf(configOf(PrintConfig::A4), {project});
        QCOMPARE(sheets.size(), 1 + 1 + 5 + 1);
        QSet<QPair<int, int>> places;
        for (int i = 0; i < sheets.size(); ++i) {
            QVERIFY(has(sheets.at(i), qPrintable(QStringLiteral("%1 of %2").arg(i + 1).arg(sheets.size()))));
            for (const auto &place : listedPlaces(sheets.at(i), "192 \u00d7 192"))
                places << place;
        }
        QCOMPARE(places.size(), 240);
        QVERIFY(SheetTexts::whole(sheets.at(3)).contains(QStringLiteral(" pixels; port 4 goes on")));
        const char *const totals[] = {"8,847,360", "60.00 m\u00b2", "1,680.0 kg",
                                      "38,400 W",  "19,200 W",      "3 to 7"};
        for (const char *text : totals)
            QVERIFY2(has(sheets.first(), text), text);
        const char *const sums[] = {"8,847,360", "38,400", "1,680.0", "9,895,830", "15 of 15 ports"};
        for (const char *text : sums)
            QVERIFY2(has(sheets.at(1), text), text);
        QVERIFY(has(sheets.last(), "195,000") && has(sheets.last(), "187,500") &&
                has(sheets.last(), "1,764.0"));
    }

    void writesTheSameVectorsEachTime()
    {
        const QVector<SSheet> sheets =
            sheetsOf(configOf(PrintConfig::A4), {ProjectSamples::ofWall(CWallBuilder::Medium)});
        const QString title = QStringLiteral("Plan");
        const QByteArray pdf = SheetFiles::pdf(sheets, title, QDate(2026, 5, 4));
        QVERIFY(pdf.startsWith("%PDF-") && pdf.trimmed().endsWith("%%EOF"));
        QVERIFY(SheetFiles::pdf(sheets, title, QDate(2026, 5, 4)) == pdf);
        QVERIFY(pdf.contains("/CreationDate (D:20260504000000"));
        QCOMPARE(pdf.count("/Type /Page\n"), sheets.size());
        QVERIFY(pdf.contains("/FontFile") && !pdf.contains("/Subtype /Image"));

        const QByteArray svg = SheetFiles::svg(sheets.first(), title);
        const QString family = QFontInfo(CSheetFont::font(9, false)).family();
        QVERIFY(svg.contains("font-family=\"" + family.toUtf8() + '"'));
        QVERIFY(svg.contains(">8,847,360<") && svg.contains("width=\"297mm\"") && !svg.contains("<image"));
        const QImage png = QImage::fromData(SheetFiles::png(sheets.first(), 50));
        QCOMPARE(png.size(), QSize(585, 413));
        QCOMPARE(png.pixelColor(2, 2), QColor(Qt::white));
        QVERIFY(png.pixelColor(int(20 / 25.4 * 50), 200).lightness() < 200); // the frame's left line

        int told = 0;
        QVERIFY(
            SheetFiles::pdf(sheets, title, {}, [&told](int done) { return (told = done) < 2; }).isEmpty());
        QCOMPARE(told, 2);
    }

    void tellsInAPdfWhatTheSheetsTell()
    {
        PrintConfig config = configOf(PrintConfig::A4);
        config.sheets = PrintConfig::AllSheets;
        config.views = PrintConfig::BothViews;
        // So it is on machines without a Chinese font, too.
        QVERIFY(QFontDatabase::addApplicationFont(
                    QStringLiteral(ORVO_SOURCE_DIR "/tests/printing/han.ttf")) >= 0);
        config.venue = QStringLiteral("S\u00fcdkurve \u5317\u4eac"); // not bold, which that font is not
        QVERIFY(CSheetFont::has(0x5317) && CSheetFont::has(0x4eac));
        const SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        const QVector<SSheet> sheets = sheetsOf(config, {project});
        QCOMPARE(sheets.size(), 40);
        QCOMPARE(sheets.at(1).title, QStringLiteral("Table of ports")); // the cover is one sheet
        const QVector<PdfText::SPage> pages = PdfText::pages(SheetFiles::pdf(sheets, QString(), config.date));
        QCOMPARE(pages.size(), sheets.size());
        for (int i = 0; i < sheets.size(); ++i) {
            QString text;
            for (const SSheetText &shown : SheetTexts::of(sheets.at(i)))
                text += shown.text;
            QCOMPARE(pages.at(i).text, text);
            if (sheets.at(i).port >= 0)
                QVERIFY(isEachOnce(numbersOf(sheets.at(i), EMark::CabinetNumber), 16));
        }
    }

    void readsBackALargeWall_data()
    {
        QTest::addColumn<int>("paper");
        QTest::addColumn<bool>("back");
        QTest::addColumn<int>("count");
        QTest::newRow("A4") << int(PrintConfig::A4) << false << 265;
        QTest::newRow("A3, back, grey") << int(PrintConfig::A3) << true << 194;
    }
    /// 5,600 cabinets: each once in the PDF, on the sheet of its port, and nothing over anything else.
    void readsBackALargeWall()
    {
        QFETCH(int, paper);
        QFETCH(bool, back);
        QFETCH(int, count);
        PrintConfig config;
        config.paper = PrintConfig::Paper(paper);
        config.date = QDate(2026, 5, 4);
        config.views = back ? PrintConfig::BackView : PrintConfig::FrontView;
        config.grey = back;
        const SPrintPlan plan =
            GraphicsWalls::planOf(GraphicsWalls::inputOf(GraphicsWalls::largeWall()), config);
        const QVector<SSheet> sheets = CSheetSet::of(plan).value();
        QCOMPARE(sheets.size(), count);
        const QVector<PdfText::SPage> pages = PdfText::pages(SheetFiles::pdf(sheets, QString(), config.date));
        QCOMPARE(pages.size(), count);
        QHash<QString, QVector<int>> numbers;            // of cabinets, by the sheet's processor and port
        QHash<QString, QVector<QPair<int, int>>> places; // of the list, by processor
        QHash<QString, QVector<int>> ports;              // of the overview, by processor
        for (int i = 0; i < count; ++i) {
            const SSheet &sheet = sheets.at(i);
            const QString fault = faultOf(pages.at(i), sheet);
            QVERIFY2(fault.isEmpty(), qPrintable(sheet.title + QStringLiteral(": ") + fault));
            places[sheet.processor] += listedPlaces(sheet, "168 \u00d7 168");
            if (sheet.port >= 0)
                numbers[sheet.processor + sheet.ports] += numbersOf(sheet, EMark::CabinetNumber);
            else
                ports[sheet.processor] += numbersOf(sheet, EMark::PortName);
        }
        for (const SPlanProcessor &processor : plan.processors) {
            QVERIFY(isEachOnce(places.value(processor.name), 2800));
            QVERIFY(isEachOnce(ports.value(processor.name), 70));
        }
        QCOMPARE(numbers.size(), 140);
        for (const QVector<int> &port : qAsConst(numbers))
            QVERIFY(isEachOnce(port, 40) && *std::max_element(port.begin(), port.end()) == 40);
    }

    void namesEachLetterInAPdf()
    {
        for (int letters = 1; letters < 15; ++letters) { // of a font
            SSheetText text;
            text.box = QRectF(20, 20, 100, 10);
            text.points = 9;
            text.text = QStringLiteral("b dfhjlnprtvxz").left(letters);
            SSheet sheet;
            sheet.size = {200, 100};
            sheet.marks << text;
            QCOMPARE(PdfText::pages(SheetFiles::pdf({sheet}, {}, QDate(2026, 5, 4))).first().text, text.text);
        }
    }

    void namesLettersWithoutAFont()
    {
        PrintConfig config = configOf(PrintConfig::A4);
        QCOMPARE(SheetFiles::missingLetters(sheetsOf(config, {ProjectSamples::ofWall(CWallBuilder::Small)})),
                 QString());
        config.designer = QStringLiteral("M\u00fcller \U0010fffd");
        QCOMPARE(SheetFiles::missingLetters(sheetsOf(config, {ProjectSamples::ofWall(CWallBuilder::Small)})),
                 QStringLiteral("\U0010fffd"));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CPrintJobsTest)
#include "tst_print_jobs.moc"
