// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/LoadSum.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("LoadSum", source);
}

QString number(qint64 value)
{
    return QLocale(QLocale::English).toString(value);
}

QString limitText(const SPortLoad &load)
{
    switch (load.limit) {
    case SPortLoad::ThreeD:
        return text("3D limits a port to %1 pixels").arg(number(load.capacity));
    case SPortLoad::ProcessorPixels:
        return text("The processor's limit determines the load: all ports have %1 of %2 pixels")
            .arg(number(load.totalPixels), number(load.pixelLimit));
    case SPortLoad::PortRate:
        break;
    }
    if (load.bitsPerPixel <= 0)
        return text("The processor does not offer this color depth");
    return text("The port's rate determines the load: it carries %1 pixels").arg(number(load.capacity));
}

} // namespace

QStringList LoadSum::sentences(const SPortLoad &load)
{
    return {text("%1 pixels × %2 Hz × %3 bits ÷ %4 bits a second")
                .arg(number(load.pixels), QString::number(load.frameRate), QString::number(load.bitsPerPixel),
                     number(load.bitsPerSecond)),
            limitText(load)};
}

int LoadSum::mean(const QVector<int> &loads)
{
    if (loads.isEmpty())
        return 0;
    double sum = 0;
    for (int load : loads)
        sum += load;
    const double mean = sum / loads.size();
    const double whole = std::floor(mean);
    constexpr double Dropped = 0.001;
    return static_cast<int>(whole) + (mean - whole > Dropped ? 1 : 0);
}
