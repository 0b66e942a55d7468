// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CLayoutExport.h"

#include "host/app/commands/CPngEncoder.h"
#include "host/library/CTypeLibrary.h"
#include "host/projects/CSafeFile.h"
#include "layout/api/records/LayoutData.h"
#include "layout/drawing/CLayoutPainter.h"
#include "layout/drawing/CLayoutPicture.h"
#include "layout/printing/figures/CCabinetTable.h"
#include "layout/printing/figures/SPrintPlan.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>

#include <utility>

namespace {

constexpr int UsualWidth = 1920;

/// The default width, and the height that keeps the drawing's proportions.
QSize usualSize(const LayoutData &data)
{
    const QRect drawn = CLayoutPicture::extent(data);
    const qint64 height = qRound64(double(UsualWidth) * drawn.height() / drawn.width());
    return {UsualWidth, int(qBound<qint64>(1, height, CLayoutExport::LargestPictureSide))};
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
    return CPngEncoder::encode(std::move(image));
}

/// The layout as an SVG.
QByteArray svgOf(const LayoutData &data, const QSize &size)
{
    QByteArray svg;
    QBuffer buffer(&svg);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setTitle(QStringLiteral("Orvo"));
    generator.setDescription(QString());
    generator.setSize(size);
    generator.setViewBox(QRect({0, 0}, size));
    QPainter painter(&generator);
    painter.fillRect(QRect({0, 0}, size), CLayoutPainter::surroundings());
    CLayoutPicture::paint(painter, data, QRectF({0, 0}, size));
    painter.end();
    return svg;
}

} // namespace

CLayoutExport::Kind CLayoutExport::kindOf(const QString &file)
{
    const QString suffix = QFileInfo(file).suffix().toLower();
    return suffix == QLatin1String("png")   ? Picture
           : suffix == QLatin1String("svg") ? Drawing
           : suffix == QLatin1String("csv") ? Table
                                            : Unknown;
}

CStatus CLayoutExport::write(const LayoutData &data, const QString &file, QSize size)
{
    const Kind kind = kindOf(file);
    if (kind == Table)
        return writeTable(data, {}, {}, file);
    return CSafeFile::withMemory(file, [&] {
        if (size.isEmpty())
            size = usualSize(data);
        const QByteArray content = kind == Drawing ? svgOf(data, size) : pngOf(data, size);
        if (content.isEmpty())
            return CStatus::failure(tr("there is not enough memory for a picture of %1x%2 pixels")
                                        .arg(size.width())
                                        .arg(size.height()));
        return CSafeFile::write(file, content, CSafeFile::DropPrevious);
    });
}

CStatus CLayoutExport::writeTable(const LayoutData &data, const QString &processor, const PrintConfig &print,
                                  const QString &file)
{
    SPrintInput input;
    input.library = CTypeLibrary::builtIn().nodes();
    SPrintedProcessor printed;
    printed.node.name = processor;
    printed.layout = data.layout;
    input.processors << printed;
    return writeTable(input, {print, {}, {}}, file);
}

CStatus CLayoutExport::writeTable(const SPrintInput &input, const SPrintJob &job, const QString &file)
{
    return CSafeFile::withMemory(file, [&] {
        return CSafeFile::write(file, CCabinetTable::toCsv(SPrintPlan::of(input, job)),
                                CSafeFile::DropPrevious);
    });
}
