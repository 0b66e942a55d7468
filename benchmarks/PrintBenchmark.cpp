// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Figures.h"
#include "benchmarks/ShownView.h"
#include "host/app/commands/CSheetExport.h"
#include "host/projects/CWallBuilder.h"
#include "layout/printing/dialog/CSheetPreview.h"
#include "layout/printing/graphics/Hatching.h"
#include "layout/printing/lists/CSheetSet.h"
#include "layout/printing/output/SheetFiles.h"
#include "layout/printing/sheets/CSheetFont.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QPdfWriter>

#include <tuple>

namespace {

constexpr int PrintRepetitions = 3;
constexpr int Processors = 2;
constexpr double Units = CSheetFont::UnitsPerMillimetre;

/// 5,600 cabinets, half of them on each processor.
SPrintInput stadium()
{
    QVector<SProcessorProject> projects;
    for (int i = 0; i < Processors; ++i) {
        SWallPlan plan;
        plan.name = QStringLiteral("Stand %1").arg(i + 1);
        plan.cabinet = {96, 96};
        plan.columns = 70;
        plan.rows = 40;
        plan.ports = 70;
        plan.pattern = 4;
        projects << SProcessorProject::ofPlan(plan, CWallBuilder::build(plan).value());
    }
    return CSheetExport::inputOf(projects);
}

PrintConfig settings()
{
    PrintConfig config;
    config.date = QDate(2026, 5, 4);
    return config;
}

QPainterPath pathOf(const QPainterPath &path)
{
    return QTransform::fromScale(Units, Units).map(path);
}

/// The areas, lines and texts of a sheet, ready to be drawn.
struct SPlainSheet
{
    QVector<QPair<QPainterPath, QColor>> areas;
    QVector<QPair<QPainterPath, QPen>> lines;
    QVector<std::tuple<QPointF, QFont, QString>> texts;

    void add(const SSheetFill &fill)
    {
        if (fill.color.isValid())
            areas << qMakePair(pathOf(fill.path), fill.color);
        if (fill.hatching > 0) {
            const Hatching::SStrokes strokes = Hatching::strokes(fill.path, fill.hatching);
            lines << qMakePair(pathOf(strokes.path), QPen(QColor(Hatching::Color), strokes.width * Units));
        }
    }
    void add(const SSheetStroke &stroke)
    {
        lines << qMakePair(pathOf(stroke.path), QPen(stroke.color, stroke.width * Units));
    }
    void add(const SSheetText &text)
    {
        texts << std::make_tuple(text.box.bottomLeft() * Units, CSheetFont::font(text.points, text.bold),
                                 text.text);
    }
    void draw(QPainter &painter) const
    {
        for (const auto &area : areas)
            painter.fillPath(area.first, area.second);
        for (const auto &line : lines)
            painter.strokePath(line.first, line.second);
        for (const auto &[place, font, text] : texts) {
            painter.setFont(font);
            painter.drawText(place, text);
        }
    }
};

SPlainSheet plainOf(const SSheet &sheet)
{
    SPlainSheet plain;
    for (const SSheetMark &mark : sheet.marks)
        std::visit([&plain](const auto &kind) { plain.add(kind); }, mark);
    return plain;
}

void drawPlainly(const QVector<SPlainSheet> &sheets)
{
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(int(Units * 25.4));
    QPainter painter(&writer);
    for (int i = 0; i < sheets.size(); ++i) {
        if (i > 0)
            writer.newPage();
        sheets.at(i).draw(painter);
    }
}

/// Turning to the next sheet by key, once those beside the shown one are drawn ahead, until it is painted.
double turnPages(CSheetPreview &preview, int sheets)
{
    double slowest = 0;
    while (preview.page() + 1 < sheets) {
        const int next = preview.page() + 1;
        while (!preview.isDrawn(next))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        SWork turn;
        turn.run = [&preview] {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
            QCoreApplication::sendEvent(&preview, &key);
            preview.repaint();
        };
        slowest = qMax(slowest, Figures::milliseconds(turn));
    }
    return slowest;
}

/// The slowest page, and the sheet that takes longest plainly painted in the same size.
void measurePages(const SPrintInput &input)
{
    PrintConfig config = settings();
    config.paper = PrintConfig::A3;
    config.sheets = PrintConfig::Overview | PrintConfig::PortSheets;
    const QVector<SSheet> sheets = CSheetSet::of(SPrintPlan::of(input, {config, {}, {}})).value();
    CSheetPreview preview;
    preview.show(sheets);
    ShownView::show(preview);
    const double turned = turnPages(preview, sheets.size());
    double painted = 0;
    for (const SSheet &sheet : sheets) {
        const SPlainSheet plain = plainOf(sheet);
        QImage picture(ShownView::ViewSize, QImage::Format_RGB32);
        SWork work;
        work.run = [&] {
            QPainter painter(&picture);
            painter.setRenderHint(QPainter::Antialiasing);
            const double scale = picture.height() / (sheet.size.height() * Units);
            painter.scale(scale, scale);
            plain.draw(painter);
        };
        painted = qMax(painted, Figures::milliseconds(work));
    }
    const int cabinets = SPrintPlan::of(input, {config, {}, {}}).totals.cabinets;
    Figures::print(
        {"B15 next sheet in the preview", cabinets, turned, "plain painter on a picture", painted});
}

} // namespace

void Benchmarks::measurePrint()
{
    const SPrintInput input = stadium();
    const PrintConfig config = settings();
    QVector<SPlainSheet> plain;
    const QVector<SSheet> sheets = CSheetSet::of(SPrintPlan::of(input, {config, {}, {}})).value();
    for (const SSheet &sheet : sheets)
        plain << plainOf(sheet);
    SWork work;
    work.run = [&] {
        const auto made = CSheetSet::of(SPrintPlan::of(input, {config, {}, {}}));
        if (!made || SheetFiles::pdf(made.value(), QString(), config.date).isEmpty())
            qFatal("no sheets");
    };
    SWork reference;
    reference.run = [&plain] { drawPlainly(plain); };
    const SMedians medians = Figures::compare(PrintRepetitions, work, reference);
    const int cabinets = SPrintPlan::of(input, {config, {}, {}}).totals.cabinets;
    Figures::print({"B15 PDF of all sheets of a wall", cabinets, medians.work, "plain painter on a PDF",
                    medians.reference});
    measurePages(input);
}
