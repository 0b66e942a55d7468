// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>

/// The application's own icons.
namespace AppIcons {

/// The icon of that name, e.g. "detect", with all its states. GUI thread.
QIcon icon(const char *name);

} // namespace AppIcons
