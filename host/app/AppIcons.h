// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QIcon>

/// The application's own pictures.
namespace AppIcons {

/// The picture of that name with all its states, e.g. "detect". GUI thread.
QIcon icon(const char *name);

} // namespace AppIcons
