// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QWidget>

class QSlider;
class QSpinBox;

/// A slider and a spin box for the same whole number; both always show the same value.
class CSliderSpinBox final : public QWidget
{
    Q_OBJECT

public:
    /// Widths are in pixels. A spin box that is too narrow for arrow buttons has none; arrow keys and wheel
    /// still work.
    CSliderSpinBox(int sliderWidth, int spinBoxWidth, QWidget *parent = nullptr);

    /// Sets the range; initially 0 to 100.
    void setRange(int minimum, int maximum);
    /// Sets the text that the spin box shows after the number.
    void setSuffix(const QString &suffix);
    /// Sets the accessible name of both controls.
    void setName(const QString &name);

    int value() const;
    /// Sets the value, limited to the range; announced like a change by the user.
    void setValue(int value);

Q_SIGNALS:
    /// Sent once per change, by the user or by setValue().
    void notifyValueChanged(int value);

private:
    void buildUi(int sliderWidth, int spinBoxWidth);
    void connectSignals();

    QSlider *m_slider = nullptr;
    QSpinBox *m_spinBox = nullptr;
};
