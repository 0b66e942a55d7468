// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CDialog.h"

class QSpinBox;

/// Asks for the width and height of a cabinet that has no type. GUI thread.
class CCustomCabinet final : public CDialog
{
    Q_OBJECT

public:
    /// @p size is the initial size, in pixels.
    CCustomCabinet(const QSize &size, QWidget *parent);

    /// What the user has set, in pixels.
    QSize cabinetSize() const;

private:
    void buildUi(const QSize &size);

    QSpinBox *m_width = nullptr;
    QSpinBox *m_height = nullptr;
};
