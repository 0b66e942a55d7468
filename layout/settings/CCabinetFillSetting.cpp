// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetFillSetting.h"

#include "platform/widgets/color/CColorSVPanel.h"
#include "platform/widgets/color/CColorSlider.h"
#include "platform/widgets/input/CClampedSpinBox.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr QSize FillPanelSize(212, 212);
constexpr int FillNumberWidth = 44;
constexpr int FillSliderHeight = 16;

QLabel *fillLabel(const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text);
    label->setBuddy(buddy);
    return label;
}

} // namespace

CCabinetFillSetting::CCabinetFillSetting(const QColor &color, const QColor &defaultColor, QWidget *parent)
    : CDialog(tr("Cabinet fill"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_defaultColor(defaultColor)
    , m_isDefault(!color.isValid())
    , m_panel(new CColorSVPanel)
    , m_hue(new CColorSlider)
    , m_brightness(new CColorSlider)
    , m_default(new QPushButton(tr("Default")))
    , m_allPorts(new QCheckBox(tr("Apply to all outputs")))
{
    m_color.setRgb(m_isDefault ? defaultColor : color);
    buildUi();
    connectSignals();
    showColor();
}

void CCabinetFillSetting::buildUi()
{
    m_panel->setFixedSize(FillPanelSize);
    m_panel->setAccessibleName(tr("Saturation and brightness"));
    m_hue->setRange(0, CHsvColor::MaximumHue);
    m_hue->setFixedHeight(FillSliderHeight);
    m_hue->setAccessibleName(tr("Hue"));
    m_hue->setStops(CColorSlider::rainbow());
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(12);
    grid->addWidget(fillLabel(tr("Hue"), m_hue), 0, 0);
    grid->addWidget(m_hue, 0, 1, 1, ChannelCount);
    buildBrightnessRow(*grid);
    buildChannelRow(*grid);
    grid->addWidget(m_default, 3, 1, 1, ChannelCount, Qt::AlignLeft);
    grid->setRowStretch(4, 1);
    grid->addWidget(m_allPorts, 5, 0, 1, ChannelCount + 1, Qt::AlignLeft);

    auto *row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(m_panel);
    row->addLayout(grid);
    contentLayout()->addLayout(row);
    setDefaultButton(QDialogButtonBox::Ok);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void CCabinetFillSetting::buildBrightnessRow(QGridLayout &grid)
{
    m_brightness->setRange(0, CHsvColor::MaximumValue);
    m_brightness->setFixedHeight(FillSliderHeight);
    m_brightness->setAccessibleName(tr("Brightness"));
    m_percent = createNumber(tr("Brightness in percent"), 100);
    grid.addWidget(fillLabel(tr("Brightness"), m_brightness), 1, 0);
    grid.addWidget(m_brightness, 1, 1, 1, 2);
    grid.addWidget(m_percent, 1, ChannelCount);
}

void CCabinetFillSetting::buildChannelRow(QGridLayout &grid)
{
    const std::array<QString, ChannelCount> names{tr("Red"), tr("Green"), tr("Blue")};
    for (size_t i = 0; i < m_channels.size(); ++i) {
        m_channels[i] = createNumber(names[i], CHsvColor::MaximumValue);
        grid.addWidget(m_channels[i], 2, int(i) + 1);
    }
    grid.addWidget(fillLabel(tr("RGB"), m_channels[Red]), 2, 0);
}

QSpinBox *CCabinetFillSetting::createNumber(const QString &name, int maximum) const
{
    auto *box = new CSpinBox;
    box->setRange(0, maximum);
    box->setFixedWidth(FillNumberWidth);
    box->setButtonSymbols(QAbstractSpinBox::NoButtons); // three digits would not fit beside them
    box->setToolTip(name);
    box->setAccessibleName(name);
    return box;
}

void CCabinetFillSetting::connectSignals()
{
    const auto valueChanged = qOverload<int>(&QSpinBox::valueChanged);
    connect(m_panel, &CColorSVPanel::notifySaturationValueChanged, this,
            &CCabinetFillSetting::onSaturationValueChanged);
    connect(m_hue, &QSlider::valueChanged, this, &CCabinetFillSetting::onHueChanged);
    connect(m_brightness, &QSlider::valueChanged, this, &CCabinetFillSetting::onBrightnessChanged);
    connect(m_percent, valueChanged, this, &CCabinetFillSetting::onPercentChanged);
    for (QSpinBox *box : m_channels)
        connect(box, valueChanged, this, &CCabinetFillSetting::onChannelChanged);
    connect(m_default, &QPushButton::clicked, this, &CCabinetFillSetting::restoreDefault);
}

SCabinetFill CCabinetFillSetting::fill() const
{
    return {m_isDefault ? QColor() : m_color.rgb(), m_allPorts->isChecked()};
}

void CCabinetFillSetting::setAllPortsRule(const QString &rule)
{
    m_allPorts->setToolTip(rule);
}

void CCabinetFillSetting::restoreDefault()
{
    m_color.setRgb(m_defaultColor);
    m_isDefault = true;
    showColor();
}

void CCabinetFillSetting::onHueChanged(int hue)
{
    m_color.setHsv(hue, m_color.saturation(), m_color.value());
    m_isDefault = false;
    showColor();
}

void CCabinetFillSetting::onSaturationValueChanged(int saturation, int value)
{
    m_color.setHsv(m_color.hue(), saturation, value);
    m_isDefault = false;
    showColor();
}

void CCabinetFillSetting::onBrightnessChanged(int value)
{
    onSaturationValueChanged(m_color.saturation(), value);
}

void CCabinetFillSetting::onPercentChanged(int percent)
{
    onBrightnessChanged(qRound(percent * CHsvColor::MaximumValue / 100.0));
}

void CCabinetFillSetting::onChannelChanged()
{
    m_color.setRgb({m_channels[Red]->value(), m_channels[Green]->value(), m_channels[Blue]->value()});
    m_isDefault = false;
    showColor();
}

void CCabinetFillSetting::showColor()
{
    const std::array<int, ChannelCount> rgb{m_color.rgb().red(), m_color.rgb().green(), m_color.rgb().blue()};
    for (size_t i = 0; i < m_channels.size(); ++i) {
        const QSignalBlocker blocker(m_channels[i]);
        m_channels[i]->setValue(rgb[i]);
    }
    const QSignalBlocker hueBlocker(m_hue);
    const QSignalBlocker brightnessBlocker(m_brightness);
    const QSignalBlocker percentBlocker(m_percent);
    m_hue->setValue(m_color.hue());
    m_brightness->setValue(m_color.value());
    m_percent->setValue(qRound(m_color.value() * 100.0 / CHsvColor::MaximumValue));
    m_panel->setColor(m_color);
    m_brightness->setStops({{0, Qt::black}, {1, QColor::fromHsv(m_color.hue(), m_color.saturation(), 255)}});
}
