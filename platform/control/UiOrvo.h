// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaType>

namespace UiOrvo {

/// The numbers under which modules register their widgets with the host.
enum EnModule { ModuleNone = 0, ModuleDevices = 1, ModuleLayout = 2 };

} // namespace UiOrvo

Q_DECLARE_METATYPE(UiOrvo::EnModule)
