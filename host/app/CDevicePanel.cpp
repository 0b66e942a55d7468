// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/CDevicePanel.h"

#include "host/app/AppIcons.h"
#include "host/devices/CDeviceTreeModel.h"
#include "host/devices/services/CDeviceServices.h"

#include <QAction>
#include <QLabel>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

PrcTreeNodeType nodeType(const QModelIndex &index)
{
    return index.data(CDeviceTreeModel::NodeTypeRole).value<PrcTreeNodeType>();
}

QUuid nodeUuid(const QModelIndex &index)
{
    return index.data(CDeviceTreeModel::UuidRole).toUuid();
}

} // namespace

CDevicePanel::CDevicePanel(CDeviceServices &services, CDeviceTreeModel &model, QAction &detect,
                           QWidget *parent)
    : QWidget(parent)
    , m_services(services)
    , m_model(model)
{
    buildUi(detect);
    connectSignals();
    onRowsReset();
}

void CDevicePanel::buildUi(QAction &detect)
{
    setObjectName(QStringLiteral("DevicePanel"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(8);

    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("HasBackground"));
    button->setDefaultAction(&detect);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize({20, 20});
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setMinimumHeight(28);
    column->addWidget(button);

    m_hint = new QLabel(tr("No processors yet.\n\nDetect devices to find those on the network, or open a "
                           "project from the File menu."));
    m_hint->setWordWrap(true);
    m_hint->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_hint->setEnabled(false);
    m_hint->setMargin(8);
    column->addWidget(m_hint);

    m_tree = new QTreeView;
    m_tree->setObjectName(QStringLiteral("DeviceTree"));
    m_tree->setAccessibleName(tr("Devices"));
    m_tree->setModel(&m_model);
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->setTextElideMode(Qt::ElideRight);
    column->addWidget(m_tree, 1);
}

void CDevicePanel::connectSignals()
{
    connect(m_tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CDevicePanel::announceSelection);
    connect(m_tree, &QTreeView::customContextMenuRequested, this, &CDevicePanel::onMenuRequested);
    connect(&m_model, &QAbstractItemModel::modelReset, this, &CDevicePanel::onRowsReset);
}

/// Instead of a focus proxy, with which the Tab key passes over the button.
void CDevicePanel::focusTree()
{
    m_tree->setFocus();
}

void CDevicePanel::selectProcessor(const QUuid &processor)
{
    const QModelIndex index = m_model.indexOf(processor);
    if (!index.isValid())
        return;
    m_tree->setCurrentIndex(index);
    m_tree->scrollTo(index);
}

QUuid CDevicePanel::singleProcessor() const
{
    const QModelIndexList rows = m_tree->selectionModel()->selectedRows();
    if (rows.size() != 1 || nodeType(rows.first()) != PrcTreeNodeType::Processor)
        return {};
    return nodeUuid(rows.first());
}

void CDevicePanel::announceSelection()
{
    QList<QUuid> processors;
    PrcTreeNodeType type = PrcTreeNodeType::Processor; // also when none is selected
    m_selectedNodes.clear();
    for (const QModelIndex &index : m_tree->selectionModel()->selectedRows()) {
        m_selectedNodes << nodeUuid(index);
        type = m_selectedNodes.size() == 1 ? nodeType(index) : PrcTreeNodeType::Processor;
        for (const QUuid &member : index.data(CDeviceTreeModel::MembersRole).value<QList<QUuid>>()) {
            if (!processors.contains(member))
                processors << member;
        }
    }
    m_services.select(processors, type);
    Q_EMIT notifySelectionChanged();
}

void CDevicePanel::onRowsReset()
{
    m_tree->expandAll();
    QItemSelection selection;
    for (const QUuid &node : qAsConst(m_selectedNodes)) {
        const QModelIndex index = m_model.indexOf(node);
        if (index.isValid())
            selection.select(index, index);
    }
    const bool lost = selection.indexes().size() != m_selectedNodes.size();
    {
        const QSignalBlocker blocker(m_tree->selectionModel());
        m_tree->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    }
    m_tree->viewport()->update();
    if (lost)
        announceSelection();
    updateHint();
}

void CDevicePanel::onMenuRequested(const QPoint &position)
{
    const QModelIndex index = m_tree->indexAt(position);
    if (index.isValid() && nodeType(index) == PrcTreeNodeType::Processor)
        Q_EMIT notifyMenuRequested(nodeUuid(index), m_tree->viewport()->mapToGlobal(position));
}

void CDevicePanel::updateHint()
{
    const bool empty = m_services.table().nodes().isEmpty();
    m_hint->setVisible(empty);
}
