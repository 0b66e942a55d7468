// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/SPortFacts.h"

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;

bool hasCalibration(const Port::CabinetGroup &group)
{
    return std::any_of(group.cabinets.begin(), group.cabinets.end(),
                       [](const Port::Cabinet &cabinet) { return cabinet.calibrationIndex != -1; }) ||
           std::any_of(group.groups.begin(), group.groups.end(), hasCalibration);
}

void clearCalibration(QVector<Port::CabinetGroup> &groups)
{
    for (Port::CabinetGroup &group : groups) {
        for (Port::Cabinet &cabinet : group.cabinets)
            cabinet.calibrationIndex = -1;
        clearCalibration(group.groups);
    }
}

} // namespace

SPortFacts SPortFacts::of(const Port &port)
{
    return {CabinetLayout{QUuid(), {port}}.boundingRect(),
            std::any_of(port.groups.begin(), port.groups.end(), hasCalibration)};
}

QHash<int, SPortFacts> SPortFacts::ofAll(const QVector<Port> &ports, const CabinetLayout &known,
                                         const QHash<int, SPortFacts> &knownFacts)
{
    QHash<int, SPortFacts> facts;
    for (const Port &port : ports) {
        const Port *same = known.port(port.index);
        facts.insert(port.index, same && areShared(*same, port) ? knownFacts.value(port.index) : of(port));
    }
    return facts;
}

bool SPortFacts::areShared(const Port &a, const Port &b)
{
    return a.groups.constData() == b.groups.constData() && a.groups.size() == b.groups.size();
}

void SPortFacts::endHighlight(Port &port)
{
    if (highlighted)
        clearCalibration(port.groups);
    highlighted = false;
}
