// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"

class CByteReader;
class CByteWriter;

/// Writes what a processor's journal tells of its state (settings and layout) as the difference from an
/// earlier state. Any thread.
class CStateCodec final
{
public:
    static void write(CByteWriter &out, const SProcessorProject &before, const SProcessorProject &after);
    /// Turns the state from before into the one after. False: the bytes fit nothing.
    static bool apply(CByteReader &in, SProcessorProject &state);
    /// Whether two states are equal, apart from loads. Quick where they share ports.
    static bool sameState(const SProcessorProject &a, const SProcessorProject &b);
    /// How many cabinets are in the ports that differ, or may.
    static int cabinetsConcerned(const SProcessorProject &before, const SProcessorProject &after);
};
