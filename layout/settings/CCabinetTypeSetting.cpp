// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/CCabinetTypeSetting.h"

#include "layout/api/access/CHostAccess.h"
#include "layout/settings/CTypeSizeRule.h"
#include "layout/settings/TypeMenu.h"
#include "platform/widgets/CMessageBox.h"

#include <QFormLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr QSize TypeButtonSize(236, 24);
constexpr int RoomBesideTypeName = 40; // pixels: padding and the drop-down mark
} // namespace

CCabinetTypeSetting::CCabinetTypeSetting(const Cabinets &selected, Library library, QWidget *parent)
    : CDialog(tr("Cabinet type"), QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent)
    , m_selected(selected)
    , m_library(std::move(library))
{
    setModal(true);
    buildUi();
    connectSignals();
    showCommonType(m_library());
}

void CCabinetTypeSetting::buildUi()
{
    auto *heading = new QLabel(tr("Type selection"));
    heading->setObjectName(QStringLiteral("Highlight-NormalFont"));
    m_menu = new QMenu(this);
    m_typeButton = new QPushButton(tr("Please select type"));
    m_typeButton->setFixedSize(TypeButtonSize);
    m_typeButton->setStyleSheet(QStringLiteral("QPushButton{text-align: left;}"));
    m_typeButton->setMenu(m_menu);
    m_typeButton->setAutoDefault(false);
    m_typeSize = new QLabel(QStringLiteral("-"));

    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    form->setVerticalSpacing(8);
    form->addRow(tr("Type"), m_typeButton);
    form->addRow(tr("Type size"), m_typeSize);
    contentLayout()->addWidget(heading);
    contentLayout()->addLayout(form);
    setDefaultButton(QDialogButtonBox::Ok);
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(false);
    m_typeButton->setFocus();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void CCabinetTypeSetting::connectSignals()
{
    connect(m_menu, &QMenu::aboutToShow, this, &CCabinetTypeSetting::fillMenu);
    connect(m_menu, &QMenu::triggered, this, &CCabinetTypeSetting::onActionTriggered);
}

void CCabinetTypeSetting::fillMenu()
{
    qDeleteAll(m_menu->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly));
    m_menu->clear();
    TypeMenu::addLibrary(*m_menu, m_library());
    m_menu->addSeparator();
    m_menu->addAction(tr("Type library..."));
}

void CCabinetTypeSetting::onActionTriggered(const QAction *action)
{
    if (!action->data().isValid()) {
        showTypeLibrary();
        return;
    }
    const auto type = action->data().value<RcvTypeInfo>();
    if (CTypeSizeRule::check(type, this))
        take(type);
}

/// Begins with the type that all selected cabinets have.
void CCabinetTypeSetting::showCommonType(const QVector<SSettings::TypeLibrary::STreeNode> &nodes)
{
    const SMD5 first = m_selected.isEmpty() ? SMD5() : m_selected.first().type;
    const bool common = std::all_of(m_selected.begin(), m_selected.end(),
                                    [first](const auto &cabinet) { return cabinet.type == first; });
    for (const SSettings::TypeLibrary::STreeNode &node : nodes) {
        if (node.isFolder())
            showCommonType(node.children);
        else if (common && !first.isNull() && node.info.key == first && node.info.isValid())
            take(node.info);
    }
}

void CCabinetTypeSetting::take(const RcvTypeInfo &type)
{
    m_type = type;
    const int room = TypeButtonSize.width() - RoomBesideTypeName;
    QString text = m_typeButton->fontMetrics().elidedText(type.name, Qt::ElideRight, room);
    m_typeButton->setText(text.replace(QLatin1Char('&'), QLatin1String("&&")));
    m_typeButton->setToolTip(type.name);
    m_typeSize->setText(tr("%1x%2").arg(type.width).arg(type.height));
    buttonBox()->button(QDialogButtonBox::Ok)->setEnabled(true);
}

void CCabinetTypeSetting::showTypeLibrary()
{
    CHostAccess::call<&ILayoutInterfaceHandler::showTypeLibrary>(this);
}

bool CCabinetTypeSetting::fitsAllCabinets() const
{
    const QSize size(m_type.width, m_type.height);
    return std::all_of(m_selected.begin(), m_selected.end(),
                       [size](const auto &cabinet) { return cabinet.rect.size() == size; });
}

void CCabinetTypeSetting::accept()
{
    if (fitsAllCabinets() ||
        CMessageBox::question(this, tr("The size of the cabinet and the selected type does not match. Do you "
                                       "want to change the size of cabinet?")) == 0)
        CDialog::accept();
}
