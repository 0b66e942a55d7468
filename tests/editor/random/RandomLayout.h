// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/editor/SmallWorlds.h"

#include <QRandomGenerator>

/// Initial layouts of random runs.
namespace RandomLayout {

constexpr int PortCount = 3;
constexpr int MostCabinets = 20; // per port

inline QUuid numberedIdentity(quint32 seed, int number)
{
    return QUuid(seed, quint16(number), 0x4000, 0x80, 0, 0, 0, 0, 0, 0, 1);
}

/// Each port has up to @p most cabinets.
inline LayoutData randomWorld(QRandomGenerator &random, int most = MostCabinets)
{
    const quint32 seed = random.generate();
    QVector<CabinetLayout::CabinetPort> ports;
    int number = 0;
    for (int port = 0; port < PortCount; ++port) {
        auto group = SmallWorlds::loose(port, random.bounded(most + 1));
        int rank = 0;
        const bool tiled = random.bounded(2); // so that groups often tile a rectangle
        for (auto &cabinet : group.cabinets) {
            const int place = number % 21;
            cabinet.uuid = numberedIdentity(seed, ++number);
            cabinet.rank = random.bounded(4) ? rank++ : -1;
            cabinet.rect = QRect(random.bounded(8) * 64, random.bounded(8) * 64, 32 * (1 + random.bounded(4)),
                                 32 * (1 + random.bounded(4)));
            if (tiled)
                cabinet.rect = QRect(place % 4 * 64, (port * 6 + place / 4) * 64, 64, 64);
            if (random.bounded(3) == 0)
                cabinet.rects = {QRect(0, 0, 16, 32), QRect(16, 0, 16, 10), QRect(16, 10, 16, 22)};
            cabinet.directionFixed = random.bounded(4) == 0;
        }
        ports << SmallWorlds::port(port, group.cabinets.isEmpty() ? QVector<SmallWorlds::Group>{}
                                                                  : QVector<SmallWorlds::Group>{group});
    }
    return SmallWorlds::data(ports);
}

} // namespace RandomLayout
