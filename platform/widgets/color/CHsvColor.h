// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QColor>

/// An opaque colour that can be edited by hue, saturation and value as well as by red, green and blue. Unlike
/// QColor it remembers the hue of grey and the saturation of black, so that a control that passes through
/// grey or black returns to the previous colour.
class CHsvColor final
{
public:
    static constexpr int MaximumHue = 359;   ///< degrees
    static constexpr int MaximumValue = 255; ///< of saturation, value, red, green and blue

    void setRgb(const QColor &rgb);
    void setHsv(int hue, int saturation, int value);

    QColor rgb() const { return m_rgb; } ///< exactly as set, if it was set as RGB
    int hue() const { return m_hue; }
    int saturation() const { return m_saturation; }
    int value() const { return m_value; }

private:
    QColor m_rgb{Qt::black};
    int m_hue = 0;
    int m_saturation = 0;
    int m_value = 0;
};
