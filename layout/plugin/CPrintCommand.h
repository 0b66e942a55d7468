// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/figures/SPrintInput.h"

#include <QCoreApplication>

class QWidget;

/// Opens the print dialog with the layouts of all processors. GUI thread.
class CPrintCommand final
{
    Q_DECLARE_TR_FUNCTIONS(CPrintCommand)

public:
    static void run(QWidget *parent);
    /// All processors that have cabinets, as the host knows them now, pending edits included.
    static SPrintInput input();
    /// Names the processors of which nothing is known; empty if there are none.
    static QString notRead(const SPrintInput &input);
};
