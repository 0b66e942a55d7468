// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// What a report of a fault should say of the computer: versions, platform, screens and fonts, but no names
/// of persons or paths. GUI thread.
namespace SystemInformation {

QString text();

} // namespace SystemInformation
