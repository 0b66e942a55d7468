// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/settings/TypeMenu.h"

#include "layout/resources/LayoutResources.h"

#include <QIcon>
#include <QMenu>

namespace {

QString withoutMnemonic(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

QIcon TypeMenu::icon(const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type)
{
    initLayoutResources();
    const bool several = type.kind == SSettings::TypeLibrary::STreeNode::RcvTypeInfo::MultiReceiver;
    return QIcon(several ? QStringLiteral(":/Image/SettingArea/TypeLibrary/product-multi.svg")
                         : QStringLiteral(":/Image/SettingArea/TypeLibrary/product-single.svg"));
}

QAction *TypeMenu::addType(QMenu &menu, const SSettings::TypeLibrary::STreeNode::RcvTypeInfo &type,
                           const QString &text)
{
    QAction *action = menu.addAction(icon(type), withoutMnemonic(text));
    action->setData(QVariant::fromValue(type));
    action->setEnabled(!type.damaged);
    return action;
}

void TypeMenu::addLibrary(QMenu &menu, const QVector<SSettings::TypeLibrary::STreeNode> &nodes)
{
    for (const SSettings::TypeLibrary::STreeNode &node : nodes) {
        if (!node.isFolder()) {
            // What follows the tab stands in a column of its own.
            addType(
                menu, node.info,
                QStringLiteral("%1\t%2x%3").arg(node.info.name).arg(node.info.width).arg(node.info.height));
            continue;
        }
        QMenu *folder = menu.addMenu(withoutMnemonic(node.name));
        folder->setEnabled(!node.children.isEmpty());
        addLibrary(*folder, node.children);
    }
}
