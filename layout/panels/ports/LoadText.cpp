// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/LoadText.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/data/CLayoutData.h"
#include "layout/data/PortLoads.h"

#include <QCoreApplication>
#include <QLocale>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("LoadText", source);
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

QString LoadText::sum(const SPortLoad &load)
{
    const QString used = text("%1 pixels × %2 Hz × %3 bits ÷ %4 bits a second")
                             .arg(number(load.pixels), QString::number(load.frameRate),
                                  QString::number(load.bitsPerPixel), number(load.bitsPerSecond));
    return used + QLatin1Char('\n') + limitText(load);
}

QString LoadText::ofProcessor(int percent, int ports)
{
    return text("System load: %1%, the mean of %2 output ports").arg(percent).arg(ports);
}

QString LoadText::ofPort(const CLayoutData &store, int port)
{
    const CabinetLayout layout = store.layoutData().layout;
    const CabinetLayout::CabinetPort *bearer = PortLoads::loadBearer(layout, port);
    if (!bearer)
        return {};
    const SPortLoad load = CHostAccess::call(&ILayoutInterfaceHandler::portLoadDetails, layout.processor,
                                             *bearer, bearer->index);
    return text("Port %1: %2%").arg(port + 1).arg(load.percent) + QLatin1Char('\n') + sum(load);
}
