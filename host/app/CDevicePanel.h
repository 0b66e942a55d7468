// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QUuid>
#include <QWidget>

class CDeviceServices;
class CDeviceTreeModel;
class QAction;
class QItemSelection;
class QLabel;
class QTreeView;

/// The device tree with the button that detects devices above it. What is selected here is what the modules
/// work on. GUI thread.
class CDevicePanel final : public QWidget
{
    Q_OBJECT

public:
    /// @p detect is what the button does; the other two outlive the panel.
    CDevicePanel(CDeviceServices &services, CDeviceTreeModel &model, QAction &detect,
                 QWidget *parent = nullptr);

    /// Selects one processor, nothing else.
    void selectProcessor(const QUuid &processor);
    /// Tells the modules what is selected; each change does so by itself.
    void announceSelection();
    /// The processor that is selected alone; null for none, several or a group.
    QUuid singleProcessor() const;

Q_SIGNALS:
    void notifySelectionChanged();
    /// The user asks for the commands of a processor.
    void notifyMenuRequested(const QUuid &processor, const QPoint &globalPosition);

private:
    void buildUi(QAction &detect);
    void connectSignals();
    void onRowsReset();
    void onMenuRequested(const QPoint &position);
    void updateHint();

    CDeviceServices &m_services;
    CDeviceTreeModel &m_model;
    QTreeView *m_tree = nullptr;
    QLabel *m_hint = nullptr;     ///< while there is no processor
    QList<QUuid> m_selectedNodes; ///< processors and groups; survives a rebuilt tree
};
