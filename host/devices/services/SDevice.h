// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/services/CWorkingLayout.h"
#include "host/devices/simulated/CPortCapacity.h"
#include "host/devices/simulated/SProcessorSettings.h"
#include "host/projects/SFileStamp.h"
#include "layout/api/records/LayoutData.h"
#include "layout/api/records/PrintConfig.h"
#include "layout/api/records/ProcessorTree.h"
#include "layout/api/records/SHostRecords.h"

#include <QRect>

/// What the host knows about one processor: a device, or a project without device. Copies share their
/// layouts.
struct SDevice
{
    ProcessorTree::ProcessorNode node;
    SProcessorKind kind;
    QUuid group;          ///< null: in no group
    bool project = false; ///< has no device
    QString file;         ///< of a project; empty: none yet
    SFileStamp stamp;     ///< of that file when it was last read or written
    QString readOnly;     ///< of a project: why it is not saved to that file; empty: it is
    SProcessorSettings settings;
    SProcessorSettings savedSettings; ///< of a project: as in its file
    PrintConfig print;                ///< of a project: settings of its plans
    PrintConfig savedPrint;           ///< of a project: as in its file
    CWorkingLayout working;
    /// Earlier working layouts, while the module may not know yet that they were replaced.
    QVector<QVector<CabinetLayout::CabinetPort>> replaced;
    quint64 replacements = 0;          ///< how often the working layout was replaced
    quint64 changes = 0;               ///< counts changes of settings and state by commands and failures
    quint64 revision = 0;              ///< of the mapping on the device when it was last read or saved
    QVector<SCurrentGainRow> gainRows; ///< imported current-gain parameters

    /// Whether the working layout was read, created or imported; before that it has no ports.
    bool isLoaded() const { return !working.layout().ports.isEmpty(); }
    bool isModified() const { return unsavedEdits().any(); }
    SUnsavedEdits unsavedEdits() const;
    QRect area() const { return {settings.offset, settings.canvas}; } ///< on the shared canvas
    LayoutData data() const;
    LayoutData dataWithLoads() const; ///< the same for a picture, which tells overloads. O(cabinets)
    /// Load if @p port replaced port @p index of the working layout.
    SPortLoad portLoad(const CabinetLayout::CabinetPort &port, int index) const;
    /// Why nobody may change the working layout, for the user; empty: they may.
    QString layoutRefusal() const;
    /// Whether all ports together exceed what the processor can drive.
    bool isOverloaded() const { return working.chargedPixels() > kind.pixelLimit; }
    /// Sets the settings, and the values that the node shows of them.
    void takeSettings(const SProcessorSettings &taken);
    /// Sets the working layout, with exactly the ports that are in use.
    void takeLayout(const CabinetLayout &layout);
    /// Swaps the working layout for @p other. @p replaces: the module does not know of it yet.
    void swapWorking(CWorkingLayout &other, bool replaces);
    /// Sets the mapping that the device or the file has.
    void takeSaved(const CabinetLayout &mapping);
    CabinetLayout withPortsInUse(const CabinetLayout &layout) const;
    /// "name(address): reason", for the user.
    QString failureText(const QString &reason) const;
};
