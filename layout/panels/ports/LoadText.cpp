// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/LoadText.h"

#include "layout/api/records/LoadSum.h"
#include "layout/data/BearerLoad.h"
#include "layout/data/CLayoutData.h"
#include "layout/data/PortLoads.h"

#include <QCoreApplication>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("LoadText", source);
}

} // namespace

int LoadText::worstPort(const CLayoutData &store)
{
    int worst = -1;
    qint64 load = 0;
    const CabinetLayout layout = store.layoutData().layout;
    for (const CabinetLayout::CabinetPort &port : layout.ports) {
        if (port.load <= load || PortLoads::loadBearer(layout, port.index) != &port)
            continue; // its primary has the same
        load = port.load;
        worst = port.index;
    }
    return worst;
}

QString LoadText::ofProcessor(const CLayoutData &store, int percent)
{
    const QString mean =
        text("System load: %1%, the mean of %2 output ports").arg(percent).arg(store.ports().size());
    const int worst = worstPort(store);
    return worst < 0 ? mean : mean + QLatin1Char('\n') + ofPort(store, worst);
}

QString LoadText::ofPort(const CLayoutData &store, int port)
{
    const CabinetLayout layout = store.layoutData().layout;
    if (!layout.port(port))
        return {};
    const SPortLoad load = BearerLoad::of(layout, port);
    const QStringList lines{text("Port %1: %2%").arg(port + 1).arg(load.percent)};
    return (lines + LoadSum::sentences(load)).join(QLatin1Char('\n'));
}
