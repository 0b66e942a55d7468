// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SProcessorSettings.h"
#include "layout/api/records/CabinetLayout.h"
#include "platform/common/CResult.h"

#include <QByteArray>
#include <QString>

/// A mapping as stored by a processor.
struct SProcessorMapping
{
    CabinetLayout layout;
    quint64 revision = 0; ///< incremented at every change
};

/// Everything that a processor keeps when switched off.
struct SProcessorState
{
    SProcessorSettings settings;
    SProcessorMapping mapping;
};

/// Encodes what processors store as bytes, for transfer and disk, and decodes it. Damaged data is refused
/// with a text that begins with the name of its source. Any thread.
class CProcessorCodec final
{
public:
    static QByteArray encode(const SProcessorSettings &settings);
    static QByteArray encode(const SProcessorMapping &mapping);
    static CResult<SProcessorSettings> settings(const QByteArray &bytes, const QString &source);
    static CResult<SProcessorMapping> mapping(const QByteArray &bytes, const QString &source);
    /// Whether the bytes were written by a newer version.
    static bool isNewer(const QByteArray &bytes);
};
