// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMetaType>

/// Which processors a read or save of the mapping concerns; stored in the data of menu actions.
enum class ReadSaveMappingRole : int { Current = 0, All = 1 };
Q_DECLARE_METATYPE(ReadSaveMappingRole)
