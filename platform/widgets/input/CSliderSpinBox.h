// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class QSlider;
class QSpinBox;

/// A whole number to be set by a slider or in a spin box beside it, whichever is more convenient; both always
/// show the same value.
class CSliderSpinBox final : public QWidget
{
    Q_OBJECT

public:
    /// The widths are pixels. A spin box that is too narrow for arrow buttons has none; arrow keys and
    /// wheel work.
    CSliderSpinBox(int sliderWidth, int spinBoxWidth, QWidget *parent = nullptr);

    /// At first 0 to 100.
    void setRange(int minimum, int maximum);
    /// What the spin box shows behind the number.
    void setSuffix(const QString &suffix);
    /// What assistive tools call both controls.
    void setName(const QString &name);

    int value() const;
    /// Sets @p value, moved into the range; announced like a change by the user.
    void setValue(int value);

Q_SIGNALS:
    /// Once for each change, whoever made it.
    void valueChanged(int value);

private:
    void buildUi(int sliderWidth, int spinBoxWidth);
    void connectSignals();

    QSlider *m_slider = nullptr;
    QSpinBox *m_spinBox = nullptr;
};
