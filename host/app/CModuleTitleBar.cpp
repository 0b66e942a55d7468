// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CModuleTitleBar.h"

#include "host/app/AppIcons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace {
constexpr int RowHeight = 30; // pixels
}

CModuleTitleBar::CModuleTitleBar(const QString &title, QWidget *parent)
    : QFrame(parent)
{
    buildUi(title);
    connectSignals();
    onLockToggled(false);
    onCollapseToggled(false);
}

void CModuleTitleBar::buildUi(const QString &title)
{
    setObjectName(QStringLiteral("ModuleTitleBar"));
    setFixedHeight(RowHeight);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 2, 8, 2);
    row->setSpacing(8);
    auto *name = new QLabel(title);
    QFont bold = name->font();
    bold.setBold(true);
    name->setFont(bold);
    row->addWidget(name);
    m_besideTitle = new QHBoxLayout;
    row->addLayout(m_besideTitle, 1);
    m_lock = addButton("LockButton", "editing");
    m_collapse = addButton("CollapseButton", "collapse");
}

QToolButton *CModuleTitleBar::addButton(const char *objectName, const char *icon)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(objectName));
    button->setIcon(AppIcons::icon(icon));
    button->setIconSize({20, 20});
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setVisible(false);
    layout()->addWidget(button);
    return button;
}

void CModuleTitleBar::connectSignals()
{
    connect(m_lock, &QToolButton::toggled, this, &CModuleTitleBar::onLockToggled);
    connect(m_collapse, &QToolButton::toggled, this, &CModuleTitleBar::onCollapseToggled);
}

void CModuleTitleBar::showBesideTitle(QWidget *widget)
{
    m_besideTitle->addWidget(widget);
}

void CModuleTitleBar::showLock()
{
    m_lock->setVisible(true);
}

void CModuleTitleBar::showCollapse()
{
    m_collapse->setVisible(true);
}

void CModuleTitleBar::setCollapsed(bool collapsed)
{
    m_collapse->setChecked(collapsed);
}

void CModuleTitleBar::onLockToggled(bool locked)
{
    m_lock->setToolTip(locked ? tr("Unlock: allow edits again") : tr("Lock: prevent edits"));
    m_lock->setAccessibleName(tr("Lock"));
    Q_EMIT notifyLockToggled(locked);
}

void CModuleTitleBar::onCollapseToggled(bool collapsed)
{
    m_collapse->setToolTip(collapsed ? tr("Show the side panel") : tr("Hide the side panel"));
    m_collapse->setAccessibleName(tr("Hide the side panel"));
    Q_EMIT notifyCollapseToggled(collapsed);
}
