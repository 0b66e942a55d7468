// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CRowStamps.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int MostStamps = 8;     // rows of two heights, selected or not, on both sides of a gap
constexpr int ShortestRow = 4;    // cabinets
constexpr int WidestStamp = 4096; // device pixels
constexpr int HighestStamp = 64;

/// The pixel at which Qt's raster engine begins an area whose edge is at @p edge.
int pixelAt(qreal edge)
{
    constexpr qreal BeforeMiddle = 0.5 - 1.0 / 64;
    return int(std::floor(edge + BeforeMiddle));
}

QRect pixelsOf(const QRectF &area)
{
    const QPoint corner(pixelAt(area.left()), pixelAt(area.top()));
    return QRect(corner, QSize(pixelAt(area.right()) - corner.x(), pixelAt(area.bottom()) - corner.y()));
}

} // namespace

CRowStamps::CRowStamps(QPainter &painter, qreal scale)
    : m_painter(painter)
    , m_canvas(painter.worldTransform())
    , m_scale(scale)
    , m_copies(painter.paintEngine()->type() == QPaintEngine::Raster &&
               m_canvas.type() <= QTransform::TxScale && painter.device()->devicePixelRatioF() == 1 &&
               !painter.testRenderHint(QPainter::Antialiasing))
{
}

bool CRowStamps::SStamp::fits(const QVector<QRectF> &other) const
{
    return std::equal(
        row.begin(), row.end(), other.begin(), other.end(),
        [](const QRectF &a, const QRectF &b) { return a.left() == b.left() && a.width() == b.width(); });
}

void CRowStamps::paint(const QVector<QRectF> &row, const SCabinetColors &colors)
{
    if (row.first().left() > row.last().left()) {
        paint(QVector<QRectF>(row.rbegin(), row.rend()), colors);
        return;
    }
    const QRect onScreen = pixelsOf(m_canvas.mapRect(row.first() | row.last()));
    if (!m_copies || row.size() < ShortestRow || !colors.fill.isValid() || onScreen.isEmpty() ||
        onScreen.width() > WidestStamp || onScreen.height() > HighestStamp) {
        CLayoutPainter::paintRowFromAfar(m_painter, row, colors, m_scale);
        return;
    }
    SStamp &stamp = stampFor(row, colors, onScreen.size());
    if (stamp.row.isEmpty()) { // perhaps there is no other like it
        stamp = {row, colors, onScreen.size(), QImage()};
        CLayoutPainter::paintRowFromAfar(m_painter, row, colors, m_scale);
        return;
    }
    if (stamp.picture.isNull())
        stamp.picture = pictureOf(row, colors, onScreen);
    m_painter.setWorldTransform(QTransform());
    m_painter.drawImage(onScreen.topLeft(), stamp.picture);
    m_painter.setWorldTransform(m_canvas);
}

/// The stamp of a row that looks the same, or one to be filled in.
CRowStamps::SStamp &CRowStamps::stampFor(const QVector<QRectF> &row, const SCabinetColors &colors,
                                         const QSize &size)
{
    const auto same = std::find_if(m_stamps.begin(), m_stamps.end(), [&](const SStamp &stamp) {
        return stamp.size == size && stamp.colors == colors && stamp.fits(row);
    });
    if (same != m_stamps.end())
        return *same;
    if (m_stamps.size() < MostStamps) {
        m_stamps.append(SStamp());
        return m_stamps.last();
    }
    SStamp &oldest = m_stamps[m_next];
    m_next = (m_next + 1) % MostStamps;
    oldest = SStamp();
    return oldest;
}

QImage CRowStamps::pictureOf(const QVector<QRectF> &row, const SCabinetColors &colors,
                             const QRect &onScreen) const
{
    // Moved by whole pixels, so that each edge falls on the same pixel as in the frame.
    QImage picture(onScreen.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setWorldTransform(m_canvas * QTransform::fromTranslate(-onScreen.x(), -onScreen.y()));
    CLayoutPainter::paintRowFromAfar(painter, row, colors, m_scale);
    return picture;
}
