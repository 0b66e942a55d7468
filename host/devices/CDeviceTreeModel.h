// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/ProcessorTree.h"

#include <QAbstractItemModel>

#include <vector>

class CDeviceTable;
struct SDevice;

/// The device tree: the headings "Projects" and "Devices", under them groups with their members and single
/// processors. GUI thread.
class CDeviceTreeModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role {
        UuidRole = Qt::UserRole + 1, ///< QUuid of a processor or group; null for a heading
        NameRole,                    ///< QString: the display text without the mark of unsaved edits
        NodeTypeRole,                ///< PrcTreeNodeType
        OnlineRole,                  ///< bool
        FiberRole,                   ///< bool: in fibre optic transceiver mode
        ModifiedRole,                ///< bool: has edits that are not saved
        ProjectRole,                 ///< bool: a project without device
        MembersRole                  ///< QList<QUuid>: the processors that selecting the node selects
    };

    explicit CDeviceTreeModel(const CDeviceTable &table, QObject *parent = nullptr);

    /// Reads the table again; a view keeps selection and expansion unless rows were added or removed.
    void refresh();
    /// The index of a processor or group; invalid if it has no row.
    QModelIndex indexOf(const QUuid &uuid) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct SNode
    {
        PrcTreeNodeType type = PrcTreeNodeType::Other;
        QUuid uuid;
        QString text;
        QString toolTip;
        int parent = -1; // place in m_nodes; -1: top level
        int row = 0;
        QVector<int> children;
        QList<QUuid> members;
        bool online = false;
        bool backup = false; // is the redundancy of another processor
        bool fiber = false;
        bool modified = false;
        bool project = false;
    };
    using Nodes = std::vector<SNode>;

    Nodes build() const;
    static SNode nodeOf(const SDevice &device);
    static QString nameAmong(const QList<SDevice> &devices, const SDevice &project);
    static int parentOf(const Nodes &nodes, const QUuid &group, int fallback);
    static int append(Nodes &nodes, int parent, SNode node);
    static bool sameShape(const Nodes &a, const Nodes &b);
    static bool sameLook(const SNode &a, const SNode &b);
    const SNode *node(const QModelIndex &index) const;
    static QVariant decoration(const SNode &node);

    static constexpr int HeadingCount = 2;

    const CDeviceTable &m_table;
    Nodes m_nodes; // the headings first
};
