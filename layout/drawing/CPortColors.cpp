// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/drawing/CPortColors.h"

#include "layout/drawing/LayoutColors.h"

#include <array>
#include <cmath>

namespace {

// Eight hues in two depths, in the order in which neighbours differ most. White on them is readable, and
// strong red is left to faults.
constexpr std::array<QRgb, 16> Palette = {
    0xff4868b4, 0xff004252, 0xff4e3e00, 0xff612135, 0xff954e53, 0xff775307, 0xff154286, 0xff686598,
    0xff692563, 0xff126f6a, 0xff324d2b, 0xff4d2d0d, 0xff816a00, 0xff436639, 0xff754482, 0xff3e2875};

/// The luminance at which black and white contrast equally.
constexpr qreal MiddleLuminance = 0.179;

qreal luminance(const QColor &color)
{
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

QColor CPortColors::fill(int port)
{
    return Palette.at(size_t(port < 0 ? 0 : port) % Palette.size());
}

QColor CPortColors::tint(const QColor &fill)
{
    return blended(fill, Qt::white, 0.62);
}

QColor CPortColors::ink(const QColor &fill)
{
    return luminance(fill) > MiddleLuminance ? Qt::black : Qt::white;
}

QColor CPortColors::selected(const QColor &fill)
{
    return fill.lighter(125);
}

QColor CPortColors::faded(const QColor &fill)
{
    return blended(LayoutColors::Surroundings, fill, 0.35);
}

QColor CPortColors::blended(const QColor &under, const QColor &over, qreal share)
{
    const auto mix = [share](qreal a, qreal b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mix(under.redF(), over.redF()), mix(under.greenF(), over.greenF()),
                            mix(under.blueF(), over.blueF()));
}
