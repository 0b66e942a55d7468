// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"

#include <QGraphicsScene>
#include <QGraphicsView>

/// What the graphics framework itself costs: a plain scene with a rectangle a cabinet below one parent a
/// port, and a line a wire.
class CBareScene final : public QGraphicsScene
{
    Q_OBJECT

public:
    enum Ports {
        OpenPorts,     ///< parents without an area of their own
        ContainedPorts ///< parents that tell the scene that their children lie inside them
    };

    enum Outlines {
        NoOutlines, ///< the cheapest: with a pen, and for lines with a wide one, each lookup strokes a path
        Outlined    ///< cabinets in their frames, for where both sides draw
    };

    explicit CBareScene(Ports ports, Outlines outlines = NoOutlines)
        : m_ports(ports)
        , m_outlines(outlines)
    {
    }

    /// In place of what was built before.
    void build(const CabinetLayout &layout);

private:
    void buildPort(const CabinetLayout::CabinetPort &port);

    Ports m_ports;
    Outlines m_outlines;
};
