// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// Why an exchange with a device failed.
enum class DeviceError {
    None,
    Cancelled,
    Offline,
    NoAnswer,
    Refused,
    ConnectionLost,
    Damaged,
    NotStored, ///< the device could not store what it was sent
    Unread,    ///< the device does not overwrite stored data that it could not read
    InUse      ///< another running program stores the state of the simulated devices
};

/// The reason for the user, a complete sentence; empty for None and Cancelled.
QString deviceErrorText(DeviceError error);
