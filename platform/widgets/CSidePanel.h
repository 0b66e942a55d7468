// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CScrollArea.h"

class CUnitLabel;
class QVBoxLayout;

/// A column of units beside an editor; it scrolls if the units do not fit.
class CSidePanel : public CScrollArea
{
    Q_OBJECT

public:
    explicit CSidePanel(QWidget *parent = nullptr);

    /// Adds @p unit below the others and takes ownership.
    void addUnit(CUnitLabel *unit);

private:
    void buildUi();

    QVBoxLayout *m_units = nullptr;
};
