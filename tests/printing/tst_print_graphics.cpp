// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CJointSheets.h"
#include "layout/printing/graphics/COverviewSheets.h"
#include "layout/printing/graphics/CPortSheets.h"
#include "layout/printing/graphics/Hatching.h"
#include "tests/harness/CTestBase.h"
#include "tests/printing/SheetChecks.h"
#include "tests/printing/SheetTexts.h"

#include <QGuiApplication>
#include <QRegularExpression>
#include <QTransform>

#include <algorithm>

using namespace GraphicsWalls;
using namespace SheetChecks;

namespace {

/// The wires of a port of 16 cabinets, then the heads of their arrows.
QVector<QPolygonF> chainOf(const SSheet &sheet)
{
    QVector<QPolygonF> found;
    for (const SSheetMark &mark : sheet.marks) {
        const auto *stroke = std::get_if<SSheetStroke>(&mark);
        const auto *fill = std::get_if<SSheetFill>(&mark);
        if (stroke && qFuzzyCompare(stroke->width, 0.8))
            found += stroke->path.toSubpathPolygons().toVector();
        else if (fill && fill->color == Qt::black && fill->path.elementCount() == 15 * 4)
            found += fill->path.toSubpathPolygons().toVector();
    }
    return found.mid(0, 2 * 15); // the samples of the legend come behind
}

/// Whether @p back has the numbers 1 to @p last of that kind, or names that end in them, where a mirror shows
/// those of @p front.
bool areMirrored(const SSheet &front, const SSheet &back, EMark mark, int last)
{
    const auto middles = [&](const SSheet &sheet, int number) {
        static const QRegularExpression notDigits(QStringLiteral("^c?(?=\\d+$)"));
        QVector<double> found;
        for (const SSheetText &text : SheetTexts::of(sheet)) {
            if (text.mark == mark && QString(text.text).remove(notDigits) == QString::number(number))
                found << text.box.center().x();
        }
        std::sort(found.begin(), found.end());
        return found;
    };
    QVector<double> axis; // twice
    QVector<double> places;
    for (int number = 1; number <= last; ++number) {
        const QVector<double> before = middles(front, number);
        QVector<double> behind = middles(back, number);
        if (before.isEmpty() || before.size() != behind.size())
            return false;
        for (int i = 0; i < before.size(); ++i)
            axis << before[i] + behind[behind.size() - 1 - i];
        places << before.first();
    }
    const auto spread = [](const QVector<double> &values) {
        const auto ends = std::minmax_element(values.begin(), values.end());
        return *ends.second - *ends.first;
    };
    return spread(axis) < 0.1 && spread(places) > 10;
}

} // namespace

class CPrintGraphicsTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void showsEachCabinetAndPortOnce_data();
    void showsEachCabinetAndPortOnce();
    void drawsIrregularWalls();
    void mirrorsPlacesButNoTexts();
    void placesWallsSideBySide();
    void takesAnyPaper();
    void dividesWhatIsTooSmall();
    void keepsNumbersOffUprightWires();
    void numbersAreAsLargeAsTheyFit();
    void drawsStrips();
    void hatchesPortsApart();
};

void CPrintGraphicsTest::showsEachCabinetAndPortOnce_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("paper");
    QTest::addColumn<bool>("landscape");
    for (const char *kind : {"small", "medium", "large"}) {
        for (int paper : {PrintConfig::A4, PrintConfig::A3})
            QTest::newRow(qPrintable(QString::fromLatin1(kind) + QString::number(paper)))
                << QString::fromLatin1(kind) << paper << true;
    }
    QTest::newRow("upright") << QStringLiteral("medium") << int(PrintConfig::A4) << false;
}

void CPrintGraphicsTest::showsEachCabinetAndPortOnce()
{
    QFETCH(QString, kind);
    QFETCH(int, paper);
    QFETCH(bool, landscape);
    const SWallKind wall = kind == QLatin1String("small")    ? smallWall()
                           : kind == QLatin1String("medium") ? mediumWall()
                                                             : largeWall();
    const SPrintPlan plan = planOf(inputOf(wall), configOf(PrintConfig::Paper(paper), landscape));
    const QVector<SSheet> sheets = drawings(plan);
    QVERIFY(!sheets.isEmpty());
    int overviews = 0;
    for (const SSheet &sheet : sheets) {
        QVERIFY2(faultOf(sheet).isEmpty(), qPrintable(sheet.title + QStringLiteral(": ") + faultOf(sheet)));
        overviews += sheet.port < 0;
        const QStringList names = textsOf(sheet, EMark::PortName);
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
        if (sheet.port < 0)
            QVERIFY(names.size() >= plan.processors.first().totals.ports);
    }
    if (plan.processors.size() > 1) {
        const CWall first(plan, 0);
        const CWall second(plan, 1);
        const SSheet joint = CJointSheets::sheets({&first, &second}, SSheetArea::of(plan.config)).value(0);
        QVERIFY2(faultOf(joint).isEmpty(), qPrintable(faultOf(joint)));
        QStringList ports = textsOf(joint, EMark::Caption);
        QCOMPARE(ports.size(), plan.totals.ports);
        const int doubled = ports.removeDuplicates(); // each number is in both walls
        QCOMPARE(doubled, ports.size());
    }
    QCOMPARE(overviews, plan.processors.size());
    QCOMPARE(sheets.size() - overviews, plan.totals.ports); // one a port is enough
    for (const SPlanProcessor &processor : plan.processors) {
        for (const SPlanPort &port : processor.ports)
            QCOMPARE(numbersOf(sheets, processor.name, port.index), upTo(port.chain.size()));
    }
}

void CPrintGraphicsTest::drawsIrregularWalls()
{
    for (bool right : {false, true}) {
        PrintConfig config = configOf(PrintConfig::A4);
        config.views = PrintConfig::BothViews;
        config.rack.right = right;
        const SPrintPlan plan = planOf(irregular(), config);
        const QVector<SSheet> sheets = drawings(plan);
        QCOMPARE(sheets.size(), 12);
        for (const SSheet &sheet : sheets)
            QVERIFY2(faultOf(sheet).isEmpty(),
                     qPrintable(sheet.title + QStringLiteral(": ") + faultOf(sheet)));
        for (int view : {0, 1}) {
            QCOMPARE(textsOf(sheets[4 + view], EMark::PortName).size(), 3); // around port 2: 1, 3 and 4
            QCOMPARE(textsOf(sheets[6 + view], EMark::PortName).size(), 3); // around port 3: 1, 2 and 4
            QVERIFY(textsOf(sheets[6 + view], EMark::Tag).contains(QStringLiteral("START")));
            QCOMPARE(textsOf(sheets[4 + view], EMark::CabinetNumber).size(), 8);
            const QStringList numbers = textsOf(sheets[10 + view], EMark::CabinetNumber);
            QCOMPARE(numbers.size(), 7);
            QCOMPARE(numbers.last(), QStringLiteral("–"));
            QVERIFY(textsOf(sheets[10 + view], EMark::PortName).isEmpty());
        }
    }
}

void CPrintGraphicsTest::mirrorsPlacesButNoTexts()
{
    PrintConfig config = configOf(PrintConfig::A4);
    config.views = PrintConfig::BothViews;
    const SPrintPlan plan = planOf(inputOf(mediumWall()), config);
    const SSheetArea area = SSheetArea::of(config);
    const CWall wall(plan, 0);
    const auto made = CPortSheets(wall, area).sheets(5);
    QVERIFY(made);
    QCOMPARE(made.value().size(), 30);
    for (int i = 0; i < 30; i += 2) {
        const SSheet &front = made.value()[i];
        const SSheet &back = made.value()[i + 1];
        QCOMPARE(front.port, back.port);
        QCOMPARE(back.view, SSheet::Back);
        const double axis = area.content.left() + area.content.right();
        const QVector<QRectF> own = cabinetsOf(front);
        const QVector<QRectF> mirrored = cabinetsOf(back);
        QCOMPARE(own.size(), 16);
        QCOMPARE(mirrored.size(), 16);
        for (int cabinet = 0; cabinet < 16; ++cabinet) {
            QVERIFY(std::abs(own[cabinet].left() + mirrored[cabinet].right() - axis) < Hair);
            QVERIFY(std::abs(own[cabinet].top() - mirrored[cabinet].top()) < Hair);
        }
        const auto chain = chainOf(front);
        const auto mirroredChain = chainOf(back);
        QCOMPARE(chain.size(), 2 * 15);
        QCOMPARE(mirroredChain.size(), chain.size());
        for (int mark = 0; mark < chain.size(); ++mark) {
            const QPolygonF turned = QTransform(-1, 0, 0, 1, axis, 0).map(mirroredChain[mark]);
            for (const QPointF &point : turned) // the ends of a head's foot change places
                QVERIFY(std::any_of(chain[mark].begin(), chain[mark].end(), [&](const QPointF &other) {
                    return (other - point).manhattanLength() < Hair;
                }));
        }
        // The same texts, each in the same corner of its cabinet.
        QCOMPARE(textsOf(back, EMark::CabinetPlace), textsOf(front, EMark::CabinetPlace));
        QCOMPARE(textsOf(back, EMark::CabinetPixel), textsOf(front, EMark::CabinetPixel));
        QVector<QPointF> places[2];
        for (int view : {0, 1}) {
            for (const SSheetText &text : SheetTexts::of(view == 0 ? front : back)) {
                if (text.mark == EMark::CabinetNumber)
                    places[view] << text.box.topLeft() -
                                        (view == 0 ? own : mirrored)[places[view].size()].topLeft();
            }
        }
        for (int cabinet = 0; cabinet < 16; ++cabinet)
            QVERIFY((places[0][cabinet] - places[1][cabinet]).manhattanLength() < Hair);
    }
    const auto overview = COverviewSheets(wall, area).sheets(3, 5);
    QCOMPARE(overview.value().size(), 2);
    QVector<int> hatchings[2];
    for (int view : {0, 1}) {
        for (const SSheetMark &mark : overview.value()[view].marks) {
            const auto *fill = std::get_if<SSheetFill>(&mark);
            if (fill && fill->hatching > 0)
                hatchings[view] << fill->hatching;
        }
    }
    QCOMPARE(hatchings[0], upTo(15));
    QCOMPARE(hatchings[1], hatchings[0]);
    QVERIFY(areMirrored(overview.value()[0], overview.value()[1], EMark::PortName, 15));
    QVERIFY(areMirrored(overview.value()[0], overview.value()[1], EMark::Ruler, 24));
    QVERIFY(areMirrored(made.value()[0], made.value()[1], EMark::Caption, 15)); // of the small picture
}

void CPrintGraphicsTest::placesWallsSideBySide()
{
    PrintConfig config = configOf(PrintConfig::A4);
    config.views = PrintConfig::BothViews;
    const SPrintPlan plan = planOf(inputOf(largeWall()), config);
    const CWall first(plan, 0);
    const CWall second(plan, 1);
    const auto joint = CJointSheets::sheets({&first, &second}, SSheetArea::of(config));
    QCOMPARE(joint.size(), 2);
    for (const SSheet &sheet : joint) {
        const auto leftOf = [&](const char *name) {
            for (const SSheetText &text : SheetTexts::of(sheet)) {
                if (text.text.startsWith(QLatin1String(name)))
                    return text.box.left();
            }
            return -1.0;
        };
        QVERIFY((leftOf("Main stage") < leftOf("Side stage")) == (sheet.view == SSheet::Front));
    }
    QVERIFY(areMirrored(joint[0], joint[1], EMark::Caption, 70)); // within each wall, too
}

void CPrintGraphicsTest::takesAnyPaper()
{
    const QSizeF sizes[] = {{297, 210},  {420, 297},     {594, 420},     {841, 594},
                            {1189, 841}, {279.4, 215.9}, {431.8, 279.4}, {500, 300}};
    for (int paper = PrintConfig::A4; paper <= PrintConfig::CustomPaper; ++paper) {
        PrintConfig config = configOf(PrintConfig::Paper(paper));
        config.customPaper = sizes[PrintConfig::CustomPaper];
        for (const bool landscape : {true, false}) {
            config.landscape = landscape;
            const bool lies = landscape || paper == PrintConfig::CustomPaper; // lies as it is given
            const SPrintPlan plan = planOf(inputOf(smallWall()), config);
            const QVector<SSheet> sheets = drawings(plan);
            QCOMPARE(sheets.size(), 9);
            for (const SSheet &sheet : sheets) {
                QVERIFY2(faultOf(sheet).isEmpty(), qPrintable(faultOf(sheet)));
                const QSizeF off = (lies ? sheet.size : sheet.size.transposed()) - sizes[paper];
                QVERIFY(std::abs(off.width()) < 0.1 && std::abs(off.height()) < 0.1);
            }
            for (const SPlanPort &port : plan.processors[0].ports)
                QCOMPARE(numbersOf(sheets, plan.processors[0].name, port.index), upTo(port.chain.size()));
        }
    }
}

void CPrintGraphicsTest::dividesWhatIsTooSmall()
{
    // 100 x 4 cabinets in one string would be about 2 mm wide on a single sheet.
    PrintConfig config = configOf(PrintConfig::A4);
    config.views = PrintConfig::BothViews;
    const SPrintPlan plan = planOf(inputOf(onePort(100, 4)), config);
    const QVector<SSheet> both = drawings(plan).mid(2);
    QVERIFY(both.size() > 2 && both.size() < 16);
    for (SSheet::View view : {SSheet::Front, SSheet::Back}) {
        QVector<SSheet> sheets;
        std::copy_if(both.begin(), both.end(), std::back_inserter(sheets),
                     [&](const SSheet &sheet) { return sheet.view == view; });
        QCOMPARE(numbersOf(sheets, plan.processors[0].name, 0), upTo(400));
        for (int i = 0; i < sheets.size(); ++i) {
            QVERIFY2(faultOf(sheets[i]).isEmpty(), qPrintable(faultOf(sheets[i])));
            const QString notes = textsOf(sheets[i], EMark::Note).join(QLatin1Char(' '));
            // The first sheet is number 2; its neighbours of the same view are beside it.
            const auto refersTo = [&](int part) {
                return notes.contains(QStringLiteral("see sheet %1").arg(2 + 2 * part + view));
            };
            QCOMPARE(refersTo(i - 1), i > 0);
            QCOMPARE(refersTo(i + 1), i + 1 < sheets.size());
            // The chain goes on and comes back four times; one cabinet has the note.
            const QStringList tags =
                textsOf(sheets[i], EMark::Tag).filter(QRegularExpression(QStringLiteral("^(to|from)")));
            QCOMPARE(tags.size(), i == 0 || i + 1 == sheets.size() ? 3 : 6);
            for (const QRectF &cabinet : cabinetsOf(sheets[i]))
                QVERIFY(cabinet.width() >= Smallest - Hair);
        }
    }
}

void CPrintGraphicsTest::keepsNumbersOffUprightWires()
{
    SPrintInput input = inputOf(onePort(16, 16));
    for (auto &cabinet :
         input.processors[0].layout.ports[0].groups[0].cabinets) { // by columns, back and forth
        const int column = cabinet.rect.x() / 128;
        const int row = cabinet.rect.y() / 128;
        cabinet.rank = column * 16 + (column % 2 == 0 ? row : 15 - row);
    }
    const SPrintPlan plan = planOf(input, configOf(PrintConfig::A4));
    const QVector<SSheet> sheets = drawings(plan);
    QCOMPARE(numbersOf(sheets, plan.processors[0].name, 0), upTo(256));
    for (const SSheet &sheet : sheets)
        QVERIFY2(faultOf(sheet).isEmpty(), qPrintable(faultOf(sheet)));
}

void CPrintGraphicsTest::numbersAreAsLargeAsTheyFit()
{
    const SPrintPlan plan = planOf(inputOf(onePort(24, 6)), configOf(PrintConfig::A4));
    const QVector<SSheet> sheets = drawings(plan);
    QCOMPARE(sheets.size(), 2); // of cabinets of 9 mm
    QMap<double, QStringList> numbers;
    for (const SSheetMark &mark : sheets[1].marks) {
        const auto *text = std::get_if<SSheetText>(&mark);
        if (text && text->mark == EMark::CabinetNumber)
            numbers[text->points] << text->text;
    }
    QCOMPARE(numbers.value(9).size(), 143);                         // in another corner where the wire turns
    QCOMPARE(numbers.value(7), QStringList(QStringLiteral("144"))); // above the mark of the end
}

void CPrintGraphicsTest::drawsStrips()
{
    // Even one cabinet a sheet would be lower than it should be.
    const SPrintPlan plan =
        planOf(inputOf({{3, 1}, {2048, 32}, {6400, 100}, {3, 1}}), configOf(PrintConfig::A4));
    const QVector<SSheet> sheets = drawings(plan);
    QVERIFY(sheets.size() > 1);
    QCOMPARE(numbersOf(sheets, plan.processors[0].name, 0), upTo(3));
    for (const SSheet &sheet : sheets)
        QVERIFY2(faultOf(sheet).isEmpty(), qPrintable(faultOf(sheet)));
}

void CPrintGraphicsTest::hatchesPortsApart()
{
    // Ports 1 and 17 would have the same.
    const QMap<int, int> chosen = Hatching::chosen({{0, {16}}, {15, {}}, {16, {0, 17}}, {17, {16}}});
    QCOMPARE(chosen, (QMap<int, int>{{0, 1}, {15, 16}, {16, 2}, {17, 3}}));
    QPainterPath area; // two cabinets with another between them, and one that overlaps
    for (const QRectF &rect : {QRectF(0, 0, 10, 10), QRectF(20, 0, 10, 10), QRectF(25, 5, 10, 10)})
        area.addRect(rect);
    const QRectF gap(10.01, 0, 9.98, 15);
    QVERIFY(Hatching::strokes(area, 1).path.isEmpty());
    for (int number = 2; number <= Hatching::Count; ++number) {
        const QPainterPath lines = Hatching::strokes(area, number).path;
        QVERIFY(QRectF(-Hair, -Hair, 35 + 2 * Hair, 15 + 2 * Hair).contains(lines.boundingRect()));
        QRectF covered[2];
        for (const QPolygonF &line : lines.toSubpathPolygons()) {
            QVERIFY2(!line.boundingRect().adjusted(0, 0, 1e-3, 1e-3).intersects(gap),
                     qPrintable(QString::number(number)));
            covered[line.first().x() > 15] |= line.boundingRect().adjusted(0, 0, 1e-3, 1e-3);
        }
        QVERIFY(covered[0].width() > 7 && covered[1].width() > 12 && covered[1].height() > 12);
    }
}

ORVO_TEST_MAIN(QGuiApplication, CPrintGraphicsTest)
#include "tst_print_graphics.moc"
