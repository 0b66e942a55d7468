// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/color/CColorSVPanel.h"

#include "platform/widgets/CTheme.h"
#include "platform/widgets/ThemeColors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr int MarkerRadius = 5;
constexpr int WideStep = 16;
} // namespace

CColorSVPanel::CColorSVPanel(QWidget *parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
}

void CColorSVPanel::setColor(const CHsvColor &color)
{
    m_color = color;
    update();
}

QPoint CColorSVPanel::marker() const
{
    constexpr double most = CHsvColor::MaximumValue;
    return {qRound(m_color.saturation() / most * (width() - 1)),
            qRound((1 - m_color.value() / most) * (height() - 1))};
}

void CColorSVPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QLinearGradient saturation(0, 0, width(), 0);
    saturation.setStops({{0, QColor(255, 255, 255, 255)}, {1, QColor(255, 255, 255, 0)}});
    QLinearGradient value(0, 0, 0, height());
    value.setStops({{0, QColor(0, 0, 0, 0)}, {1, QColor(0, 0, 0, 255)}});
    painter.fillRect(rect(), QColor::fromHsv(m_color.hue(), 255, 255));
    painter.fillRect(rect(), saturation);
    painter.fillRect(rect(), value);
    painter.setPen(hasFocus() ? QColor(ThemeColors::Focus) : QColor(ThemeColors::Outline));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(CTheme::textOn(m_color.rgb()), 2));
    painter.setBrush(m_color.rgb());
    painter.drawEllipse(QPointF(marker()) + QPointF(0.5, 0.5), MarkerRadius, MarkerRadius);
}

void CColorSVPanel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        pickAt(event->pos());
}

void CColorSVPanel::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        pickAt(event->pos());
}

void CColorSVPanel::keyPressEvent(QKeyEvent *event)
{
    const int step = event->modifiers() & Qt::ShiftModifier ? WideStep : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return pick(m_color.saturation() - step, m_color.value());
    case Qt::Key_Right:
        return pick(m_color.saturation() + step, m_color.value());
    case Qt::Key_Down:
        return pick(m_color.saturation(), m_color.value() - step);
    case Qt::Key_Up:
        return pick(m_color.saturation(), m_color.value() + step);
    default:
        QWidget::keyPressEvent(event);
    }
}

void CColorSVPanel::pickAt(const QPoint &position)
{
    constexpr double most = CHsvColor::MaximumValue;
    pick(qRound(most * position.x() / (width() - 1)), qRound(most - most * position.y() / (height() - 1)));
}

void CColorSVPanel::pick(int saturation, int value)
{
    CHsvColor picked = m_color;
    picked.setHsv(m_color.hue(), saturation, value);
    if (picked.saturation() == m_color.saturation() && picked.value() == m_color.value())
        return;
    setColor(picked);
    Q_EMIT notifySaturationValueChanged(picked.saturation(), picked.value());
}
