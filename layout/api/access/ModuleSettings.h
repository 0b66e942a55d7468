// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSettings>

/// What the module remembers between runs. GUI thread.
namespace ModuleSettings {

inline QSettings open()
{
    return QSettings(QStringLiteral("Velmarinth"), QStringLiteral("Orvo"));
}

} // namespace ModuleSettings
