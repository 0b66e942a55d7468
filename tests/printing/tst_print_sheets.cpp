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

/// Sheets with lists: what is on them, and where.
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
                QVERIFY2(SheetTexts::isWithin(sheet.frame, SheetTexts::extentOf(mark)), qPrintable(what));
                QVERIFY2(!text || text->points >= 7, qPrintable(what));
            }
            QVERIFY2(SheetTexts::touching(sheet).isEmpty(),
                     qPrintable(sheet.title + QStringLiteral(": ") + SheetTexts::touching(sheet)));
        }
        QVERIFY(SheetTexts::whole(sheets.first()).contains(strangeWall().name)); // wrapped, not cut
    }

    /// Walls that other tests do not print whole.
    void keepsTextsOfEveryWallApart()
    {
        for (const auto wall : {CWallBuilder::Small4K, CWallBuilder::Ribbon, CWallBuilder::Stadium}) {
            PrintConfig config = configOf(PrintConfig::A3);
            config.sheets = PrintConfig::AllSheets;
            const QVector<SSheet> sheets = sheetsOf(config, {ProjectSamples::ofWall(wall)});
            QVERIFY(!sheets.isEmpty());
            for (const SSheet &sheet : sheets) {
                for (const SSheetMark &mark : sheet.marks)
                    QVERIFY2(SheetTexts::isWithin(sheet.frame, SheetTexts::extentOf(mark)),
                             qPrintable(sheet.title));
                QVERIFY2(SheetTexts::touching(sheet).isEmpty(),
                         qPrintable(sheet.title + QStringLiteral(": ") + SheetTexts::touching(sheet)));
            }
        }
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
        for (int calls = 0; calls < 5; ++calls) {
            QVector<QUuid> unfit;
            const auto isStopped = [left = calls]() mutable { return left-- <= 0; };
            const auto stopped = CSheetSet::of(plan, isStopped, &unfit);
            QVERIFY(!stopped && stopped.error().isEmpty() && unfit.isEmpty());
        }
        for (const SSheet &sheet : sheets)
            text += SheetTexts::whole(sheet) + QLatin1Char('\n');
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

    /// A redundancy port is in use, and the processor's load is the one below the canvas.
    void tellsRedundancyPorts()
    {
        SProcessorProject project = ProjectSamples::ofWall(CWallBuilder::Medium);
        project.name = QStringLiteral("Main");
        project.layout.ports[0].groups[0].cabinets[0].type = SMD5::ofContent("a type that nobody knows");
        ProjectSamples::addRedundancyPort(project);
        project.portCount = 20;
        const QVector<SSheet> sheets = sheetsOf(configOf(PrintConfig::A3), {project});
        QVERIFY(has(sheets.first(), "of 20, 4 are free"));
        const SSheet &table = sheets.at(1);
        QVERIFY(has(table, "for Main, port 1") && has(table, "17\u201320") && !has(table, "16\u201320"));
        SPrintInput input = CSheetExport::inputOf({project});
        int loads = 0;
        for (const SPortLoad &load : input.processors.first().loads)
            loads += load.percent;
        QVERIFY(loads > 0);
        QVERIFY(has(table, qPrintable(QString::number((loads + 19) / 20)))); // the mean, rounded up
        input.processors[0].loads[0].bitsPerSecond = 1;                      // of a primary elsewhere
        const auto again = CSheetSet::of(SPrintPlan::of(input, {configOf(PrintConfig::A3), {}, {}}));
        QVERIFY(SheetTexts::whole(table).contains(QStringLiteral("bit/s by 60 Hz")));
        QCOMPARE(SheetTexts::whole(again.value().at(1)), SheetTexts::whole(table));
        const QVector<SSheetText> texts = SheetTexts::of(sheets.first());
        QCOMPARE(std::count_if(texts.begin(), texts.end(),
                               [](const SSheetText &text) {
                                   return text.text.startsWith(QLatin1String("some unknown; "));
                               }),
                 2);
    }

    /// Each figure by itself, and only where it is shown.
    void tellsWhichFiguresAreNotKnown()
    {
        PrintConfig config = configOf(PrintConfig::A3);
        config.sheets = PrintConfig::PortTable | PrintConfig::PortSheets | PrintConfig::PartsList;
        enum { Weight = 1, Maximum = 2, Average = 4 };
        const QMap<int, QString> notes{
            {0, {}},
            {Average, {}},
            {Weight, QStringLiteral("Weight: without")},
            {Maximum, QStringLiteral("Power: without")},
            {Weight | Maximum | Average, QStringLiteral("Power and weight: without")}};
        for (auto note = notes.begin(); note != notes.end(); ++note) {
            SPrintInput input = CSheetExport::inputOf({ProjectSamples::ofWall(CWallBuilder::Medium)});
            input.takeTypes();
            input.library.clear(); // so that it gives them no more
            for (auto &type : input.alike) {
                type.kilograms = (note.key() & Weight) != 0 ? 0 : type.kilograms;
                type.wattsMaximum = (note.key() & Maximum) != 0 ? 0 : type.wattsMaximum;
                type.wattsAverage = (note.key() & Average) != 0 ? 0 : type.wattsAverage;
            }
            const QVector<SSheet> sheets = CSheetSet::of(SPrintPlan::of(input, {config, {}, {}})).value();
            const QString table = SheetTexts::whole(sheets.first());
            QVERIFY2(table.contains(note.value()), qPrintable(table));
            QCOMPARE(table.contains(QStringLiteral(": without cabinets")), !note.value().isEmpty());
            QCOMPARE(SheetTexts::whole(sheets.last()).contains(QStringLiteral("Weight or power of some")),
                     !note.value().isEmpty());
            QCOMPARE(has(sheets.first(), "112.0"), (note.key() & Weight) == 0);
            QCOMPARE(has(sheets.first(), "2,560"), (note.key() & Maximum) == 0);
            QCOMPARE(has(sheets.at(1), "112.0 kg"), (note.key() & Weight) == 0);
            QCOMPARE(has(sheets.at(1), "2,560 W max., 1,280 W average"), (note.key() & ~Weight) == 0);
        }
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
        input.processors[1].primary = input.processors[0].layout.processor;
        input.processors[1].layout.ports[0].groups[0].cabinets[0].type = SMD5::ofContent("unknown");
        SPrintJob job{configOf(PrintConfig::A4), {}, {}};
        for (const bool same : {true, false}) {
            PrintConfig &own = job.own[input.processors[1].layout.processor] = job.whole;
            own.farEnd = same ? own.farEnd : QStringLiteral("Elsewhere");
            own.pixelPitch = same ? own.pixelPitch : 3.9;
            const QVector<SSheet> sheets = CSheetSet::of(SPrintPlan::of(input, job)).value();
            const QVector<SSheetText> texts = SheetTexts::of(sheets.last()); // the parts list
            const auto told = [&](EMark mark, const QString &text) {
                return std::any_of(texts.begin(), texts.end(), [&](const SSheetText &shown) {
                    return shown.mark == mark && shown.text == text;
                });
            };
            QCOMPARE(told(EMark::TitleBlock, job.whole.farEnd), same);
            QVERIFY(!told(EMark::TitleBlock, QStringLiteral("24"))); // of 24 and 8 columns
            QVERIFY(has(sheets.last(), "All processors"));
            QCOMPARE(SheetTexts::whole(sheets.first()).contains(QStringLiteral("3.9 mm from pixel")), !same);
        }
        const QVector<SSheet> usual = CSheetSet::of(SPrintPlan::of(input, {})).value();
        QVERIFY(SheetTexts::whole(usual.first()).contains(QStringLiteral(", redundancy of Main stage(")));
        const char takesOver[] = "for Main stage(192.168.10.12)";
        QVERIFY(!has(usual.at(1), takesOver) && has(usual.at(2), takesOver)); // the tables of ports
        input.processors[0].redundancy = input.processors[1].layout.processor;
        const QVector<SSheet> pair = CSheetSet::of(SPrintPlan::of(input, {})).value();
        QVERIFY(!has(pair.first(), "+ 1")); // it is one of the two
    }

    void refusesPaperThatIsTooSmall()
    {
        PrintConfig config = configOf(PrintConfig::CustomPaper);
        config.customPaper = SSheetArea::least(config) - QSizeF(2, 0);
        const auto input = CSheetExport::inputOf({ProjectSamples::ofWall(CWallBuilder::Small)});
        const auto refused = CSheetSet::of(SPrintPlan::of(input, {config, {}, {}}));
        QVERIFY(!refused && refused.error().contains(QStringLiteral("too small")));
    }

    /// Not one by one, each after the last was mended.
    void tellsOfAllPapersThatNothingFitsOn()
    {
        QVector<SProcessorProject> walls;
        SPrintJob job;
        for (const char *name : {"Little", "Large", "Larger", "Right"}) {
            walls << ProjectSamples::ofWall(CWallBuilder::Small);
            walls.last().name = QString::fromLatin1(name);
            walls.last().layout.processor = QUuid::createUuid();
            job.own[walls.last().layout.processor] = {};
        }
        PrintConfig &little = job.own[walls[0].layout.processor];
        little.paper = PrintConfig::CustomPaper;
        little.customPaper = {100, 100};
        job.own[walls[1].layout.processor].scale = job.own[walls[2].layout.processor].scale = 1;
        const SPrintInput input = CSheetExport::inputOf(walls);
        for (const int kinds : {PrintConfig::PortSheets, PrintConfig::Overview}) {
            job.whole.sheets = kinds;
            QVector<QUuid> unfit;
            const QString told = CSheetSet::of(SPrintPlan::of(input, job), {}, &unfit).error();
            QCOMPARE(told.count(QLatin1Char('\n')), 2);
            QVERIFY2(told.startsWith(QStringLiteral("The paper of Little (100 \u00d7 100 mm) is too small")),
                     qPrintable(told));
            QVERIFY(told.contains(QStringLiteral(" of Large,")) ||
                    told.contains(QStringLiteral(" of Large ")));
            QVERIFY(told.contains(QStringLiteral(" of Larger")) && !told.contains(QStringLiteral("Right")));
            QCOMPARE(unfit.size(), 3);
        }
        job.whole.paper = PrintConfig::CustomPaper;
        job.whole.customPaper = {50, 50};
        const QString told = CSheetSet::of(SPrintPlan::of(input, job)).error();
        QVERIFY(told.startsWith(QStringLiteral("The paper (50")) &&
                told.contains(QStringLiteral("\nThe paper of Little (100")));
    }
};

ORVO_TEST_MAIN(QGuiApplication, CPrintSheetsTest)
#include "tst_print_sheets.moc"
