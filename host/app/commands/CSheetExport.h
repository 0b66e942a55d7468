// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/projects/CProcessorProject.h"
#include "layout/printing/figures/SPrintInput.h"
#include "layout/printing/figures/SPrintJob.h"
#include "layout/printing/output/CSheetWriter.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QPair>
#include <QStringList>
#include <QVector>

/// Writes the wiring plan of projects: sheets as a PDF, or as one picture each. Any thread.
class CSheetExport final
{
    Q_DECLARE_TR_FUNCTIONS(CSheetExport)

public:
    /// Places of two projects, from 0: of the processor that may fail, and of the one that then takes over.
    using Pair = QPair<int, int>;

    /// What the sheets tell of the projects. Files do not tell which processors are paired, @p pairs does.
    static SPrintInput inputOf(const QVector<SProcessorProject> &projects, const QVector<Pair> &pairs = {});
    /// Writes the files, each whole or not at all; @p file ends in .pdf, .svg or .png. Pictures of several
    /// sheets are numbered, "plan-01.png". Returns the names of the files, and in @p warnings which
    /// sheets are not at the scale that is wanted, and which cables are too long.
    static CResult<QStringList> write(const SPrintInput &input, const SPrintJob &job, const QString &file,
                                      int dotsPerInch, QStringList &warnings);
};
