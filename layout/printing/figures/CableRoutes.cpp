// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/figures/CableRoutes.h"

#include <algorithm>
#include <cmath>

namespace CableRoutes {

QPointF rack(const PrintConfig &config, const QSizeF &wall)
{
    const double x = config.rack.right ? wall.width() + config.rack.distance : -config.rack.distance;
    return {x, wall.height() + config.rack.lowerEdge};
}

SCableRun run(const QPointF &from, const QPointF &to, int slack, const QVector<int> &stock)
{
    constexpr double Rounding = 1e-6; // what sums of fractions may add to a whole millimetre
    SCableRun cable;
    cable.route = int(std::ceil(std::abs(from.x() - to.x()) + std::abs(from.y() - to.y()) - Rounding));
    cable.need = cable.route + slack;
    const auto fits = [&cable](int metres) { return qint64(metres) * 1000 >= cable.need; };
    const auto found = std::find_if(stock.begin(), stock.end(), fits);
    cable.stock = found == stock.end() ? 0 : *found;
    return cable;
}

void lay(SPlanPort &port, const SPlanProcessor &processor, const PrintConfig::SCables &cables)
{
    if (port.chain.isEmpty())
        return;
    const auto centre = [&](int place) {
        return processor.cabinets.at(port.chain.at(place)).millimetres.center();
    };
    port.hops.clear();
    for (int i = 1; i < port.chain.size(); ++i)
        port.hops << run(centre(i - 1), centre(i), cables.hopSlack, cables.stock);
    const QPointF from = rack(processor.config, processor.millimetres);
    port.feed = run(from, centre(0), cables.feedSlack, cables.stock);
    if (port.looped)
        port.loop = run(centre(port.chain.size() - 1), from, cables.feedSlack, cables.stock);
}

} // namespace CableRoutes
