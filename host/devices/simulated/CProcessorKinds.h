// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/SProcessorKind.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>

/// The kinds of processors that the program knows, read from a data file. Immutable; any thread.
class CProcessorKinds final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorKinds)

public:
    /// The built-in kinds, read once.
    static const CProcessorKinds &builtIn();
    /// Kinds from the content of a data file; the error names the entry.
    static CResult<CProcessorKinds> fromJson(const QByteArray &content);

    const QVector<SProcessorKind> &all() const { return m_kinds; }
    /// The kind with that id, or null. Valid as long as this object.
    const SProcessorKind *find(const QString &id) const;
    /// The kind with the fewest ports that has at least @p ports and, if asked for, can pair them; or null.
    const SProcessorKind *withPorts(int ports, bool portRedundancy = false) const;

private:
    QVector<SProcessorKind> m_kinds;
};
