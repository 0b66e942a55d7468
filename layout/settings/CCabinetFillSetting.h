// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/widgets/CDialog.h"
#include "platform/widgets/color/CHsvColor.h"

#include <array>

class CColorSVPanel;
class CColorSlider;
class QCheckBox;
class QGridLayout;
class QPushButton;
class QSpinBox;

/// How the cabinets of a port are filled on the canvas.
struct SCabinetFill
{
    QColor color; ///< invalid: the port's default colour
    bool allPorts = false;
};

/// Asks for the colour with which a port's cabinets are filled on the canvas. GUI thread.
class CCabinetFillSetting final : public CDialog
{
    Q_OBJECT

public:
    /// @p color is the port's own colour, invalid if it has none; @p defaultColor is what is shown then.
    CCabinetFillSetting(const QColor &color, const QColor &defaultColor, QWidget *parent);

    /// Sets what the choice of all outputs includes; shown as its tool tip.
    void setAllPortsRule(const QString &rule);
    /// What the user has set.
    SCabinetFill fill() const;

private:
    enum Channel { Red, Green, Blue, ChannelCount };

    void buildUi();
    void buildBrightnessRow(QGridLayout &grid);
    void buildChannelRow(QGridLayout &grid);
    QSpinBox *createNumber(const QString &name, int maximum) const;
    void connectSignals();
    void restoreDefault();
    void onHueChanged(int hue);
    void onSaturationValueChanged(int saturation, int value);
    void onBrightnessChanged(int value);
    void onPercentChanged(int percent);
    void onChannelChanged();
    void showColor();

    QColor m_defaultColor;
    CHsvColor m_color;
    bool m_isDefault = false; ///< the port's default is shown, not a colour of its own
    CColorSVPanel *m_panel = nullptr;
    CColorSlider *m_hue = nullptr;
    CColorSlider *m_brightness = nullptr;
    QSpinBox *m_percent = nullptr;
    std::array<QSpinBox *, ChannelCount> m_channels{};
    QPushButton *m_default = nullptr;
    QCheckBox *m_allPorts = nullptr;
};
