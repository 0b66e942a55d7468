// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/DeviceError.h"

#include <QCoreApplication>

namespace {

QString translatedReason(const char *text)
{
    return QCoreApplication::translate("DeviceError", text);
}

} // namespace

QString deviceErrorText(DeviceError error)
{
    switch (error) {
    case DeviceError::None:
    case DeviceError::Cancelled:
        break;
    case DeviceError::Offline:
        return translatedReason("The processor is offline.");
    case DeviceError::NoAnswer:
        return translatedReason("The processor does not answer.");
    case DeviceError::Refused:
        return translatedReason("The processor refused the request.");
    case DeviceError::ConnectionLost:
        return translatedReason("The connection was lost during the transfer.");
    case DeviceError::Damaged:
        return translatedReason("The transferred data arrived damaged.");
    case DeviceError::NotStored:
        return translatedReason("The processor could not store the data.");
    case DeviceError::Unread:
        return translatedReason(
            "The processor could not read what it has stored, and stores nothing in its place.");
    case DeviceError::InUse:
        return translatedReason("Another running Orvo uses the simulated processors, which store nothing of "
                                "what this one sends.");
    }
    return {};
}
