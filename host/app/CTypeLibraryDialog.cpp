// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CTypeLibraryDialog.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr int ColumnGap = 12;
}

CTypeLibraryDialog::CTypeLibraryDialog(const CTypeLibrary &library, QWidget *parent)
    : CDialog(tr("Type library"), QDialogButtonBox::Close, parent)
{
    buildUi(library);
}

void CTypeLibraryDialog::buildUi(const CTypeLibrary &library)
{
    auto *tree = new QTreeWidget;
    tree->setHeaderLabels(
        {tr("Type"), tr("Pixels"), tr("Millimetres"), tr("Weight"), tr("Power max / avg"), tr("Receivers")});
    tree->setUniformRowHeights(true);
    for (const CTypeLibrary::STreeNode &node : library.nodes())
        tree->addTopLevelItem(item(node));
    tree->expandAll();
    for (int column = 0; column < tree->columnCount(); ++column) {
        tree->resizeColumnToContents(column);
        tree->setColumnWidth(column, tree->columnWidth(column) + ColumnGap);
    }
    contentLayout()->addWidget(tree);
    resize(800, 520);
}

QTreeWidgetItem *CTypeLibraryDialog::item(const CTypeLibrary::STreeNode &node)
{
    if (node.isFolder()) {
        auto *folder = new QTreeWidgetItem({node.name});
        for (const CTypeLibrary::STreeNode &child : node.children)
            folder->addChild(item(child));
        return folder;
    }
    const CTypeLibrary::RcvTypeInfo &info = node.info;
    const auto known = [](bool is, const QString &text) { return is ? text : QStringLiteral("-"); };
    return new QTreeWidgetItem(
        {node.name, tr("%1 × %2").arg(info.width).arg(info.height),
         known(!info.millimetres.isEmpty(),
               tr("%1 × %2").arg(info.millimetres.width()).arg(info.millimetres.height())),
         known(info.kilograms > 0, tr("%1 kg").arg(info.kilograms)),
         known(info.wattsMaximum > 0, tr("%1 / %2 W").arg(info.wattsMaximum).arg(info.wattsAverage)),
         QString::number(qMax(1, info.receivers.size()))});
}
