// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>

struct SPrintPlan;

/// Writes the cabinets of a plan as a table for other programs. Any thread.
class CCabinetTable final
{
public:
    /// CSV (RFC 4180, UTF-8): a heading, then one row per cabinet, sorted by processor, port, place in the
    /// wiring (cabinets that are not wired last), position and identity. Ports count from 1, ranks from 0.
    static QByteArray toCsv(const SPrintPlan &plan);
};
