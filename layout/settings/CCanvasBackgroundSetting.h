// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/SBackgroundInfo.h"
#include "platform/widgets/CDialog.h"

class CSliderSpinBox;
class QCheckBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

/// Asks for the fill image behind the cabinets of a canvas, and announces each change at once. GUI thread.
class CCanvasBackgroundSetting final : public CDialog
{
    Q_OBJECT

public:
    static constexpr int SmallestScale = 10; ///< percent
    static constexpr int LargestScale = 400;

    CCanvasBackgroundSetting(const SBackgroundInfo &info, QWidget *parent);

    /// What the user has set.
    const SBackgroundInfo &info() const { return m_info; }

Q_SIGNALS:
    void notifyChanged(const SBackgroundInfo &info);

private:
    void buildUi();
    void buildImageRow(QGridLayout &grid);
    void buildFitRow(QGridLayout &grid);
    CSliderSpinBox *buildPercentRow(QGridLayout &grid, const QString &text, int smallest, int largest,
                                    int value);
    void connectSignals();
    void browse();
    void change();
    void updateEnabled();

    SBackgroundInfo m_info;
    QCheckBox *m_enabled;
    QLineEdit *m_file;
    QPushButton *m_browse;
    QRadioButton *m_natural;
    QRadioButton *m_zoom;
    CSliderSpinBox *m_scale = nullptr;
    CSliderSpinBox *m_opacity = nullptr;
    QWidget *m_controls; // all but the check box
};
