// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/output/SheetFiles.h"
#include "platform/common/CResult.h"

#include <QCoreApplication>
#include <QStringList>

class QPrinter;

/// Sends sheets to a printer. Any thread.
class CSheetPrinter final
{
    Q_DECLARE_TR_FUNCTIONS(CSheetPrinter)

public:
    /// Prints the pages that @p printer was set to print, each on paper of the sheet's size, at its true
    /// size. If @p progress says not to go on, the job is taken back as far as the printer allows. Returns
    /// what was printed on, or into; nothing if it was cancelled. No half file remains.
    static CResult<QStringList> print(const QVector<SSheet> &sheets, QPrinter &printer,
                                      const SheetFiles::Progress &progress = {});
};
