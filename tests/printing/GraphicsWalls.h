// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintPlan.h"

/// Walls of the usual sizes, for tests of drawings.
namespace GraphicsWalls {

using Port = CabinetLayout::CabinetPort;

struct SWallKind
{
    QSize cabinets;     ///< columns and rows
    QSize pixels;       ///< of a cabinet
    QSizeF millimetres; ///< of a cabinet
    QSize port;         ///< columns and rows of a port
    int processors = 1;
};

inline SWallKind smallWall()
{
    return {{8, 6}, {320, 240}, {640, 480}, {1, 6}};
}
inline SWallKind mediumWall()
{
    return {{24, 10}, {192, 192}, {500, 500}, {8, 2}};
}
/// 5,600 cabinets.
inline SWallKind largeWall()
{
    return {{40, 70}, {168, 168}, {500, 500}, {8, 5}, 2};
}

/// A port of @p kind that begins at cell @p first: row by row, back and forth.
inline Port portOf(const SWallKind &kind, int index, const QPoint &first, const SMD5 &type)
{
    Port port;
    port.index = index;
    port.load = 90;
    port.groups.resize(1);
    for (int row = 0; row < kind.port.height(); ++row) {
        for (int i = 0; i < kind.port.width(); ++i) {
            const int column = row % 2 == 0 ? i : kind.port.width() - 1 - i;
            Port::Cabinet cabinet;
            cabinet.uuid = QUuid::createUuid();
            cabinet.port = index;
            cabinet.type = type;
            cabinet.rank = port.groups[0].cabinets.size();
            cabinet.rect = QRect(
                QPoint((first.x() + column) * kind.pixels.width(), (first.y() + row) * kind.pixels.height()),
                kind.pixels);
            port.groups[0].cabinets << cabinet;
        }
    }
    return port;
}

inline SPrintInput inputOf(const SWallKind &kind)
{
    SPrintInput input;
    SPrintInput::RcvTypeInfo type;
    type.key = SMD5::ofContent("indoor");
    type.name = QStringLiteral("rental indoor P2.6");
    type.width = kind.pixels.width();
    type.height = kind.pixels.height();
    type.millimetres = kind.millimetres;
    type.kilograms = 7;
    type.wattsMaximum = 160;
    type.wattsAverage = 80;
    input.types.insert(type.key, type);
    for (int i = 0; i < kind.processors; ++i) {
        SPrintedProcessor processor;
        processor.node.name = i == 0 ? QStringLiteral("Main stage") : QStringLiteral("Side stage");
        processor.node.address = 0xC0A80A0C;
        processor.layout.processor = QUuid::createUuid();
        for (int row = 0; row < kind.cabinets.height(); row += kind.port.height()) {
            for (int column = 0; column < kind.cabinets.width(); column += kind.port.width()) {
                const int index = processor.layout.ports.size();
                processor.layout.ports << portOf(kind, index, QPoint(column, row), type.key);
                SPortLoad load;
                load.percent = 90;
                load.capacity = 659722;
                load.pixels = 589824;
                processor.loads.insert(index, load);
            }
        }
        processor.portCount = processor.layout.ports.size();
        input.processors << processor;
    }
    return input;
}

/// Tall and square cabinets, a gap, a port around another, a chain with jumps, a cabinet without wiring, and
/// names that are too long.
inline SPrintInput irregular()
{
    SPrintInput input = inputOf(mediumWall());
    SPrintInput::RcvTypeInfo tall = input.types.first();
    const SMD5 square = tall.key;
    tall.key = SMD5::ofContent("tall");
    tall.height *= 2;
    tall.millimetres.rheight() *= 2;
    input.types.insert(tall.key, tall);
    SPrintedProcessor &processor = input.processors.first();
    processor.node.name = QString::fromUtf8("Große Hauptbühne Süd mit sehr langem Namen 主舞台");
    // Place in half cabinets, and height in cabinets.
    const QVector<QVector<QRect>> ports = {
        {{0, 0, 1, 2}, {2, 0, 1, 2}, {4, 0, 1, 2}, {6, 0, 1, 1}, {6, 2, 1, 1}},
        {{0, 4, 1, 1},
         {2, 4, 1, 1},
         {2, 6, 1, 1},
         {0, 6, 1, 1},
         {0, 8, 1, 1},
         {2, 8, 1, 1},
         {4, 8, 1, 1},
         {6, 8, 1, 1}},
        {{4, 4, 1, 1}, {4, 6, 1, 1}},
        {{6, 4, 1, 2}},
        {{9, 1, 1, 1},
         {11, 1, 1, 1},
         {11, 3, 1, 1},
         {9, 3, 1, 1},
         {14, 3, 1, 1},
         {16, 8, 1, 1},
         {18, 8, 1, 1}}};
    processor.layout.ports.clear();
    for (const QVector<QRect> &cells : ports) {
        Port port;
        port.index = processor.layout.ports.size();
        port.groups.resize(1);
        for (const QRect &cell : cells) {
            Port::Cabinet cabinet;
            cabinet.uuid = QUuid::createUuid();
            cabinet.type = cell.height() == 2 ? tall.key : square;
            cabinet.rank = port.groups[0].cabinets.size();
            cabinet.rect = QRect(cell.x() * 96, cell.y() * 96, 192, cell.height() * 192);
            port.groups[0].cabinets << cabinet;
        }
        processor.layout.ports << port;
    }
    processor.layout.ports.last().groups[0].cabinets.last().rank = -1;
    processor.layout.ports[1].groups[0].cabinets[3].rect.setSize(QSize(8, 8)); // far smaller than the others
    return input;
}

inline SPrintPlan planOf(const SPrintInput &input, const PrintConfig &config)
{
    SPrintJob job;
    job.whole = config;
    return SPrintPlan::of(input, job);
}

} // namespace GraphicsWalls
