// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetInformation.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize InformationDialogSize(351, 318);
constexpr int InformationFieldWidth = 210;
constexpr QMargins InformationMargins(8, 12, 8, 12);

QString unknownValue()
{
    return QStringLiteral("-");
}

QLineEdit *informationField(const QString &name, const QString &value)
{
    auto *field = new QLineEdit(value);
    field->setReadOnly(true); // so that its text can be copied
    field->setAccessibleName(name);
    field->setFixedWidth(InformationFieldWidth);
    field->setCursorPosition(0);
    return field;
}

} // namespace

CCabinetInformation::CCabinetInformation(const Cabinets &selected, const TypeLookup &typeOf, QWidget *parent)
    : CDialog(tr("Cabinet information"), QDialogButtonBox::Ok, parent)
{
    buildUi(QStringList(QString::number(selected.size())) + commonValues(selected, typeOf));
}

void CCabinetInformation::buildUi(const QStringList &values)
{
    const QStringList names{tr("Count"),           tr("Cabinet type"),      tr("Resolution"), tr("Size"),
                            tr("Working voltage"), tr("Power consumption"), tr("Weight")};
    auto *form = new QFormLayout;
    form->setHorizontalSpacing(6);
    form->setVerticalSpacing(12);
    for (int row = 0; row < names.size(); ++row)
        form->addRow(names[row], informationField(names[row], values[row]));
    contentLayout()->addLayout(form);
    contentLayout()->addStretch();
    setDefaultButton(QDialogButtonBox::Ok);
    buttonBox()->button(QDialogButtonBox::Ok)->setFocus();
    layout()->setContentsMargins(InformationMargins); // the longest name needs the room
    setFixedSize(InformationDialogSize);
}

QStringList CCabinetInformation::valuesOf(const RcvTypeInfo &type)
{
    const auto known = [](bool is, const QString &text) { return is ? text : unknownValue(); };
    return {known(!type.name.isEmpty(), type.name),
            known(type.width > 0 && type.height > 0, tr("%1x%2").arg(type.width).arg(type.height)),
            known(!type.millimetres.isEmpty(),
                  tr("%1mm x %2mm").arg(type.millimetres.width()).arg(type.millimetres.height())),
            known(type.voltsMinimum > 0 && type.voltsMaximum > 0,
                  tr("%1V ~ %2V").arg(type.voltsMinimum).arg(type.voltsMaximum)),
            known(type.wattsMaximum > 0, tr("%1W").arg(type.wattsMaximum)),
            known(type.kilograms > 0, tr("%1Kg").arg(type.kilograms))};
}

QStringList CCabinetInformation::commonValues(const Cabinets &selected, const TypeLookup &typeOf)
{
    QMap<SMD5, RcvTypeInfo> types;
    RcvTypeInfo last;
    QStringList common;
    for (const CabinetLayout::CabinetPort::Cabinet &cabinet : selected) {
        if (!types.contains(cabinet.type))
            types[cabinet.type] = cabinet.type.isNull() ? RcvTypeInfo() : typeOf(cabinet.type);
        RcvTypeInfo type = types[cabinet.type];
        if (!type.isValid()) { // the size in pixels is known from the cabinet itself
            type = {};
            type.width = cabinet.rect.width();
            type.height = cabinet.rect.height();
        }
        if (!common.isEmpty() && type == last)
            continue; // as for most cabinets in a large selection
        last = type;
        const QStringList values = valuesOf(type);
        for (int row = 0; row < common.size(); ++row) {
            if (common[row] != values[row])
                common[row] = unknownValue();
        }
        if (common.isEmpty())
            common = values;
    }
    if (common.isEmpty())
        return valuesOf({});
    if (types.size() > 1)
        common.first() = tr("Multiple Type");
    return common;
}
