// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzTargets.h"

const QVector<FuzzTargets::STarget> &FuzzTargets::all()
{
    static const QVector<STarget> targets{{"project", project, true},
                                          {"port", port, true},
                                          {"configuration", configuration, true},
                                          {"current_gain", currentGain, true},
                                          {"type_library", typeLibrary, true},
                                          {"state", state, true},
                                          {"journal", journal, false},
                                          {"settings", settings, false},
                                          {"clipboard", clipboard, true},
                                          {"operations", operations, false}};
    return targets;
}
