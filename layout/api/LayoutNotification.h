// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

#include <QSize>

/// The host's notifications that the module listens to: codes, and the type of each code's argument.
enum class LayoutNotification : int {
    DetectFinished = 2,      ///< no argument
    WorkModeChanged = 6,     ///< no argument
    PortBackupChanged = 11,  ///< SPortBackupChange
    TypeLibraryChanged = 14, ///< no argument
    ProcessorRemoved = 15,   ///< QUuid
    ProcessorsRemoved = 16,  ///< QList<QUuid>
    LayoutReplaced = 17,    ///< QUuid: the host has another layout of the processor (import, copy, read-back)
    LayoutsReplaced = 18,   ///< QList<QUuid>
    BackgroundChanged = 20, ///< SBackgroundInfo
    CanvasSizeChanged = 21, ///< SCanvasSizeChange
    ProcessorStateChanged = 22,   ///< SProcessorStateChange
    PortLoadsChanged = 24,        ///< SPortLoadChange: loads changed other than by edits of the port
    PortCountChanged = 25,        ///< no argument
    CurrentProcessorChanged = 26, ///< QUuid; null: none
    SelectedNodeChanged = 28,     ///< SSelectedNodeChange
    ReadbackFinished = 29,        ///< SReadbackResult
    UnsavedEditsChanged = 30      ///< QUuid: ILayoutInterfaceHandler::unsavedEdits() answers otherwise
};

struct SPortBackupChange
{
    int primary = -1;
    int backup = -1;
    bool on = false;
};

struct SCanvasSizeChange
{
    QUuid processor;
    QSize size; ///< pixels
};

struct SProcessorStateChange
{
    QUuid processor;
    bool online = false;
};

struct SPortLoadChange
{
    QUuid processor;
    int port = -1; ///< -1: every port
};

struct SSelectedNodeChange
{
    ProcessorBoundingRects rects; ///< of the selected processors
    PrcTreeNodeType type = PrcTreeNodeType::Other;
};

struct SReadbackResult
{
    QUuid processor;
    bool same = false; ///< the mapping that was read equals the previous layout
};
