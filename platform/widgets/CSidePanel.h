// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CScrollArea.h"

class CUnitLabel;
class QVBoxLayout;

/// A column of units at the side of an editor, which scrolls when the units need more room than there is.
class CSidePanel : public CScrollArea
{
    Q_OBJECT

public:
    explicit CSidePanel(QWidget *parent = nullptr);

    /// Puts @p unit below the others and takes ownership of it.
    void addUnit(CUnitLabel *unit);

private:
    void buildUi();

    QVBoxLayout *m_units = nullptr;
};
