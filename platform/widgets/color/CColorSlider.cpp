// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/color/CColorSlider.h"

#include "platform/widgets/ThemeColors.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionSlider>

namespace {
constexpr int StripHeight = 8;
constexpr qreal KnobRadius = 6;
} // namespace

CColorSlider::CColorSlider(QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
{
    setLayoutDirection(Qt::LeftToRight); // as the strip is drawn
}

void CColorSlider::setStops(const QGradientStops &stops)
{
    m_stops = stops;
    update();
}

QGradientStops CColorSlider::rainbow()
{
    QGradientStops stops;
    for (int hue = 0; hue <= 360; hue += 60)
        stops << QGradientStop(hue / 360.0, QColor::fromHsv(hue % 360, 255, 255));
    return stops;
}

QRect CColorSlider::handle() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

void CColorSlider::paintEvent(QPaintEvent *)
{
    const qreal margin = handle().width() / 2.0;
    const qreal middle = height() / 2.0;
    const QRectF strip(margin, middle - StripHeight / 2.0, width() - 2 * margin, StripHeight);
    QLinearGradient gradient(strip.topLeft(), strip.topRight());
    gradient.setStops(m_stops);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(ThemeColors::Outline));
    painter.setBrush(gradient);
    painter.drawRoundedRect(strip, StripHeight / 2.0, StripHeight / 2.0);

    painter.setPen(QPen(QColor(hasFocus() ? ThemeColors::Focus : ThemeColors::Border), 2));
    painter.setBrush(QColor(ThemeColors::Text));
    painter.drawEllipse(QPointF(handle().x() + margin, middle), KnobRadius, KnobRadius);
}

void CColorSlider::mousePressEvent(QMouseEvent *event)
{
    // First moves the knob to the pointer; then it is dragged as usual.
    const QRect knob = handle();
    if (event->button() == Qt::LeftButton && !knob.contains(event->pos()))
        setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), event->x() - knob.width() / 2,
                                                 width() - knob.width()));
    QSlider::mousePressEvent(event);
}
