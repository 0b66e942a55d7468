// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/color/CHsvColor.h"

void CHsvColor::setRgb(const QColor &rgb)
{
    m_rgb = QColor(rgb.rgb());
    m_value = m_rgb.value();
    if (m_value > 0)
        m_saturation = m_rgb.hsvSaturation();
    if (m_rgb.hsvHue() >= 0)
        m_hue = m_rgb.hsvHue();
}

void CHsvColor::setHsv(int hue, int saturation, int value)
{
    m_hue = qBound(0, hue, MaximumHue);
    m_saturation = qBound(0, saturation, MaximumValue);
    m_value = qBound(0, value, MaximumValue);
    m_rgb = QColor(QColor::fromHsv(m_hue, m_saturation, m_value).rgb());
}
