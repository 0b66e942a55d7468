// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/IPortStates.h"

#include <QHash>

/// Port states that a test sets by hand.
class CFixedPortStates final : public IPortStates
{
public:
    bool isPortLocked(int port) const override { return locked.value(port, false); }
    CabinetLayout::CabinetPort::Redundancy portRedundancy(int port) const override
    {
        return redundancy.value(port, CabinetLayout::CabinetPort::NoRedundancy);
    }
    QColor portColor(int port) const override { return colors.value(port, Qt::darkCyan); }
    bool resetsHighlightOnEdit() const override { return resetsHighlight; }

    int currentPort() const override { return current; }
    QSize canvasSize() const override { return canvas; }
    CanvasBlock canvasBlock() const override { return block; }
    bool marksCustomCabinets() const override { return marksCustom; }

    int current = -1;
    QSize canvas;
    CanvasBlock block = CanvasBlock::None;
    bool marksCustom = false;
    bool resetsHighlight = false;
    QHash<int, bool> locked;
    QHash<int, CabinetLayout::CabinetPort::Redundancy> redundancy;
    QHash<int, QColor> colors;
};
