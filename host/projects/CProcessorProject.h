// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/SFileWrite.h"
#include "layout/api/records/CabinetLayout.h"
#include "layout/api/records/PrintConfig.h"
#include "layout/api/records/SBackgroundInfo.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QPoint>
#include <QSize>

struct SWallPlan;

/// The content of a processor project file (*.sprj): one processor's settings and layout.
struct SProcessorProject
{
    QString name;       ///< of the processor
    QString kind;       ///< id of the processor kind; empty: any kind with enough ports
    int portCount = 0;  ///< output ports in use
    QSize canvas;       ///< pixels
    QPoint offset;      ///< of its area on the canvas that several processors share, pixels
    int frameRate = 60; ///< hertz
    int colorDepth = 8; ///< bits
    SBackgroundInfo background;
    PrintConfig print;    ///< of its plans; without processor and date
    CabinetLayout layout; ///< with the processor's identity

    /// The project of a wall; @p layout is the one built from @p plan, whose ports are all in use.
    static SProcessorProject ofPlan(const SWallPlan &plan, const CabinetLayout &layout);

    friend bool operator==(const SProcessorProject &a, const SProcessorProject &b);
    friend bool operator!=(const SProcessorProject &a, const SProcessorProject &b) { return !(a == b); }
};

/// Reads and writes processor project files. Error texts name the file and the place. Any thread.
class CProcessorProject final
{
    Q_DECLARE_TR_FUNCTIONS(CProcessorProject)

public:
    static CResult<SProcessorProject> read(const QString &file);
    /// For @p how see CSafeFile::write().
    static CStatus write(const QString &file, const SProcessorProject &project, SFileWrite *how = nullptr);
};
