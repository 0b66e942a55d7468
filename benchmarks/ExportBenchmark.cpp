// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/CBareSide.h"
#include "benchmarks/CPainterReference.h"
#include "benchmarks/ChildProcess.h"
#include "benchmarks/Figures.h"
#include "benchmarks/Wall.h"
#include "host/projects/CWallBuilder.h"

#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QJsonDocument>
#include <QPainter>
#include <QTemporaryDir>

#include <malloc.h>

namespace {

constexpr int ExportRepetitions = 5;
constexpr QSize PictureSize(1920, 1080);

void makeProject(const QString &file)
{
    const SWallPlan plan = CWallBuilder::plan(CWallBuilder::Full);
    const auto number = [](int value) { return QString::number(value); };
    ChildProcess::wholeRun(ChildProcess::programOfBuild(QStringLiteral("orvo")),
                           {QStringLiteral("new"), file, QStringLiteral("--cabinet"),
                            number(plan.cabinet.width()) + QLatin1Char('x') + number(plan.cabinet.height()),
                            QStringLiteral("--columns"), number(plan.columns), QStringLiteral("--rows"),
                            number(plan.rows), QStringLiteral("--ports"), number(plan.ports)});
}

std::function<double()> exportOf(const QString &project, const QString &picture)
{
    const QString size =
        QString::number(PictureSize.width()) + QLatin1Char('x') + QString::number(PictureSize.height());
    return [=] {
        return ChildProcess::wholeRun(
            ChildProcess::programOfBuild(QStringLiteral("orvo")),
            {QStringLiteral("export"), project, picture, QStringLiteral("--size"), size});
    };
}

/// The least that an export does: parse the file, draw the same shapes, write the picture.
void parseAndPaint(const QString &project, const CPainterReference &drawing, const QString &picture)
{
    QFile file(project);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(project));
    file.readLine(); // the header
    if (QJsonDocument::fromJson(file.readAll()).isNull())
        qFatal("no JSON in %s", qPrintable(project));
    QImage image(PictureSize, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    drawing.draw(painter, PictureSize);
    painter.end();
    QImageWriter writer(picture, "png");
    writer.setCompression(1);
    if (!writer.write(image))
        qFatal("cannot write %s", qPrintable(picture));
}

std::function<double()> bareBuildOf(const CabinetLayout &layout)
{
    return [&layout] {
        CBareSide side(CBareScene::OpenPorts);
        malloc_trim(0);
        SWork work;
        work.run = [&] { side.load(layout); };
        return Figures::milliseconds(work);
    };
}

} // namespace

void Benchmarks::measureExport()
{
    const QTemporaryDir folder;
    const QString project = folder.filePath(QStringLiteral("full.sprj"));
    const QString picture = folder.filePath(QStringLiteral("full.png"));
    makeProject(project);
    const CabinetLayout layout = Wall::data(Wall::FullPorts).layout;
    const CPainterReference drawing(layout);
    SWork reference;
    reference.run = [&] { parseAndPaint(project, drawing, picture); };

    const std::function<double()> subject = exportOf(project, picture);
    SMedians medians =
        Figures::compare(ExportRepetitions, subject, [&] { return Figures::milliseconds(reference); });
    Figures::print({"B10 export to a picture, whole process", layout.cabinetCount(), medians.work,
                    "JSON parse and painter", medians.reference});
    medians = Figures::compare(ExportRepetitions, subject, bareBuildOf(layout));
    Figures::print({"B10 export to a picture, whole process, beside a scene", layout.cabinetCount(),
                    medians.work, "bare scene", medians.reference});
}
