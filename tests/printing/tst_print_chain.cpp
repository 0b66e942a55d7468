// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/harness/CTestBase.h"
#include "tests/printing/SheetChecks.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

using namespace GraphicsWalls;
using namespace SheetChecks;

/// How the chain of a port is drawn, and the cables that lead to it.
class CPrintChainTest final : public CTestBase
{
    Q_OBJECT

private Q_SLOTS:
    void tellsWhereTheChainGoesOn();
    void keepsStubsInTheirCabinets_data();
    void keepsStubsInTheirCabinets();
    void keepsFeedAndLoopApart();
};

void CPrintChainTest::tellsWhereTheChainGoesOn()
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
    QCOMPARE(dashed, 3); // two jumps, and their sign
}

void CPrintChainTest::keepsStubsInTheirCabinets_data()
{
    QTest::addColumn<QSize>("cabinets");
    QTest::addColumn<int>("paper");
    for (const QSize &cabinets : {QSize(8, 2), QSize(8, 5), QSize(9, 3), QSize(12, 2), QSize(12, 4)}) {
        for (int paper : {PrintConfig::A4, PrintConfig::A3})
            QTest::addRow("%d x %d, paper %d", cabinets.width(), cabinets.height(), paper)
                << cabinets << paper;
    }
}

/// All rows from left to right: each ends with a hop too long to be drawn.
void CPrintChainTest::keepsStubsInTheirCabinets()
{
    QFETCH(QSize, cabinets);
    QFETCH(int, paper);
    const int columns = cabinets.width();
    const int rows = cabinets.height();
    SPrintInput input = inputOf(onePort(columns, rows));
    for (auto &cabinet : input.processors[0].layout.ports[0].groups[0].cabinets)
        cabinet.rank = cabinet.rect.y() / 128 * columns + cabinet.rect.x() / 128;
    const SSheet sheet = drawings(planOf(input, configOf(PrintConfig::Paper(paper)))).at(1);
    QVERIFY2(faultOf(sheet).isEmpty(), qPrintable(faultOf(sheet)));
    const QString tags = textsOf(sheet, EMark::Tag).join(QLatin1Char(' '));
    for (int row = 1; row < rows; ++row) {
        const QString to = QStringLiteral("to %1, r%2 c1, ").arg(row * columns + 1).arg(row + 1);
        QVERIFY2(tags.contains(to), qPrintable(to + QStringLiteral("is not in ") + tags));
        QVERIFY2(tags.contains(QStringLiteral("from %1").arg(row * columns)), qPrintable(tags));
    }
    // All hops that are drawn are level, so no arrow head leaves its row.
    const QVector<QRectF> borders = cabinetsOf(sheet);
    const auto isInARow = [&](const QRectF &head) {
        return std::any_of(borders.begin(), borders.end(), [&](const QRectF &border) {
            return border.top() < head.top() && head.bottom() < border.bottom();
        });
    };
    int heads = 0;
    for (const SSheetMark &mark : sheet.marks) {
        const auto *fill = std::get_if<SSheetFill>(&mark);
        if (!fill || fill->path.fillRule() != Qt::WindingFill) // what heads share would be white
            continue;
        for (const QPolygonF &head : fill->path.toSubpathPolygons()) {
            ++heads;
            QVERIFY(isInARow(head.boundingRect()));
        }
    }
    QCOMPARE(heads, rows * (columns - 1) + 2 * (rows - 1));
}

void CPrintChainTest::keepsFeedAndLoopApart()
{
    const SSheet sheet = drawings(planOf(inputOf(onePort(1, 1)), configOf(PrintConfig::A4))).at(1);
    const QRectF cabinet = cabinetsOf(sheet).first();
    QVector<double> levels; // at which the cables end in the cabinet
    for (const SSheetMark &mark : sheet.marks) {
        const auto *stroke = std::get_if<SSheetStroke>(&mark);
        const bool cable = stroke && (qFuzzyCompare(stroke->width, 1.4) || stroke->dashes.size() == 2);
        if (cable && !cabinet.contains(stroke->path.elementAt(0)) &&
            cabinet.contains(stroke->path.currentPosition()))
            levels << stroke->path.currentPosition().y();
    }
    QCOMPARE(levels.size(), 2);
    QVERIFY(std::abs(levels[0] - levels[1]) > 2.7); // also the arrow head and the loop
}

ORVO_TEST_MAIN(QGuiApplication, CPrintChainTest)
#include "tst_print_chain.moc"
