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
#include "tests/projects/ProjectSamples.h"

#include <QFontInfo>
#include <QImage>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTransform>

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;

PrintConfig configOf(PrintConfig::Paper paper, bool landscape = true)
{
    PrintConfig config;
    config.project = QStringLiteral("Stadion S\u00fcdkurve");
    config.watermark = QStringLiteral("DRAFT");
    config.farEnd = QStringLiteral("Main stage B (192.168.10.32)");
    config.notes = QStringLiteral("Wire from row 1 down.");
    config.date = QDate(2026, 5, 4);
    config.paper = paper;
    config.landscape = landscape;
    config.sheets =
        PrintConfig::Cover | PrintConfig::PortTable | PrintConfig::CabinetList | PrintConfig::PartsList;
    return config;
}

QVector<SSheet> sheetsOf(const PrintConfig &config, const QVector<SProcessorProject> &projects)
{
    const auto sheets = CSheetSet::of(SPrintPlan::of(CSheetExport::inputOf(projects), {config, {}, {}}));
    return sheets ? sheets.value() : QVector<SSheet>();
}

QVector<SSheetText> textsOf(const SSheet &sheet)
{
    QVector<SSheetText> texts;
    for (const SSheetMark &mark : sheet.marks) {
        if (const auto *text = std::get_if<SSheetText>(&mark))
            texts << *text;
    }
    return texts;
}

/// All texts, one after the other.
QString wholeText(const SSheet &sheet)
{
    QStringList parts;
    for (const SSheetText &text : textsOf(sheet))
        parts << text.text;
    return parts.join(QLatin1Char(' '));
}

bool has(const SSheet &sheet, const char *wanted)
{
    const QVector<SSheetText> texts = textsOf(sheet);
    return std::any_of(texts.begin(), texts.end(),
                       [wanted](const SSheetText &text) { return text.text == QString::fromUtf8(wanted); });
}

/// Where the letters of a text are, without the air around them.
QRectF lettersOf(const SSheetText &text)
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

QRectF extentOf(const SSheetMark &mark)
{
    if (const auto *fill = std::get_if<SSheetFill>(&mark))
        return fill->path.boundingRect();
    if (const auto *stroke = std::get_if<SSheetStroke>(&mark))
        return stroke->path.boundingRect();
    return lettersOf(std::get<SSheetText>(mark));
}

/// Whether something without width or height is within, too.
bool isWithin(const QRectF &outer, const QRectF &inner)
{
    constexpr double Rounding = 0.01;
    return inner.left() >= outer.left() - Rounding && inner.right() <= outer.right() + Rounding &&
           inner.top() >= outer.top() - Rounding && inner.bottom() <= outer.bottom() + Rounding;
}

/// Texts that touch another one, "a / b"; empty if there are none.
QString touchingTexts(const SSheet &sheet)
{
    QVector<QPair<QRectF, QString>> placed;
    for (const SSheetText &text : textsOf(sheet)) {
        if (text.mark != EMark::Watermark)
            placed << qMakePair(lettersOf(text), text.text);
    }
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

/// Row and column of each cabinet of that size that a list of cabinets names.
QVector<QPair<int, int>> listedPlaces(const SSheet &sheet, const char *pixels)
{
    QVector<QPair<int, int>> places;
    if (sheet.title != QLatin1String("List of cabinets"))
        return places;
    QMap<double, QVector<SSheetText>> rows; // by their height on the sheet
    for (const SSheetText &text : textsOf(sheet)) {
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

SProcessorProject strangeWall()
{
    SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Small4K);
    project.name =
        QStringLiteral("A wall whose name is so long that it fits no field of any title block at all");
    for (int port = 0; port < 13; ++port)
        project.layout.ports[port].groups[0].cabinets[0].rect.setHeight(50 + port); // 13 types more
    return project;
}

} // namespace

/// Sheets with lists: what is on them, where, and what files they become.
class CPrintSheetsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTextsApartAndWithinTheFrame_data()
    {
        QTest::addColumn<PrintConfig>("config");
        QTest::newRow("A4") << configOf(PrintConfig::A4);
        QTest::newRow("A4 upright") << configOf(PrintConfig::A4, false);
        QTest::newRow("A3") << configOf(PrintConfig::A3);
        QTest::newRow("Letter") << configOf(PrintConfig::Letter);
        PrintConfig least = configOf(PrintConfig::CustomPaper);
        least.customPaper = SSheetArea::least(least);
        QTest::newRow("as small as possible") << least;
        PrintConfig back = configOf(PrintConfig::Tabloid);
        back.views = PrintConfig::BackView;
        back.binding = PrintConfig::BindTop;
        QTest::newRow("Tabloid, back") << back;
    }
    void keepsTextsApartAndWithinTheFrame()
    {
        QFETCH(PrintConfig, config);
        const QVector<SSheet> sheets =
            sheetsOf(config, {ProjectSamples::ofWall(CWallBuilder::Medium), strangeWall()});
        QVERIFY(!sheets.isEmpty());
        for (const SSheet &sheet : sheets) {
            for (const SSheetMark &mark : sheet.marks) {
                const auto *text = std::get_if<SSheetText>(&mark);
                const QString what = sheet.title + QStringLiteral(": ") + (text ? text->text : QString());
                QVERIFY2(isWithin(sheet.frame, extentOf(mark)), qPrintable(what));
                QVERIFY2(!text || text->points >= 7, qPrintable(what));
            }
            QVERIFY2(touchingTexts(sheet).isEmpty(),
                     qPrintable(sheet.title + QStringLiteral(": ") + touchingTexts(sheet)));
        }
        QVERIFY(wholeText(sheets.first()).contains(strangeWall().name)); // wrapped, not cut
    }

    void breaksTextsAnywhereRatherThanCutThem()
    {
        const QString texts[] = {QString::fromUtf8("\u5317\u4eac\u4f53\u80b2\u573a").repeated(9),
                                 QStringLiteral("Lichtwandverkabelungsplan").repeated(3),
                                 QStringLiteral("north stand, row 5, behind the goal")};
        for (const QString &text : texts) {
            const QStringList lines = CSheetFont::lines(text, 9, false, 30);
            QVERIFY(lines.size() > 1);
            for (const QString &line : lines)
                QVERIFY2(CSheetFont::width(line, 9, false) <= 30, qPrintable(line));
            QCOMPARE(lines.join(QString()).remove(QLatin1Char(' ')), QString(text).remove(QLatin1Char(' ')));
        }
        QCOMPARE(CSheetFont::lines(texts[2], 9, false, 30).first(), QStringLiteral("north stand, row 5,"));
    }

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
        config.grey = false;
        const QVector<SSheet> coloured = sheetsOf(config, {project});
        QVERIFY(std::any_of(coloured.at(2).marks.begin(), coloured.at(2).marks.end(), [](const auto &mark) {
            return std::visit([](const auto &shown) { return shown.color.saturation() > 0; }, mark);
        }));
    }

    void listsCountWhatTheyHold()
    {
        PrintConfig config = configOf(PrintConfig::A4);
        config.sheets = PrintConfig::CabinetList | PrintConfig::PortTable;
        config.rack.right = !config.rack.right;
        config.rack.lowerEdge = 3000;
        config.cables.stock = {8,  9,  10, 11, 12, 13,
                               14, 15, 16, 17, 50}; // a loop of another length than its feed
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        project.layout.ports[0].groups[0].cabinets.last().rank = -1;
        project.portCount = 16; // the last is free
        const SPrintPlan plan = SPrintPlan::of(CSheetExport::inputOf({project}), {config, {}, {}});
        QString text;
        const QVector<SSheet> sheets = CSheetSet::of(plan).value();
        for (const SSheet &sheet : sheets)
            text += wholeText(sheet) + QLatin1Char('\n');
        static const QRegularExpression sum(QStringLiteral("([\\d,]+) cabinets, ([\\d,]+) pixels"));
        int sums = 0;
        for (auto found = sum.globalMatch(text); found.hasNext(); ++sums) {
            const QRegularExpressionMatch match = found.next();
            const auto number = [&match](int part) {
                return match.captured(part).remove(QLatin1Char(',')).toInt();
            };
            QCOMPARE(number(1) * 192 * 192, number(2));
        }
        QVERIFY(sums > 3);                                                    // below the columns, too
        QVERIFY(text.contains(SheetNumbers::dash() + QStringLiteral(" A "))); // is not wired
        QVERIFY(!text.contains(QStringLiteral("16\u201316")));
        const QVector<SPlanPort> &ports = plan.processors.first().ports;
        for (const SPlanPort &port : ports) {
            const QString cables =
                QStringLiteral(" %1 %2 %3 ").arg(port.load).arg(port.feed.stock).arg(port.loop.stock);
            QVERIFY2(port.loop.need == 0 || text.contains(cables), qPrintable(cables));
            if (port.chain.isEmpty())
                continue;
            const auto &cabinets = plan.processors.first().cabinets;
            const QString ends = cabinets.at(port.chain.first()).place() + QLatin1Char(' ') +
                                 cabinets.at(port.chain.last()).place();
            QVERIFY2(text.contains(ends), qPrintable(ends));
        }
        QVERIFY(std::any_of(ports.begin(), ports.end(), [](const SPlanPort &port) {
            return port.loop.need > 0 && port.feed.stock != port.loop.stock;
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
        QVERIFY(wholeText(sheets.at(3)).contains(QStringLiteral(" pixels; port 4 goes on")));
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

    /// A redundancy port is in use, and the processor's load is the one below the canvas.
    void tellsRedundancyPorts()
    {
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        project.name = QStringLiteral("Main");
        project.portCount = 20;
        Port &primary = project.layout.ports[0];
        primary.groups[0].cabinets[0].type = SMD5::ofContent("a type that nobody knows");
        Port backup;
        backup.index = 15;
        backup.mirrored = PortPairs::mirrorOf(primary);
        PortPairs::setPair(primary, project.layout.processor, Port::Primary, {project.layout.processor, 15});
        PortPairs::setPair(backup, project.layout.processor, Port::Redundant, {project.layout.processor, 0});
        project.layout.ports << backup;
        const QVector<SSheet> sheets = sheetsOf(configOf(PrintConfig::A3), {project});
        QVERIFY(has(sheets.first(), "of 20, 4 are free"));
        const SSheet &table = sheets.at(1);
        QVERIFY(has(table, "for Main, port 1") && has(table, "17\u201320") && !has(table, "16\u201320"));
        const SPrintInput input = CSheetExport::inputOf({project});
        int loads = 0;
        for (const SPortLoad &load : input.processors.first().loads)
            loads += load.percent;
        QVERIFY(loads > 0);
        QVERIFY(has(table, qPrintable(QString::number((loads + 19) / 20)))); // the mean, rounded up
        const QVector<SSheetText> texts = textsOf(sheets.first());
        QCOMPARE(std::count_if(texts.begin(), texts.end(),
                               [](const SSheetText &text) {
                                   return text.text.startsWith(QLatin1String("some unknown; "));
                               }),
                 2);
    }

    void splitsTablesWithCarriedSums()
    {
        QRandomGenerator random(20260504);
        for (int round = 0; round < 300; ++round) {
            QVector<STableRow> rows(random.bounded(60));
            for (STableRow &row : rows) {
                row.cells = {QStringLiteral("row"), QString::number(random.bounded(100))};
                row.kind = random.bounded(4) == 0 ? STableRow::Heading : STableRow::Plain;
            }
            const auto sumOf = [](int count) {
                STableRow sum;
                sum.cells = {{}, QString::number(count)};
                return sum;
            };
            const int capacity = 5 + random.bounded(20);
            const auto parts = CSheetTable::parts(
                rows, {sumOf(rows.size())}, [capacity](int) { return capacity; }, sumOf, round % 2 == 0);
            int done = 0;
            QString heading;
            for (int i = 0; i < parts.size(); ++i) {
                QVector<STableRow> part = parts.at(i);
                QVERIFY(part.size() <= capacity);
                if (i > 0) {
                    QCOMPARE(part.first().cells.at(0).text, QStringLiteral("brought forward"));
                    QCOMPARE(part.takeFirst().cells.at(1).text.toInt(), done);
                }
                if (round % 2 == 0 && i > 0 && part.size() > 1 && !heading.isEmpty() && done < rows.size() &&
                    rows.at(done).kind == STableRow::Plain)
                    QCOMPARE(part.takeFirst().cells.at(1).text, heading);
                const STableRow last = part.takeLast();
                QVERIFY(part.size() < 2 || i + 1 == parts.size() || part.last().kind != STableRow::Heading);
                for (const STableRow &row : qAsConst(part)) {
                    QCOMPARE(row.cells.at(1).text, rows.at(done++).cells.at(1).text);
                    if (row.kind == STableRow::Heading)
                        heading = row.cells.at(1).text;
                }
                QCOMPARE(last.cells.at(1).text.toInt(), done);
                QCOMPARE(last.kind == STableRow::Sum, i + 1 < parts.size());
            }
            QCOMPARE(done, rows.size());
        }
    }

    /// Sheets of all processors tell only what holds for all, and notes name what each has.
    void tellsOfAllOnlyWhatIsTheSame()
    {
        SPrintInput input = GraphicsWalls::inputOf(GraphicsWalls::mediumWall());
        input.processors << GraphicsWalls::inputOf(GraphicsWalls::smallWall()).processors;
        input.processors[1].node.name = QStringLiteral("Side");
        input.processors[1].layout.ports[0].groups[0].cabinets[0].type = SMD5::ofContent("unknown");
        SPrintJob job{configOf(PrintConfig::A4), {}, {}};
        for (const bool same : {true, false}) {
            PrintConfig &own = job.own[input.processors[1].layout.processor] = job.whole;
            own.farEnd = same ? own.farEnd : QStringLiteral("Elsewhere");
            own.pixelPitch = same ? own.pixelPitch : 3.9;
            const QVector<SSheet> sheets = CSheetSet::of(SPrintPlan::of(input, job)).value();
            const QVector<SSheetText> texts = textsOf(sheets.last()); // the parts list
            const auto told = [&](EMark mark, const QString &text) {
                return std::any_of(texts.begin(), texts.end(), [&](const SSheetText &shown) {
                    return shown.mark == mark && shown.text == text;
                });
            };
            QCOMPARE(told(EMark::TitleBlock, job.whole.farEnd), same);
            QVERIFY(!told(EMark::TitleBlock, QStringLiteral("24"))); // of 24 and 8 columns
            QVERIFY(has(sheets.last(), "All processors"));
            QCOMPARE(wholeText(sheets.first()).contains(QStringLiteral("3.9 mm from pixel")), !same);
        }
    }

    void refusesPaperThatIsTooSmall()
    {
        PrintConfig config = configOf(PrintConfig::CustomPaper);
        config.customPaper = SSheetArea::least(config) - QSizeF(2, 0);
        const auto input = CSheetExport::inputOf({ProjectSamples::ofWall(CWallBuilder::Small)});
        const auto refused = CSheetSet::of(SPrintPlan::of(input, {config, {}, {}}));
        QVERIFY(!refused && refused.error().contains(QStringLiteral("too small")));
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
        config.project = CSheetFont::has(0x5317) ? QStringLiteral("Stadion S\u00fcdkurve \u5317\u4eac")
                                                 : QStringLiteral("Stadion S\u00fcdkurve");
        const SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        const QVector<SSheet> sheets = sheetsOf(config, {project});
        QCOMPARE(sheets.size(), 40);
        QCOMPARE(sheets.at(1).title, QStringLiteral("Table of ports")); // the cover is one sheet
        const QStringList pages = PdfText::pages(SheetFiles::pdf(sheets, QString(), config.date));
        QCOMPARE(pages.size(), sheets.size());
        for (int i = 0; i < sheets.size(); ++i) {
            QString text;
            QVector<int> numbers;
            for (const SSheetText &shown : textsOf(sheets.at(i))) {
                text += shown.text;
                if (shown.mark == EMark::CabinetNumber)
                    numbers << shown.text.toInt();
            }
            QCOMPARE(pages.at(i), text);
            if (sheets.at(i).port < 0)
                continue;
            std::sort(numbers.begin(), numbers.end());
            QCOMPARE(numbers.size(), 16);
            for (int number = 0; number < numbers.size(); ++number)
                QCOMPARE(numbers.at(number), number + 1);
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
    /// 5,600 cabinets: each once in the PDF, on the sheet of its port.
    void readsBackALargeWall()
    {
        QFETCH(int, paper);
        QFETCH(bool, back);
        QFETCH(int, count);
        PrintConfig config = configOf(PrintConfig::Paper(paper));
        config.sheets = PrintConfig::AllSheets;
        config.views = back ? PrintConfig::BackView : PrintConfig::FrontView;
        config.grey = back;
        const SPrintPlan plan =
            GraphicsWalls::planOf(GraphicsWalls::inputOf(GraphicsWalls::largeWall()), config);
        const QVector<SSheet> all = CSheetSet::of(plan).value();
        QCOMPARE(all.size(), count);
        QMap<QString, QVector<QPair<int, int>>> listed; // by processor
        for (const SSheet &sheet : all) {
            listed[sheet.processor] += listedPlaces(sheet, "168 \u00d7 168");
            for (const SSheetMark &mark : sheet.marks)
                QVERIFY(isWithin(sheet.frame, extentOf(mark)));
            QVERIFY2(touchingTexts(sheet).isEmpty(), qPrintable(touchingTexts(sheet)));
        }
        for (const SPlanProcessor &processor : plan.processors) {
            QVector<QPair<int, int>> &places = listed[processor.name];
            QCOMPARE(places.size(), 2800);
            std::sort(places.begin(), places.end());
            QVERIFY(std::adjacent_find(places.begin(), places.end()) == places.end());
        }
        QVector<SSheet> sheets; // the drawings
        std::copy_if(all.begin(), all.end(), std::back_inserter(sheets),
                     [](const SSheet &sheet) { return !sheet.list; });
        const QStringList pages = PdfText::pages(SheetFiles::pdf(sheets, QString(), config.date));
        QCOMPARE(pages.size(), sheets.size());
        QMap<QPair<QString, int>, QVector<int>> numbers;
        for (int i = 0; i < sheets.size(); ++i) {
            const SSheet &sheet = sheets.at(i);
            QString text;
            for (const SSheetText &shown : textsOf(sheet)) {
                text += shown.text;
                if (sheet.port >= 0 && shown.mark == EMark::CabinetNumber)
                    numbers[{sheet.processor, sheet.port}] << shown.text.toInt();
            }
            QCOMPARE(pages.at(i), text);
        }
        QCOMPARE(numbers.size(), 140);
        for (QVector<int> &port : numbers) {
            std::sort(port.begin(), port.end());
            QVERIFY(port.size() == 40 && port.first() == 1 && port.last() == 40);
            QVERIFY(std::adjacent_find(port.begin(), port.end()) == port.end());
        }
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
            QCOMPARE(PdfText::pages(SheetFiles::pdf({sheet}, {}, QDate(2026, 5, 4))), QStringList(text.text));
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

ORVO_TEST_MAIN(QGuiApplication, CPrintSheetsTest)
#include "tst_print_sheets.moc"
