// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/WarningSign.h"

#include "platform/widgets/ThemeColors.h"

#include <QColor>
#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPointF>
#include <QSvgRenderer>

#include <memory>

namespace {

constexpr qreal PictureSide = 32; // of the theme's picture
constexpr qreal TriangleTop = 3;  // in it
constexpr qreal Scale = 13 / 29.0;

/// The theme's picture, with its triangle and the triangle's rim in other colours.
QSvgRenderer &pictureOf(const QColor &color, const QColor &rim)
{
    static QHash<QPair<QRgb, QRgb>, std::shared_ptr<QSvgRenderer>> pictures;
    std::shared_ptr<QSvgRenderer> &picture = pictures[{color.rgb(), rim.rgb()}];
    if (picture && picture->isValid())
        return *picture;
    picture = std::make_shared<QSvgRenderer>();
    QFile file(QStringLiteral(":/Theme/warning.svg"));
    if (!file.open(QIODevice::ReadOnly))
        return *picture;
    QByteArray svg = file.readAll();
    svg.replace(QColor(ThemeColors::Warning).name().toLatin1(), color.name().toLatin1());
    svg.replace(QColor(ThemeColors::Frame).name().toLatin1(), rim.name().toLatin1());
    picture->load(svg);
    return *picture;
}

} // namespace

void WarningSign::paint(QPainter &painter, const QPointF &middle, const QColor &color, const QColor &rim)
{
    const QPointF corner = middle + QPointF(-PictureSide / 2 * Scale, -6 - TriangleTop * Scale);
    pictureOf(color, rim).render(&painter, QRectF(corner, QSizeF(PictureSide, PictureSide) * Scale));
}
