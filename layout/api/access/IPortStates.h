// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/SHostRecords.h"

#include <QSize>
#include <QUuid>

#include <utility>

/// What the canvas needs to know of the current processor's ports. Any thread; values are copied out. A port
/// that does not exist is reported as unlocked, not redundant and in its default colour.
class IPortStates
{
public:
    virtual ~IPortStates() = default;
    virtual bool isPortLocked(int port) const = 0;
    virtual CabinetLayout::CabinetPort::Redundancy portRedundancy(int port) const = 0;
    /// The other port of the pair and its processor, null for the same processor; -1: none.
    virtual std::pair<QUuid, int> portPartner(int) const { return {QUuid(), -1}; }
    /// The fill of the port's cabinets; always valid.
    virtual QColor portColor(int port) const = 0;
    /// The current output port, on which commands without a selection act; -1: none.
    virtual int currentPort() const { return -1; }
    /// The canvas size of the current processor, pixels; empty if unknown.
    virtual QSize canvasSize() const { return {}; }
    /// What prevents the canvas size from being changed. GUI thread.
    virtual CanvasBlock canvasBlock() const { return CanvasBlock::None; }
    /// Returns whether pressing a handle or changing the type ends the highlight of cabinets without a type.
    virtual bool resetsHighlightOnEdit() const { return false; }
    /// Returns whether cabinets without a type of the library are marked.
    virtual bool marksCustomCabinets() const { return false; }
};
