// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SMD5.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QSize>
#include <QString>

/// A wall of equal cabinets in columns and rows without gaps.
struct SWallPlan
{
    QString name;            ///< identities are derived from it: the same plan gives the same wall
    QSize cabinet;           ///< pixels of one cabinet
    int columns = 0;         ///< of cabinets
    int rows = 0;            ///< of cabinets
    int ports = 0;           ///< output ports among which the cabinets are distributed, from port 0
    bool redundancy = false; ///< whether each of them has a redundancy port; these follow them
    int pattern = 0;         ///< snake pattern by which each port is wired, see CSnakeOrder
    QSize portGrid;          ///< columns and rows of the ports' blocks; empty: chosen by the builder
    SMD5 type;               ///< library type of the cabinets; null: custom size
    QVector<QRect> rects;    ///< receiver areas of the type; empty: one receiver

    QSize canvas() const { return {cabinet.width() * columns, cabinet.height() * rows}; }
    int cabinetCount() const { return columns * rows; }
    int portCount() const { return redundancy ? 2 * ports : ports; } ///< with redundancy ports
};

/// Builds layouts of whole walls: distributes the cabinets to ports in blocks as square as possible, else in
/// contiguous runs of the pattern, and wires them. Any thread.
class CWallBuilder final
{
    Q_DECLARE_TR_FUNCTIONS(CWallBuilder)

public:
    /// The demo walls; Full has as many cabinets as the largest processor can drive.
    enum Wall { Small, Small4K, Medium, Ribbon, Stadium, Full };
    static constexpr int WallCount = 6;

    static constexpr int MaximumPorts = 80;

    static SWallPlan plan(Wall wall);
    /// Why a plan is impossible; empty if it is not.
    static QString problemOf(const SWallPlan &plan);
    /// The layout of a plan, or why it is impossible; ports are 0 to portCount() - 1, the processor's key is
    /// derived from the plan's name.
    static CResult<CabinetLayout> build(const SWallPlan &plan);
};
