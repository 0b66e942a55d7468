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

/// The device tree, below the button that detects devices. The modules work on what is selected here. GUI
/// thread.
class CDevicePanel final : public QWidget
{
    Q_OBJECT

public:
    /// @p detect is the button's action. All must outlive the panel.
    CDevicePanel(CDeviceServices &services, CDeviceTreeModel &model, QAction &detect,
                 QWidget *parent = nullptr);

    void focusTree();
    /// Selects this processor only.
    void selectProcessor(const QUuid &processor);
    /// Tells the modules what is selected. Changes of the selection are announced without this call.
    void announceSelection();
    /// The selected processor; null if none, several or a group are selected.
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
