// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/DevicesLog.h"

Q_LOGGING_CATEGORY(devicesLog, "orvo.devices")
