// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PrintConfig.h"
#include "layout/printing/figures/SPrintPlan.h"

#include <QPointF>

/// How long the cables of a wall must be.
namespace CableRoutes {

/// The rack's place, in millimetres from the upper left corner of a wall of that size.
QPointF rack(const PrintConfig &config, const QSizeF &wall);
/// A cable between two points.
SCableRun run(const QPointF &from, const QPointF &to, int slack, const QVector<int> &stock);
/// Computes the cables of a port, from the rack of its processor.
void lay(SPlanPort &port, const SPlanProcessor &processor, const PrintConfig::SCables &cables);

} // namespace CableRoutes
