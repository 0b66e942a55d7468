// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/SDevice.h"
#include "host/projects/CCabinetConfig.h"
#include "host/projects/SLockHolder.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QUuid>

#include <optional>

class CDeviceServices;
class CTypeLibrary;
struct SConnectedCabinet;

/// Exports, imports and copies mappings and cabinet configurations. An import replaces the working layout and
/// announces it; a failure changes nothing. GUI thread.
class CMappingFiles final
{
    Q_DECLARE_TR_FUNCTIONS(CMappingFiles)

public:
    using Cabinet = CabinetLayout::CabinetPort::Cabinet;

    CMappingFiles(CDeviceServices &services, const CTypeLibrary &library);

    /// Does not replace a project that somebody has open unless @p overHeld; @p heldBy learns who it is.
    CStatus exportProcessor(const QUuid &processor, const QString &file, bool overHeld,
                            std::optional<SLockHolder> &heldBy) const;
    CStatus importProcessor(const QUuid &processor, const QString &file, bool overwriteLocked);
    CStatus copyProcessor(const QUuid &from, const QUuid &to, bool overwriteLocked);
    CStatus exportPort(const QUuid &processor, int port, const QString &file) const;
    CStatus importPort(const QUuid &processor, int port, const QString &file, bool overwriteLocked);
    CStatus exportCabinet(const Cabinet &cabinet, const QString &file) const;
    /// Writes what a connected cabinet reported, even if the library does not know its type. The type is
    /// named
    /// @p typeName in the file, unless that is empty.
    CStatus writeConnected(const SConnectedCabinet &connected, const QString &file,
                           const QString &typeName) const;

private:
    CStatus replaceLayout(const SDevice &device, const CabinetLayout &incoming, bool overwriteLocked);
    SCabinetConfig configOf(const Cabinet &cabinet) const;
    void take(const QUuid &processor, const CabinetLayout &layout);

    CDeviceServices &m_services;
    const CTypeLibrary &m_library;
};
