// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CCanvasFill.h"

#include <QFileInfo>
#include <QImageReader>
#include <QLoggingCategory>
#include <QPainter>

namespace {

Q_LOGGING_CATEGORY(drawingLog, "orvo.layout.drawing")

/// The format in which the painter draws fastest.
QImage drawable(const QImage &image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

} // namespace

CResult<QImage> CCanvasFill::load(const QString &file)
{
    const auto failure = [&file](const QString &why) {
        return CResult<QImage>::failure(tr("\"%1\" cannot be read: %2.").arg(file, why));
    };
    const QFileInfo info(file);
    if (!info.exists())
        return failure(tr("there is no such file"));
    if (!info.isFile())
        return failure(tr("it is not a regular file"));
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    if (format != "png" && format != "jpeg")
        return failure(tr("it is no PNG or JPEG image"));
    const QSize size = reader.size();
    if (size.width() > LargestSide || size.height() > LargestSide ||
        qint64(size.width()) * size.height() > LargestArea)
        return failure(
            tr("it has %1×%2 pixels; no side may be longer than %3, and the area not larger than %4")
                .arg(size.width())
                .arg(size.height())
                .arg(LargestSide)
                .arg(LargestArea));
    const QImage image = reader.read();
    return image.isNull() ? failure(tr("the image is damaged")) : drawable(image);
}

void CCanvasFill::set(const SBackgroundInfo &info)
{
    m_info = info;
    if (!info.enabled || info.file.isEmpty()) {
        m_image = QImage();
        m_problem.clear();
        m_file.clear();
        return;
    }
    const QDateTime time = QFileInfo(info.file).lastModified();
    if (info.file == m_file && time == m_fileTime)
        return;
    m_file = info.file;
    m_fileTime = time;
    const CResult<QImage> image = load(info.file);
    m_image = image ? image.value() : QImage();
    m_problem = image ? QString() : image.error();
    if (!image)
        qCWarning(drawingLog, "The canvas has no fill. %s", qUtf8Printable(image.error()));
}

void CCanvasFill::paint(QPainter &painter, const QRectF &canvas) const
{
    if (m_image.isNull())
        return;
    QSizeF size = m_image.size();
    if (m_info.fit == SBackgroundInfo::ZoomToFit)
        size.scale(canvas.size(), Qt::KeepAspectRatio);
    size *= m_info.scale / 100.0;
    const QRectF shown = QRectF(canvas.topLeft(), size) & canvas;
    if (shown.isEmpty())
        return;
    const QSizeF source(shown.width() / size.width() * m_image.width(),
                        shown.height() / size.height() * m_image.height());
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(painter.opacity() * m_info.opacity / 100.0);
    painter.drawImage(shown, m_image, QRectF(QPointF(0, 0), source));
    painter.restore();
}
