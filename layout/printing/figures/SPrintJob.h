// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/PrintConfig.h"

#include <QMap>

/// The settings of a job: those of the whole, and those of processors that have their own.
struct SPrintJob
{
    PrintConfig whole;
    QMap<QUuid, PrintConfig> own;

    /// The settings that the sheets of @p processor are made with.
    PrintConfig of(const QUuid &processor) const { return own.value(processor, whole); }
};
