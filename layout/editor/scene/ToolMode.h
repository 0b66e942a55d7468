// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHashFunctions>

/// The tools that change what a press on a cabinet does.
enum class ToolMode { ManualWiring, HeadToTailExchange, DirectExchange, Highlighting };

inline uint qHash(ToolMode mode, uint seed = 0)
{
    return qHash(int(mode), seed);
}
