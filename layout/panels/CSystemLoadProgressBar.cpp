// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/CSystemLoadProgressBar.h"

#include "platform/widgets/CTheme.h"
#include "platform/widgets/ThemeColors.h"

#include <QPainter>

namespace {

constexpr QSize BarSize(340, 28);
constexpr qreal BarRadius = 3;

} // namespace

CSystemLoadProgressBar::CSystemLoadProgressBar(QWidget *parent)
    : QProgressBar(parent)
{
    setObjectName(QStringLiteral("SystemLoadProgressBar"));
    setFixedSize(BarSize);
    setRange(0, 100);
    setValue(0);
}

void CSystemLoadProgressBar::onNotifyProcessorPayloadChanged(int load)
{
    m_rawLoad = load;
    setValue(qMin(load, maximum()));
    update(); // the colour may change while the clamped value does not
}

void CSystemLoadProgressBar::setKnown(bool known)
{
    m_known = known;
    setFormat(known ? QStringLiteral("%p%") : QStringLiteral("\u2013"));
    update();
}

void CSystemLoadProgressBar::paintEvent(QPaintEvent *)
{
    const QColor empty(ThemeColors::Base);
    const QColor full(m_rawLoad > 100 ? ThemeColors::LoadOver : ThemeColors::LoadGood);
    QRectF filled(rect());
    filled.setWidth(m_known ? filled.width() * value() / (maximum() - minimum()) : 0);
    QRectF rest(rect());
    rest.setLeft(filled.right());

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(empty);
    painter.drawRoundedRect(rect(), BarRadius, BarRadius);
    painter.setBrush(full);
    painter.drawRoundedRect(filled, BarRadius, BarRadius);

    // The text covers both colours, which need different text colours.
    painter.setClipRect(rest);
    painter.setPen(CTheme::textOn(empty));
    painter.drawText(rect(), Qt::AlignCenter, text());
    painter.setClipRect(filled);
    painter.setPen(CTheme::textOn(full));
    painter.drawText(rect(), Qt::AlignCenter, text());
}
