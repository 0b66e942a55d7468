// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCustomCabinet.h"

#include "layout/api/records/LayoutLimits.h"
#include "platform/widgets/input/CClampedSpinBox.h"

#include <QFormLayout>
#include <QVBoxLayout>

namespace {

constexpr QSize CustomCabinetDialogSize(208, 151);

QSpinBox *customSideBox(int pixels)
{
    auto *box = new CSpinBox;
    box->setRange(LayoutLimits::SmallestCustomSide, LayoutLimits::LargestSide);
    box->setValue(pixels);
    box->setFixedWidth(140);
    return box;
}

} // namespace

CCustomCabinet::CCustomCabinet(const QSize &size, QWidget *parent)
    : CDialog(tr("Custom cabinet information"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
{
    buildUi(size);
}

void CCustomCabinet::buildUi(const QSize &size)
{
    m_width = customSideBox(size.width());
    m_height = customSideBox(size.height());
    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight);
    form->setHorizontalSpacing(4);
    form->setVerticalSpacing(8);
    form->addRow(tr("Width"), m_width);
    form->addRow(tr("Height"), m_height);
    contentLayout()->addLayout(form);
    contentLayout()->addStretch();
    setDefaultButton(QDialogButtonBox::Ok);
    setFixedSize(CustomCabinetDialogSize);
    m_width->selectAll();
}

QSize CCustomCabinet::cabinetSize() const
{
    return {m_width->value(), m_height->value()};
}
