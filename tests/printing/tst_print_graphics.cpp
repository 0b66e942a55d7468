// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/CJointSheets.h"
#include "layout/printing/graphics/COverviewSheets.h"
#include "layout/printing/graphics/CPortSheets.h"
#include "layout/printing/graphics/CTileSheets.h"
#include "layout/printing/graphics/Hatching.h"
#include "tests/harness/CTestBase.h"
#include "tests/printing/GraphicsWalls.h"

#include <QGuiApplication>

#include <algorithm>
#include <numeric>

using namespace GraphicsWalls;

namespace {

constexpr double Smallest = 7; // points
constexpr double Hair = 0.02;  // millimetres

PrintConfig configOf(PrintConfig::Paper paper, bool landscape = true)
{
    PrintConfig config;
    config.paper = paper;
    config.landscape = landscape;
    config.farEnd = QStringLiteral("Spare (192.168.10.32)");
    return config;
}

/// Every drawing of a wall.
QVector<SSheet> drawings(const SPrintPlan &plan)
{
    QVector<SSheet> sheets;
    for (int i = 0; i < plan.processors.size(); ++i) {
        const SSheetArea area = SSheetArea::of(plan.processors[i].config);
        const CWall wall(plan, i);
        const auto overview = COverviewSheets(wall, area).sheets(1, 2);
        const auto ports = CPortSheets(wall, area).sheets(2);
        if (!overview || !ports)
            return {};
        sheets += overview.value() + ports.value();
    }
    return sheets;
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

QStringList textsOf(const SSheet &sheet, EMark mark)
{
    QStringList texts;
    for (const SSheetText &text : textsOf(sheet)) {
        if (text.mark == mark)
            texts << text.text;
    }
    return texts;
}

QRectF areaOf(const SSheetText &text)
{
    QTransform turn;
    turn.translate(text.box.center().x(), text.box.center().y());
    turn.rotate(text.turned);
    return turn.mapRect(text.box.translated(-text.box.center()));
}

QRectF areaOf(const SSheetFill &fill)
{
    return fill.path.boundingRect();
}

QRectF areaOf(const SSheetStroke &stroke)
{
    const double half = stroke.width / 2;
    return stroke.path.boundingRect().adjusted(-half, -half, half, half);
}

/// The straight pieces of the thick hops of a port sheet.
QVector<QRectF> hopsOf(const SSheet &sheet)
{
    QVector<QRectF> pieces;
    for (const SSheetMark &mark : sheet.marks) {
        const auto *stroke = std::get_if<SSheetStroke>(&mark);
        if (!stroke || !qFuzzyCompare(stroke->width, 0.8))
            continue;
        for (const QPolygonF &line : stroke->path.toSubpathPolygons()) {
            for (int i = 0; i + 1 < line.size(); ++i)
                pieces << QRectF(line[i], line[i + 1]).normalized().adjusted(-0.4, -0.4, 0.4, 0.4);
        }
    }
    return pieces;
}

/// What is wrong with a sheet; empty if nothing is.
QString faultOf(const SSheet &sheet)
{
    const QRectF frame = sheet.frame.adjusted(-Hair, -Hair, Hair, Hair);
    for (const SSheetMark &mark : sheet.marks) {
        const QRectF area = std::visit([](const auto &known) { return areaOf(known); }, mark);
        if (!frame.contains(area))
            return QStringLiteral("outside the frame: %1, %2, %3 x %4")
                .arg(area.left())
                .arg(area.top())
                .arg(area.width())
                .arg(area.height());
    }
    const QVector<SSheetText> texts = textsOf(sheet);
    const QVector<QRectF> hops = hopsOf(sheet);
    for (int i = 0; i < texts.size(); ++i) {
        const bool label = texts[i].mark >= EMark::CabinetNumber && texts[i].mark <= EMark::Tag;
        if (label && std::any_of(hops.begin(), hops.end(),
                                 [&](const QRectF &hop) { return hop.intersects(texts[i].box); }))
            return texts[i].text + QStringLiteral(" over a hop");
        if (texts[i].points < Smallest)
            return QStringLiteral("too small: ") + texts[i].text;
        const QRectF area = areaOf(texts[i]).adjusted(Hair, Hair, -Hair, -Hair);
        for (int j = 0; j < i; ++j) {
            if (areaOf(texts[j]).intersects(area))
                return texts[i].text + QStringLiteral(" over ") + texts[j].text;
        }
    }
    return {};
}

/// The cabinet numbers of all sheets of a port, sorted.
QVector<int> numbersOf(const QVector<SSheet> &sheets, const QString &processor, int port)
{
    QVector<int> numbers;
    for (const SSheet &sheet : sheets) {
        if (sheet.port != port || sheet.processor != processor)
            continue;
        for (const QString &text : textsOf(sheet, EMark::CabinetNumber))
            numbers << text.toInt();
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

QVector<int> upTo(int last)
{
    QVector<int> numbers(last);
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

/// One port of @p columns x @p rows cabinets, row by row.
SWallKind onePort(int columns, int rows)
{
    return {{columns, rows}, {128, 128}, {500, 500}, {columns, rows}};
}

/// The borders of cabinets, by place.
QVector<QRectF> cabinetsOf(const SSheet &sheet)
{
    QVector<QRectF> rects;
    for (const SSheetMark &mark : sheet.marks) {
        const auto *stroke = std::get_if<SSheetStroke>(&mark);
        if (stroke && qFuzzyCompare(stroke->width, 0.35))
            rects << stroke->path.boundingRect();
    }
    return rects;
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
    void dividesWhatIsTooSmall();
    void drawsStrips();
    void tellsWhereTheChainGoesOn();
    void tilesAtTrueScale();
    void hatchesPortsApart();
    void refusesWhatDoesNotFit();
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
        // The same texts, each in the same corner of its cabinet.
        QCOMPARE(textsOf(back, EMark::CabinetPlace), textsOf(front, EMark::CabinetPlace));
        QCOMPARE(textsOf(back, EMark::CabinetPixel), textsOf(front, EMark::CabinetPixel));
        QVector<QPointF> places[2];
        for (int view : {0, 1}) {
            for (const SSheetText &text : textsOf(view == 0 ? front : back)) {
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

void CPrintGraphicsTest::tellsWhereTheChainGoesOn()
{
    SPrintInput input = inputOf(onePort(10, 1));
    auto &cabinets = input.processors[0].layout.ports[0].groups[0].cabinets;
    std::swap(cabinets[1].rank, cabinets[9].rank); // 1, 10, 3 … 9, 2
    SPrintPlan plan = planOf(input, configOf(PrintConfig::A3));
    SSheet sheet = drawings(plan).at(1);
    QVERIFY2(faultOf(sheet).isEmpty(), qPrintable(faultOf(sheet)));
    QString tags = textsOf(sheet, EMark::Tag).join(QLatin1Char(' '));
    // Nine and seven cabinets apart.
    for (const char *tag : {"START", "END", "to 2,", "r1 c10", "from 1", "to 3,", "from 2", "from 9"})
        QVERIFY2(tags.contains(QLatin1String(tag)), tag);
    QVERIFY(!tags.contains(QStringLiteral("to 4")));

    std::swap(cabinets[1].rank, cabinets[9].rank);
    std::swap(cabinets[3].rank, cabinets[5].rank); // within reach of a jump
    cabinets[9].rank = -1;
    plan = planOf(input, configOf(PrintConfig::A3));
    sheet = drawings(plan).at(1);
    tags = textsOf(sheet, EMark::Tag).join(QLatin1Char(' '));
    QVERIFY(!tags.contains(QStringLiteral("to 4,")) && tags.contains(QStringLiteral("not")));
    int dashed = 0;
    for (const SSheetMark &mark : sheet.marks) {
        const auto *stroke = std::get_if<SSheetStroke>(&mark);
        dashed += stroke && stroke->dashes.size() == 4;
    }
    QCOMPARE(dashed, 2);
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

void CPrintGraphicsTest::tilesAtTrueScale()
{
    QCOMPARE(CTileSheets::count(500, 255), 2); // the first is wider by the overlap
    QCOMPARE(CTileSheets::count(505, 255), 3);
    for (int paper : {PrintConfig::A4, PrintConfig::A3}) {
        PrintConfig config = configOf(PrintConfig::Paper(paper));
        config.scale = 25;
        const SSheetArea area = SSheetArea::of(config);
        QCOMPARE(CTileSheets::field(area).size().toSize(),
                 paper == PrintConfig::A4 ? QSize(255, 130) : QSize(378, 217));
        const SPrintPlan plan = planOf(inputOf(mediumWall()), config);
        const auto made = COverviewSheets(CWall(plan, 0), area).sheets(1, 2);
        QVERIFY(made);
        QCOMPARE(made.value().size(), paper == PrintConfig::A4 ? 4 : 2);
        QSet<QString> ports;
        QHash<QString, QVector<QPointF>> crosses; // by letter, where they are on the wall
        for (int i = 0; i < made.value().size(); ++i) {
            const SSheet &sheet = made.value()[i];
            QVERIFY2(faultOf(sheet).isEmpty(), qPrintable(faultOf(sheet)));
            QCOMPARE(sheet.scale, QStringLiteral("1:25"));
            const QStringList names = textsOf(sheet, EMark::PortName);
            ports.unite(QSet<QString>(names.begin(), names.end()));
            QCOMPARE(textsOf(sheet, EMark::Caption).size(), 4);
            const QSizeF step = CTileSheets::field(area).size() - QSizeF(10, 10);
            for (const SSheetText &text : textsOf(sheet)) {
                if (text.mark == EMark::Caption)
                    crosses[text.text]
                        << text.box.center() + QPointF(i % 2 * step.width(), i / 2 * step.height());
            }
        }
        QCOMPARE(ports.size(), 15);
        int shared = 0;
        for (const QVector<QPointF> &places : qAsConst(crosses)) {
            shared += places.size() > 1;
            for (const QPointF &place : places) // the letters may stand on different sides of a cross
                QVERIFY((place - places.first()).manhattanLength() < 10);
        }
        QCOMPARE(shared, paper == PrintConfig::A4 ? 5 : 2);
    }
}

void CPrintGraphicsTest::refusesWhatDoesNotFit()
{
    PrintConfig config = configOf(PrintConfig::A4);
    config.scale = 25;
    const SPrintPlan fitting = planOf(inputOf(mediumWall()), config);
    const auto port = CPortSheets(CWall(fitting, 0), SSheetArea::of(config)).sheets(1);
    QVERIFY(port);
    QCOMPARE(port.value().first().scale, QStringLiteral("1:25"));
    QCOMPARE(qRound(cabinetsOf(port.value().first()).first().width() * 100), 2000);

    config.scale = 100; // too small for labels
    const SPrintPlan small = planOf(inputOf(mediumWall()), config);
    const auto fitted = CPortSheets(CWall(small, 0), SSheetArea::of(config)).sheets(1);
    QVERIFY(fitted && cabinetsOf(fitted.value().first()).first().width() > 20);
    QCOMPARE(fitted.value().first().scale, QStringLiteral("to fit"));

    config.scale = 1000; // so are the ports
    const SPrintPlan tiny = planOf(inputOf(mediumWall()), config);
    const auto whole = COverviewSheets(CWall(tiny, 0), SSheetArea::of(config)).sheets(1, 2);
    QVERIFY(whole && whole.value().size() == 1 && faultOf(whole.value().first()).isEmpty());
    QCOMPARE(whole.value().first().scale, QStringLiteral("to fit"));

    config.scale = 2; // a cabinet is 250 mm wide
    const SPrintPlan huge = planOf(inputOf(mediumWall()), config);
    const auto refused = CPortSheets(CWall(huge, 0), SSheetArea::of(config)).sheets(1);
    QVERIFY(!refused);
    QVERIFY(refused.error().contains(QStringLiteral("Port 1 of Main stage")));
    const auto overview = COverviewSheets(CWall(huge, 0), SSheetArea::of(config)).sheets(1, 2);
    QVERIFY(!overview && overview.error().contains(QStringLiteral("1:2,")));
}

ORVO_TEST_MAIN(QGuiApplication, CPrintGraphicsTest)
#include "tst_print_graphics.moc"
