// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/sheets/SSheetArea.h"

#include "layout/printing/sheets/SheetNumbers.h"

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
    constexpr double Rounding = 0.5; // millimetres; inches are not whole
    return frame.width() > TitleBlockWidth - Rounding && content.height() > LeastContent - Rounding;
}

QSizeF SSheetArea::least(const PrintConfig &config)
{
    const double first = config.binding == PrintConfig::NoBinding ? config.margin : config.bindingMargin;
    const double left = config.binding == PrintConfig::BindLeft ? first : config.margin;
    const double top = config.binding == PrintConfig::BindTop ? first : config.margin;
    return {left + TitleBlockWidth + config.margin,
            top + Padding + LeastContent + 1 + 2 * StripHeight + config.margin};
}

QString SSheetArea::nameOf(const PrintConfig &config)
{
    static const char *const names[] = {"A4", "A3", "A2", "A1", "A0", "Letter", "Tabloid"};
    return config.paper == PrintConfig::CustomPaper ? SheetNumbers::sides(config.customPaper)
                                                    : QString::fromLatin1(names[config.paper]);
}
