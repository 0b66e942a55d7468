// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/SSheetArea.h"

#include <QPageSize>

namespace {

constexpr double NarrowestViewBox = 66;
constexpr double LeastContent = 60; ///< millimetres, either way

QSizeF paperSize(const PrintConfig &config)
{
    static constexpr QPageSize::PageSizeId ids[] = {QPageSize::A4,     QPageSize::A3, QPageSize::A2,
                                                    QPageSize::A1,     QPageSize::A0, QPageSize::Letter,
                                                    QPageSize::Tabloid};
    if (config.paper == PrintConfig::CustomPaper)
        return config.customPaper;
    const QSizeF upright = QPageSize::size(ids[config.paper], QPageSize::Millimeter);
    return config.landscape ? upright.transposed() : upright;
}

} // namespace

SSheetArea SSheetArea::of(const PrintConfig &config)
{
    SSheetArea area;
    area.size = paperSize(config);
    const double left = config.binding == PrintConfig::BindLeft ? config.bindingMargin : config.margin;
    const double top = config.binding == PrintConfig::BindTop ? config.bindingMargin : config.margin;
    area.frame = QRectF(QPointF(left, top),
                        QPointF(area.size.width() - config.margin, area.size.height() - config.margin));
    area.titleBlock = {area.frame.right() - TitleBlockWidth, area.frame.bottom() - StripHeight,
                       TitleBlockWidth, StripHeight};
    const bool beside = area.frame.width() - TitleBlockWidth >= NarrowestViewBox;
    area.viewBox = beside ? QRectF(area.frame.left(), area.titleBlock.top(),
                                   area.frame.width() - TitleBlockWidth, StripHeight)
                          : QRectF(area.frame.left(), area.titleBlock.top() - StripHeight, area.frame.width(),
                                   StripHeight);
    area.content = QRectF(area.frame.topLeft(), QPointF(area.frame.right(), area.viewBox.top()))
                       .adjusted(Padding, Padding, -Padding, -1);
    return area;
}

bool SSheetArea::isUsable() const
{
    return titleBlock.left() >= frame.left() - 0.5 && content.width() >= LeastContent &&
           content.height() >= LeastContent;
}
