// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetParaSave.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/settings/TypeMenu.h"
#include "platform/widgets/CMessageBox.h"
#include "platform/widgets/input/CClampedSpinBox.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int ParameterFieldWidth = 238;
constexpr double UsualGamma = 2.8; // of most walls
} // namespace

CCabinetParaSave::CCabinetParaSave(const Cabinets &cabinets, const Nodes &library, QWidget *parent)
    : CDialog(tr("Save parameters"), QDialogButtonBox::Save | QDialogButtonBox::Cancel, parent)
    , m_cabinets(cabinets)
    , m_type(new QComboBox)
    , m_gamma(new CDoubleSpinBox)
    , m_note(new QLabel(tr("With a custom gamma table, the gamma value cannot be set.")))
{
    buildUi(library);
    connectSignals();
    chooseCommonType();
    onTypeChanged();
}

void CCabinetParaSave::buildUi(const Nodes &library)
{
    m_type->setFixedWidth(ParameterFieldWidth);
    m_type->setPlaceholderText(tr("Please select type"));
    addTypes(library);
    m_gamma->setDecimals(1);
    m_gamma->setRange(1.0, 4.0);
    m_gamma->setSingleStep(0.1);
    m_gamma->setValue(UsualGamma);
    m_gamma->setFixedWidth(ParameterFieldWidth);
    m_note->setObjectName(QStringLiteral("Note"));
    m_note->setWordWrap(true);
    m_note->setFixedWidth(ParameterFieldWidth);
    QSizePolicy policy = m_note->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // otherwise the dialog would change its size
    m_note->setSizePolicy(policy);

    auto *form = new QFormLayout;
    form->setVerticalSpacing(8);
    form->addRow(tr("Type"), m_type);
    form->addRow(tr("Gamma"), m_gamma);
    form->addRow(QString(), m_note);
    contentLayout()->addLayout(form);
    setDefaultButton(QDialogButtonBox::Save);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void CCabinetParaSave::addTypes(const Nodes &nodes)
{
    for (const SSettings::TypeLibrary::STreeNode &node : nodes) {
        if (node.isFolder())
            addTypes(node.children);
        else if (node.info.isValid())
            m_type->addItem(TypeMenu::icon(node.info), node.info.name, QVariant::fromValue(node.info));
    }
}

void CCabinetParaSave::connectSignals()
{
    connect(m_type, qOverload<int>(&QComboBox::currentIndexChanged), this, &CCabinetParaSave::onTypeChanged);
}

void CCabinetParaSave::chooseCommonType()
{
    m_type->setCurrentIndex(-1);
    const SMD5 first = m_cabinets.isEmpty() ? SMD5() : m_cabinets.first().type;
    const bool common = std::all_of(m_cabinets.begin(), m_cabinets.end(),
                                    [first](const auto &cabinet) { return cabinet.type == first; });
    for (int i = 0; common && i < m_type->count(); ++i) {
        if (m_type->itemData(i).value<RcvTypeInfo>().key == first)
            m_type->setCurrentIndex(i);
    }
}

void CCabinetParaSave::onTypeChanged()
{
    const auto type = m_type->currentData().value<RcvTypeInfo>();
    m_gamma->setEnabled(!type.customGamma);
    m_note->setVisible(type.customGamma);
    buttonBox()->button(QDialogButtonBox::Save)->setEnabled(type.isValid());
}

void CCabinetParaSave::accept()
{
    using Host = ILayoutInterfaceHandler;
    const bool onBackup =
        CHostAccess::call([this](const Host &host) { return !host.areOnPrimaryPorts(m_cabinets); });
    if (onBackup) {
        CMessageBox::warning(this, tr("Unable to save, please make sure the cabinets are connected to "
                                      "primary output ports."));
        return;
    }
    const SMD5 type = m_type->currentData().value<RcvTypeInfo>().key;
    if (!CHostAccess::call<&Host::sendCabinetParameters>(m_cabinets, type, m_gamma->value())) {
        CMessageBox::warning(this, tr("Save failed."), CHostAccess::call<&Host::lastError>());
        return;
    }
    CMessageBox::information(this, tr("Save successful."));
    CDialog::accept();
}
