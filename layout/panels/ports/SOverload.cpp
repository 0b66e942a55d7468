// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/panels/ports/SOverload.h"

#include "layout/data/BearerLoad.h"
#include "layout/data/CLayoutData.h"
#include "layout/data/PortLoads.h"

#include <QStringList>

namespace {

using Port = CabinetLayout::CabinetPort;

/// "1 to 3, 5" for the indices 0, 1, 2, 4.
QString ranges(const QVector<int> &ports)
{
    QStringList parts;
    for (int first = 0; first < ports.size();) {
        int last = first;
        while (last + 1 < ports.size() && ports.at(last + 1) == ports.at(last) + 1)
            ++last;
        if (last == first)
            parts << QString::number(ports.at(first) + 1);
        else
            parts << SOverload::tr("%1 to %2").arg(ports.at(first) + 1).arg(ports.at(last) + 1);
        first = last + 1;
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

QString SOverload::text() const
{
    if (isEmpty())
        return {};
    if (processor)
        return tr("The processor is overloaded");
    const QString names =
        backups.isEmpty() ? ranges(ports) : tr("%1, redundancy %2").arg(ranges(ports), ranges(backups));
    if (count() == 1)
        return tr("1 output port is overloaded: %1").arg(names);
    return tr("%1 output ports are overloaded: %2").arg(QString::number(count()), names);
}

QString SOverload::shortText() const
{
    if (isEmpty())
        return {};
    return processor ? tr("Processor overloaded") : tr("%1 overloaded").arg(count());
}

SOverload SOverload::shown(const CLayoutData &store)
{
    return of(store.layoutData().layout, [](const Port &port) { return int(port.load); });
}

SOverload SOverload::asked(const CabinetLayout &layout)
{
    return of(layout, [&layout](const Port &port) { return BearerLoad::of(layout, port.index).percent; });
}

SOverload SOverload::of(const CabinetLayout &layout, const std::function<int(const Port &)> &percentOf)
{
    SOverload overload;
    const Port *measured = nullptr; // a redundancy port carries what its primary is charged for
    for (const Port &port : layout.ports) {
        const Port *bearer = PortLoads::loadBearer(layout, port.index);
        const int percent = percentOf(*bearer);
        if (percent <= 100)
            continue;
        if (bearer != &port) {
            overload.backups << port.index;
            continue;
        }
        overload.ports << port.index;
        overload.worst = qMax(overload.worst, percent);
        if (!measured && port.redundancy != Port::Redundant)
            measured = &port;
    }
    if (measured) {
        const SPortLoad load = BearerLoad::of(layout, measured->index);
        overload.processor = load.pixelLimit > 0 && load.totalPixels > load.pixelLimit;
    }
    return overload;
}
