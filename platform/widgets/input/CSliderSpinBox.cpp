// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/widgets/input/CSliderSpinBox.h"

#include "platform/widgets/input/CClampedSpinBox.h"

#include <QHBoxLayout>
#include <QSlider>

namespace {
constexpr int SliderSpinBoxMaximum = 100;
constexpr int RoomForArrowButtons = 60; // pixels: the buttons and three digits with a suffix
} // namespace

CSliderSpinBox::CSliderSpinBox(int sliderWidth, int spinBoxWidth, QWidget *parent)
    : QWidget(parent)
    , m_slider(new QSlider(Qt::Horizontal))
    , m_spinBox(new CSpinBox)
{
    buildUi(sliderWidth, spinBoxWidth);
    connectSignals();
    setRange(0, SliderSpinBoxMaximum);
}

void CSliderSpinBox::buildUi(int sliderWidth, int spinBoxWidth)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(m_slider);
    row->addWidget(m_spinBox);
    m_slider->setFixedWidth(sliderWidth);
    m_spinBox->setFixedWidth(spinBoxWidth);
    if (spinBoxWidth < RoomForArrowButtons)
        m_spinBox->setButtonSymbols(QAbstractSpinBox::NoButtons);
    setFocusProxy(m_slider);
}

void CSliderSpinBox::connectSignals()
{
    connect(m_slider, &QSlider::valueChanged, m_spinBox, &QSpinBox::setValue);
    connect(m_spinBox, qOverload<int>(&QSpinBox::valueChanged), m_slider, &QSlider::setValue);
    // Each control sets the other, and that ends when both are equal; so it is enough to connect to one of
    // them.
    connect(m_slider, &QSlider::valueChanged, this, &CSliderSpinBox::notifyValueChanged);
}

void CSliderSpinBox::setRange(int minimum, int maximum)
{
    m_slider->setRange(minimum, maximum);
    m_spinBox->setRange(minimum, maximum);
}

void CSliderSpinBox::setSuffix(const QString &suffix)
{
    m_spinBox->setSuffix(suffix);
}

void CSliderSpinBox::setName(const QString &name)
{
    m_slider->setAccessibleName(name);
    m_spinBox->setAccessibleName(name);
}

int CSliderSpinBox::value() const
{
    return m_slider->value();
}

void CSliderSpinBox::setValue(int value)
{
    m_slider->setValue(value);
}
