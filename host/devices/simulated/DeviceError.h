// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// Why an exchange with a device did not succeed.
enum class DeviceError {
    None,
    Cancelled,
    Offline,
    NoAnswer,
    Refused,
    ConnectionLost,
    Damaged,
    NotStored, ///< the device could not keep what it was sent
    Unread     ///< the device stores nothing over what it could not read itself
};

/// The reason for the user, a whole sentence; empty for None and Cancelled.
QString deviceErrorText(DeviceError error);
