// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QGraphicsScene>
#include <QGraphicsView>

/// Shows what the graphics framework itself costs: a plain scene with one parent per port, one rectangle per
/// cabinet and one line per wire.
class CBareScene final : public QGraphicsScene
{
    Q_OBJECT

public:
    enum Ports {
        OpenPorts,     ///< port items without an area of their own
        ContainedPorts ///< port items that declare that their children are inside them
    };

    enum Outlines {
        NoOutlines, ///< the cheapest: with a pen (for lines, a wide one), each lookup strokes a path
        Outlined    ///< cabinets with frames, for comparisons in which both sides draw
    };

    explicit CBareScene(Ports ports, Outlines outlines = NoOutlines)
        : m_ports(ports)
        , m_outlines(outlines)
    {
    }

    /// Replaces what was built before.
    void build(const CabinetLayout &layout);

private:
    void buildPort(const CabinetLayout::CabinetPort &port);

    Ports m_ports;
    Outlines m_outlines;
};
