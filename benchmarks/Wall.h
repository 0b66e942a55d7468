// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/IPortStates.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"

/// The walls that are measured: all ports full and all cabinets wired.
namespace Wall {

constexpr int FullPorts = 80;
constexpr int TenthPorts = 8;
constexpr int CabinetsPerPort = 1024;

constexpr int SmallSide = 24; ///< pixels of a cabinet
constexpr int UsualSide = 128;

/// The first @p ports of the largest wall that a processor can hold, every eighth of them locked. With
/// @p grouped each port's cabinets are in groups, of which every two form another group.
LayoutData data(int ports, bool grouped = false, int side = SmallSide);

/// The same, in groups of @p size cabinets each.
LayoutData inGroups(int ports, int size);

ProcessorTree::ProcessorNode processor(const LayoutData &data);

} // namespace Wall

/// Port states as of a host without any device.
class CNoPortStates final : public IPortStates
{
public:
    bool isPortLocked(int) const override { return false; }
    CabinetLayout::CabinetPort::Redundancy portRedundancy(int) const override
    {
        return CabinetLayout::CabinetPort::NoRedundancy;
    }
    QColor portColor(int port) const override;
};
