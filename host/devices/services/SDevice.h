// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/SProcessorSettings.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/ProcessorTree.h"

#include <QRect>

/// One processor as the host knows it: a device, or a project without device. Copies share their layouts.
struct SDevice
{
    ProcessorTree::ProcessorNode node;
    SProcessorKind kind;
    QUuid group;          ///< null: in no group
    bool project = false; ///< has no device
    QString file;         ///< of a project; empty: none yet
    SProcessorSettings settings;
    SProcessorSettings savedSettings; ///< of a project: as in its file
    CWorkingLayout working;
    quint64 changes = 0;               ///< counts what commands and failures changed in settings and state
    quint64 revision = 0;              ///< of the mapping on the device when it was last read or saved
    QVector<SCurrentGainRow> gainRows; ///< current-gain parameters that were imported

    /// Whether the working layout was read, made or imported; before that it has no ports.
    bool isLoaded() const { return !working.layout().ports.isEmpty(); }
    bool isModified() const { return working.isModified() || (project && settings != savedSettings); }
    QRect area() const { return {settings.offset, settings.canvas}; } ///< on the shared canvas
    LayoutData data() const;
    /// Load in percent that @p port has in place of the working layout's port @p index.
    int portLoad(const CabinetLayout::CabinetPort &port, int index) const;
    /// Whether all ports together exceed what the processor can drive.
    bool isOverloaded() const { return working.chargedPixels() > kind.pixelLimit; }
    /// Takes @p taken as the settings, and what the node shows of them.
    void takeSettings(const SProcessorSettings &taken);
    /// Takes @p layout as the working layout, with exactly the ports that are in use.
    void takeLayout(const CabinetLayout &layout);
    /// Takes @p mapping as the one that the device or the file holds.
    void takeSaved(const CabinetLayout &mapping);
    CabinetLayout withPortsInUse(const CabinetLayout &layout) const;
    /// "name(address): reason", for the user.
    QString failureText(const QString &reason) const;
};
