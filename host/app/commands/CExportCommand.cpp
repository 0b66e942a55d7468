// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CExportCommand.h"

#include "host/app/commands/CCommandArguments.h"
#include "host/app/commands/SCommandOutcome.h"
#include "host/projects/CCabinetTable.h"
#include "host/projects/CProcessorProject.h"
#include "host/projects/CSafeFile.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CLayoutPicture.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QTextStream>

#include <algorithm>

namespace {

const QString sizeOption = QStringLiteral("--size");
constexpr int StandardPictureWidth = 1920;
constexpr int LargestPictureSide = 16384;
constexpr qint64 LargestPicture = 100000000; // pixels

LayoutData dataOf(const SProcessorProject &project)
{
    LayoutData data;
    data.processor = project.layout.processor;
    data.layout = project.layout;
    data.canvas = project.canvas;
    data.bounds = project.layout.boundingRect();
    return data;
}

/// The default width, and the height that keeps the drawing's proportions.
QSize standardSize(const LayoutData &data)
{
    const QRect drawn = CLayoutPicture::extent(data);
    const qint64 height = qRound64(double(StandardPictureWidth) * drawn.height() / drawn.width());
    return {StandardPictureWidth, int(qBound<qint64>(1, height, LargestPictureSide))};
}

/// The layout as a PNG; empty when there is not enough memory.
QByteArray pngOf(const LayoutData &data, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return {};
    image.fill(CLayoutPainter::surroundings());
    QPainter painter(&image);
    CLayoutPicture::paint(painter, data, QRectF(image.rect()));
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    QImageWriter writer(&buffer, "png");
    writer.setCompression(11); // fastest compression: more effort costs time and saves little
    return writer.write(image) ? png : QByteArray();
}

/// Why this export is not possible; empty if it is.
QString kindProblem(const QString &suffix, bool sized)
{
    if (suffix == QLatin1String("svg") || suffix == QLatin1String("pdf"))
        return CExportCommand::tr("export as %1 is not available in this version; use png or csv")
            .arg(suffix.toUpper());
    if (suffix != QLatin1String("png") && suffix != QLatin1String("csv"))
        return CExportCommand::tr("the name of the export must end in .png, .svg, .pdf or .csv");
    if (suffix == QLatin1String("csv") && sized)
        return CExportCommand::tr("only a picture has a size");
    return {};
}

} // namespace

SCommandOutcome CExportCommand::run(const QStringList &arguments, QTextStream &out)
{
    const auto parsed = CCommandArguments::parse(arguments, {sizeOption}, 2);
    if (!parsed)
        return SCommandOutcome::usage(parsed.error());
    const QString target = parsed.value().file(1);
    const QString suffix = QFileInfo(target).suffix().toLower();
    const bool sized = parsed.value().has(sizeOption);
    QString error = kindProblem(suffix, sized);
    QSize size = sized ? parsed.value().size(sizeOption, LargestPictureSide, error) : QSize();
    if (qint64(size.width()) * size.height() > LargestPicture)
        error = tr("a picture has at most %1 pixels").arg(LargestPicture);
    if (!error.isEmpty())
        return SCommandOutcome::usage(error);

    const CResult<SProcessorProject> project = CProcessorProject::read(parsed.value().file(0));
    if (!project)
        return SCommandOutcome::badInput(project.error());
    const LayoutData data = dataOf(project.value());
    if (!sized)
        size = standardSize(data);
    const QByteArray content =
        suffix == QLatin1String("csv") ? CCabinetTable::toCsv(data.layout) : pngOf(data, size);
    if (content.isEmpty())
        return SCommandOutcome::badInput(tr("there is not enough memory for a picture of %1x%2 pixels")
                                             .arg(size.width())
                                             .arg(size.height()));
    const CStatus written = CSafeFile::write(target, content, CSafeFile::DropPrevious);
    if (!written)
        return SCommandOutcome::badInput(written.error());
    out << tr("%1: cabinets: %2\n").arg(target, QString::number(data.layout.cabinetCount()));
    return {};
}
