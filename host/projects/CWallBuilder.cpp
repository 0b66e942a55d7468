// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/projects/CWallBuilder.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/api/records/PortPairs.h"
#include "layout/geometry/CSnakeOrder.h"

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;

/// The namespace of identities that are derived from names.
const QUuid wallNamespace(0x6f727677u, 0x616c, 0x4c77, 0x8a, 0x11, 0x5f, 0x0d, 0x3b, 0x6a, 0x77, 0x02);

struct SWallRow
{
    const char *name;
    int width, height, columns, rows, ports, pattern;
    int portColumns, portRows; // 0: chosen
};

// In the order of CWallBuilder::Wall. The stadium is the part of it that one processor with 80 ports can
// drive; the full wall has small cabinets that fit its ports.
constexpr SWallRow wallTable[CWallBuilder::WallCount] = {
    {"Small wall", 320, 240, 8, 6, 8, 4, 8, 1},     {"Small 4K wall", 480, 270, 8, 8, 13, 0, 0, 0},
    {"Medium wall", 192, 192, 24, 10, 15, 0, 0, 0}, {"Ribbon", 32, 48, 877, 1, 4, 0, 0, 0},
    {"Stadium wall", 96, 96, 112, 50, 80, 4, 0, 0}, {"Full wall", 24, 24, 320, 256, 80, 0, 0, 0},
};

QString cellName(const SWallPlan &plan, int column, int row)
{
    return QStringLiteral("%1/%2/%3").arg(plan.name).arg(column).arg(row);
}

/// The cells (row by row) of one rectangular block.
QVector<int> blockCells(const SWallPlan &plan, const QSize &portGrid, int block)
{
    const int width = plan.columns / portGrid.width();
    const int height = plan.rows / portGrid.height();
    const int left = block % portGrid.width() * width;
    const int top = block / portGrid.width() * height;
    QVector<int> cells;
    cells.reserve(width * height);
    for (int row = top; row < top + height; ++row) {
        for (int column = left; column < left + width; ++column)
            cells.append(row * plan.columns + column);
    }
    return cells;
}

/// The columns and rows of ports with the most square equal blocks; empty if the grid cannot be divided.
QSize squarestPortGrid(const SWallPlan &plan)
{
    QSize best;
    double bestRatio = 0;
    for (int portColumns = plan.ports; portColumns > 0; --portColumns) {
        const int portRows = plan.ports / portColumns;
        if (portColumns * portRows != plan.ports || plan.columns % portColumns || plan.rows % portRows)
            continue;
        const double width = double(plan.columns / portColumns) * plan.cabinet.width();
        const double height = double(plan.rows / portRows) * plan.cabinet.height();
        const double ratio = std::max(width, height) / std::min(width, height);
        if (best.isEmpty() || ratio < bestRatio) {
            best = {portColumns, portRows};
            bestRatio = ratio;
        }
    }
    return best;
}

/// All cabinets of the plan, row by row.
QVector<Cabinet> wallCabinets(const SWallPlan &plan)
{
    QVector<Cabinet> cabinets;
    cabinets.reserve(plan.cabinetCount());
    for (int row = 0; row < plan.rows; ++row) {
        for (int column = 0; column < plan.columns; ++column) {
            Cabinet cabinet;
            cabinet.uuid = QUuid::createUuidV5(wallNamespace, cellName(plan, column, row));
            cabinet.rect =
                QRect(QPoint(column * plan.cabinet.width(), row * plan.cabinet.height()), plan.cabinet);
            cabinet.type = plan.type;
            cabinet.rects = plan.rects;
            cabinets.append(cabinet);
        }
    }
    return cabinets;
}

/// The given cells in the pattern's order.
QVector<int> snakeOf(const QVector<Cabinet> &cabinets, const QVector<int> &cells, int pattern)
{
    QVector<CSnakeOrder::SCell> places;
    places.reserve(cells.size());
    for (const int cell : cells)
        places.append({QRectF(cabinets.at(cell).rect), cabinets.at(cell).uuid});
    QVector<int> ordered = CSnakeOrder::order(places, pattern);
    for (int &index : ordered)
        index = cells.at(index);
    return ordered;
}

/// The cells of each port in wiring order.
QVector<QVector<int>> chainsOf(const SWallPlan &plan, const QVector<Cabinet> &cabinets)
{
    QVector<QVector<int>> chains;
    const QSize portGrid = plan.portGrid.isEmpty() ? squarestPortGrid(plan) : plan.portGrid;
    if (!portGrid.isEmpty()) {
        for (int port = 0; port < plan.ports; ++port)
            chains.append(snakeOf(cabinets, blockCells(plan, portGrid, port), plan.pattern));
        return chains;
    }
    const QVector<int> whole = snakeOf(cabinets, blockCells(plan, {1, 1}, 0), plan.pattern);
    int begin = 0;
    for (int port = 0; port < plan.ports; ++port) {
        const int count = whole.size() / plan.ports + (port < whole.size() % plan.ports ? 1 : 0);
        chains.append(whole.mid(begin, count));
        begin += count;
    }
    return chains;
}

Port wiredPort(int index, const QVector<int> &chain, const QVector<Cabinet> &cabinets)
{
    Port port;
    port.index = index;
    port.groups.resize(1);
    QVector<Cabinet> &loose = port.groups.first().cabinets;
    loose.reserve(chain.size());
    for (const int cell : chain) {
        Cabinet cabinet = cabinets.at(cell);
        cabinet.port = index;
        cabinet.rank = loose.size();
        loose.append(cabinet);
    }
    return port;
}

/// Pairs each port with a new one behind the others.
void addRedundancies(CabinetLayout &layout)
{
    const int primaries = layout.ports.size();
    for (int i = 0; i < primaries; ++i) {
        Port &primary = layout.ports[i];
        Port redundancy;
        redundancy.index = primaries + i;
        redundancy.mirrored = PortPairs::mirrorOf(primary);
        PortPairs::setPair(primary, layout.processor, Port::Primary, {layout.processor, redundancy.index});
        PortPairs::setPair(redundancy, layout.processor, Port::Redundant, {layout.processor, primary.index});
        layout.ports.append(redundancy);
    }
}

/// Why this grid of cabinets is impossible; empty if it is possible.
QString gridProblem(const SWallPlan &plan)
{
    using B = CWallBuilder;
    const auto inRange = [](int value, int maximum) { return value >= 1 && value <= maximum; };
    if (!LayoutLimits::isCabinetSize(plan.cabinet))
        return B::tr("The width and the height of a cabinet must be between %1 and %2 pixels, not %3x%4.")
            .arg(LayoutLimits::SmallestSide)
            .arg(LayoutLimits::LargestSide)
            .arg(plan.cabinet.width())
            .arg(plan.cabinet.height());
    if (!inRange(plan.columns, LayoutLimits::WidestCanvas) ||
        !inRange(plan.rows, LayoutLimits::TallestCanvas))
        return B::
            tr("A wall needs between 1 and %1 columns and between 1 and %2 rows, not %3 columns and %4 rows.")
                .arg(LayoutLimits::WidestCanvas)
                .arg(LayoutLimits::TallestCanvas)
                .arg(plan.columns)
                .arg(plan.rows);
    if (!LayoutLimits::isCanvasSize(plan.canvas()))
        return B::tr("The canvas would be %1x%2 pixels, the most is %3x%4.")
            .arg(plan.canvas().width())
            .arg(plan.canvas().height())
            .arg(LayoutLimits::WidestCanvas)
            .arg(LayoutLimits::TallestCanvas);
    return {};
}

/// Why the cabinets cannot be distributed to the ports; empty if they can.
QString sharingProblem(const SWallPlan &plan)
{
    using B = CWallBuilder;
    if (plan.ports < 1 || plan.portCount() > B::MaximumPorts)
        return B::tr("A processor has between 1 and %1 output ports, not %2.")
            .arg(B::MaximumPorts)
            .arg(plan.portCount());
    if (plan.pattern < 0 || plan.pattern >= CSnakeOrder::PatternCount)
        return B::tr("There are the patterns 0 to %1, not %2.")
            .arg(CSnakeOrder::PatternCount - 1)
            .arg(plan.pattern);
    if (plan.cabinetCount() < plan.ports)
        return (plan.cabinetCount() == 1 ? B::tr("%1 cabinet is too few for %2 ports.")
                                         : B::tr("%1 cabinets are too few for %2 ports."))
            .arg(plan.cabinetCount())
            .arg(plan.ports);
    if (plan.cabinetCount() > qint64(plan.ports) * LayoutLimits::CabinetsPerPort)
        return B::tr("%1 cabinets are too many for %2 ports: a port takes up to %3.")
            .arg(plan.cabinetCount())
            .arg(plan.ports)
            .arg(LayoutLimits::CabinetsPerPort);
    const QSize grid = plan.portGrid;
    if (!grid.isEmpty() && (qint64(grid.width()) * grid.height() != plan.ports ||
                            plan.columns % grid.width() || plan.rows % grid.height()))
        return B::tr("%1x%2 cabinets cannot be divided among %3x%4 ports.")
            .arg(plan.columns)
            .arg(plan.rows)
            .arg(grid.width())
            .arg(grid.height());
    return {};
}

} // namespace

SWallPlan CWallBuilder::plan(Wall wall)
{
    const SWallRow &row = wallTable[wall];
    SWallPlan plan;
    plan.name = QLatin1String(row.name);
    plan.cabinet = {row.width, row.height};
    plan.columns = row.columns;
    plan.rows = row.rows;
    plan.ports = row.ports;
    plan.pattern = row.pattern;
    plan.portGrid = {row.portColumns, row.portRows};
    return plan;
}

QString CWallBuilder::problemOf(const SWallPlan &plan)
{
    const QString problem = gridProblem(plan);
    return problem.isEmpty() ? sharingProblem(plan) : problem;
}

CResult<CabinetLayout> CWallBuilder::build(const SWallPlan &plan)
{
    const QString problem = problemOf(plan);
    if (!problem.isEmpty())
        return CResult<CabinetLayout>::failure(problem);
    const QVector<Cabinet> cabinets = wallCabinets(plan);
    const QVector<QVector<int>> chains = chainsOf(plan, cabinets);
    CabinetLayout layout;
    layout.processor = QUuid::createUuidV5(wallNamespace, plan.name);
    layout.ports.reserve(plan.portCount());
    for (int port = 0; port < plan.ports; ++port)
        layout.ports.append(wiredPort(port, chains.at(port), cabinets));
    if (plan.redundancy)
        addRedundancies(layout);
    return layout;
}
