// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/access/IPortStates.h"

#include <algorithm>

/// What units offer depends on the output ports that hold the selection.
namespace SelectedPorts {

/// Returns whether an edit of what is selected in @p ports would not be refused; false without a selection.
inline bool mayBeEdited(const IPortStates &states, const QList<int> &ports)
{
    const auto refuses = [&states](int port) {
        return states.isPortLocked(port) ||
               states.portRedundancy(port) == CabinetLayout::CabinetPort::Redundant;
    };
    return !ports.isEmpty() && std::none_of(ports.begin(), ports.end(), refuses);
}

} // namespace SelectedPorts
