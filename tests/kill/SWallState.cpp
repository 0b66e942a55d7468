// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "tests/kill/SWallState.h"

#include <QCryptographicHash>
#include <QDebug>
#include <QStringList>

#include <algorithm>
#include <limits>

namespace {

using Port = CabinetLayout::CabinetPort;

QString textOf(const Port::Cabinet &cabinet)
{
    QString text;
    QDebug out(&text);
    out << cabinet.port << cabinet.rect << cabinet.rank << cabinet.type.toText() << cabinet.directionFixed
        << cabinet.custom << cabinet.rects << cabinet.receivers << cabinet.blanks;
    if (cabinet.original)
        out << cabinet.original->size << cabinet.original->rects << cabinet.original->blanks;
    return text;
}

/// Of all members in any order; empty if there are none.
QString textOf(const Port::CabinetGroup &group)
{
    QStringList members;
    for (const Port::Cabinet &cabinet : group.cabinets)
        members << textOf(cabinet);
    for (const Port::CabinetGroup &below : group.groups)
        members << textOf(below);
    members.sort();
    const QString name = group.isLoose() ? QStringLiteral("loose") : QLatin1Char('"') + group.name;
    return members.isEmpty() ? QString()
                             : name + QLatin1Char('{') + members.join(QLatin1Char(';')) + QLatin1Char('}');
}

} // namespace

SWallState SWallState::of(const CabinetLayout &layout)
{
    SWallState state;
    state.place = std::numeric_limits<int>::max() / 2;
    QCryptographicHash digest(QCryptographicHash::Md5);
    for (const Port &port : layout.ports) {
        for (const Port::Cabinet &cabinet : port.getAllCabinets())
            state.place = std::min(state.place, cabinet.rect.x());
        state.look += port.locked ? '1' : '0';
        QStringList groups;
        for (const Port::CabinetGroup &group : port.groups)
            groups << textOf(group);
        groups.removeAll(QString());
        groups.sort();
        QString text;
        QDebug(&text) << port.index << port.color << port.redundancy << port.redundancyPort << groups;
        digest.addData(text.toUtf8());
    }
    state.look += '-' + digest.result().toHex();
    if (layout.ports.at(1).locked)
        state.place += Locked;
    return state;
}

bool SWallState::fits(const SWallState &other) const
{
    return place == other.place && (look == other.look || look.isEmpty() || other.look.isEmpty());
}
