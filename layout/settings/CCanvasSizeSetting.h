// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SHostRecords.h"
#include "platform/widgets/CDialog.h"

#include <QSize>

class QComboBox;
class QGridLayout;
class QLabel;
class QSpinBox;

/// Asks for the size of a canvas, in pixels, within the limits of its processor. GUI thread.
class CCanvasSizeSetting final : public CDialog
{
    Q_OBJECT

public:
    /// Shows @p size, reduced to @p limits.
    CCanvasSizeSetting(const SCanvasLimits &limits, const QSize &size, QWidget *parent = nullptr);

    QSize canvasSize() const; ///< as entered

private:
    void buildUi();
    void addRow(QGridLayout &grid, const QString &text, QWidget *field);
    void connectSignals();
    void onPresetChosen();
    void onSizeChanged();

    const SCanvasLimits m_limits;
    QComboBox *m_presets;
    QSpinBox *m_width;
    QSpinBox *m_height;
    QLabel *m_hint;
};
