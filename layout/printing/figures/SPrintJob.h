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
    QMap<QUuid, QString> addresses; ///< of processors that have no device

    /// The settings that the sheets of @p processor are made with.
    PrintConfig of(const QUuid &processor) const
    {
        PrintConfig config = own.value(processor, whole);
        config.date = whole.date; // of the whole job
        config.address = addresses.value(processor);
        return config;
    }
    /// Takes over what was kept for @p processor; the usual settings do not hold against those of the job.
    void take(const QUuid &processor, PrintConfig kept)
    {
        if (!kept.address.isEmpty())
            addresses[processor] = kept.address;
        kept.address.clear();
        const bool any = kept != PrintConfig();
        kept.own = false;
        if (any)
            own[processor] = kept;
    }
};
