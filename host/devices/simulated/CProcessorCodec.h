// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SProcessorSettings.h"
#include "layout/api/records/CabinetLayout.h"
#include "platform/common/CResult.h"

#include <QByteArray>
#include <QString>

/// A mapping as a processor keeps it.
struct SProcessorMapping
{
    CabinetLayout layout;
    quint64 revision = 0; ///< counts the times that it was changed
};

/// Everything that a processor keeps without power.
struct SProcessorState
{
    SProcessorSettings settings;
    SProcessorMapping mapping;
};

/// Turns what processors keep into bytes, for the wire and the disk, and back. What was damaged on the way is
/// refused with a text that begins with the name of its source. Any thread.
class CProcessorCodec final
{
public:
    static QByteArray encode(const SProcessorSettings &settings);
    static QByteArray encode(const SProcessorMapping &mapping);
    static CResult<SProcessorSettings> settings(const QByteArray &bytes, const QString &source);
    static CResult<SProcessorMapping> mapping(const QByteArray &bytes, const QString &source);
    /// Whether the bytes say that a newer version wrote them.
    static bool isNewer(const QByteArray &bytes);
};
