// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/graphics/COverviewSheets.h"
#include "layout/printing/graphics/CPortSheets.h"
#include "layout/printing/graphics/CTileSheets.h"
#include "tests/harness/CTestBase.h"
#include "tests/printing/SheetChecks.h"
#include "tests/printing/SheetTexts.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

using namespace GraphicsWalls;
using namespace SheetChecks;

/// Drawings whose scale is given.
class CPrintScaleTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void tilesAtTrueScale();
    void refusesWhatDoesNotFit();
    void tilesTheSamePartsFromBehind();
};

void CPrintScaleTest::tilesAtTrueScale()
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
            for (const SSheetText &text : SheetTexts::of(sheet)) {
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

void CPrintScaleTest::refusesWhatDoesNotFit()
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
    QVERIFY(refused.error().startsWith(QStringLiteral("At 1:2, cabinet r1 c1 of Main stage(")) &&
            refused.error().contains(QStringLiteral("port 1, has no room on a sheet of A4.")));
    const auto overview = COverviewSheets(CWall(huge, 0), SSheetArea::of(config)).sheets(1, 2);
    QVERIFY(!overview && overview.error().contains(QStringLiteral("1:2, cabinet r1 c1 ")));
    QVERIFY(overview.error().contains(QStringLiteral("a sheet of A4.")));
}

void CPrintScaleTest::tilesTheSamePartsFromBehind()
{
    PrintConfig config = configOf(PrintConfig::A4);
    config.scale = 25;
    config.views = PrintConfig::BothViews;
    const SPrintPlan plan = planOf(inputOf(mediumWall()), config);
    const auto made = COverviewSheets(CWall(plan, 0), SSheetArea::of(config)).sheets(1, 2);
    QVERIFY(made);
    const QVector<SSheet> tiles = made.value();
    QCOMPARE(tiles.size(), 8);
    const auto sorted = [](QStringList texts) {
        texts.sort();
        return texts;
    };
    // The letters at the corners change sides with the wall.
    const auto leftmost = [](const SSheet &sheet) {
        QPair<double, QString> least(1e9, {});
        for (const SSheetText &text : SheetTexts::of(sheet)) {
            if (text.mark == EMark::Caption && text.box.top() < sheet.frame.center().y())
                least = std::min(least, qMakePair(text.box.left(), text.text));
        }
        return least.second;
    };
    for (int i = 0; i < tiles.size(); i += 2) {
        QCOMPARE(tiles[i].view, SSheet::Front);
        QCOMPARE(tiles[i + 1].view, SSheet::Back);
        for (EMark mark : {EMark::PortName, EMark::Caption})
            QCOMPARE(sorted(textsOf(tiles[i + 1], mark)), sorted(textsOf(tiles[i], mark)));
        QVERIFY(leftmost(tiles[i]) != leftmost(tiles[i + 1]));
    }
}

ORVO_TEST_MAIN(QGuiApplication, CPrintScaleTest)
#include "tst_print_scale.moc"
