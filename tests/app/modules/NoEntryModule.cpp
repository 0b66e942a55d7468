// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0

extern "C" __attribute__((visibility("default"))) int notTheEntry()
{
    return 1;
}
