// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SBackgroundInfo.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QImage>

class QPainter;
class QRectF;

/// The fill image behind the cabinets of a canvas: reads its file and draws it. GUI thread.
class CCanvasFill final
{
    Q_DECLARE_TR_FUNCTIONS(CCanvasFill)

public:
    static constexpr int LargestSide = 16384;                 ///< pixels
    static constexpr qint64 LargestArea = 64LL * 1024 * 1024; ///< pixels

    /// Reads the image of a PNG or JPEG file. Fails, with a text that names the file, if the file is missing,
    /// is not such an image, is damaged, or exceeds the limits.
    static CResult<QImage> load(const QString &file);

    /// Sets the background. The file is read only if it is another one or has changed. An image that cannot
    /// be read is not drawn, and is reported in the log.
    void set(const SBackgroundInfo &info);
    const SBackgroundInfo &info() const { return m_info; }
    /// Why the image of the background is not drawn; empty if it is.
    const QString &problem() const { return m_problem; }

    /// Draws the image in the upper left corner of @p canvas, clipped to it: in its natural size (one image
    /// pixel is one unit of the painter's coordinates) or as large as fits the canvas, then scaled by the
    /// percentage of the background.
    void paint(QPainter &painter, const QRectF &canvas) const;

private:
    SBackgroundInfo m_info;
    QImage m_image; // null: nothing to draw
    QString m_problem;
    QString m_file; // the file that was read last, or could not be read
    QDateTime m_fileTime;
};
