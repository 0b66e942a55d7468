// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CDeviceTreeModel.h"

#include "host/devices/services/CDeviceTable.h"

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QPainter>

#include <algorithm>

namespace {
constexpr int IconSide = 16; // pixels, as in views
}

CDeviceTreeModel::CDeviceTreeModel(const CDeviceTable &table, QObject *parent)
    : QAbstractItemModel(parent)
    , m_table(table)
    , m_nodes(build())
{
}

int CDeviceTreeModel::append(Nodes &nodes, int parent, SNode node)
{
    const int place = static_cast<int>(nodes.size());
    node.parent = parent;
    if (parent < 0) {
        node.row = place; // headings come before all other nodes
    } else {
        QVector<int> &siblings = nodes[static_cast<size_t>(parent)].children;
        node.row = siblings.size();
        siblings << place;
    }
    nodes.push_back(std::move(node));
    return place;
}

CDeviceTreeModel::SNode CDeviceTreeModel::nodeOf(const SDevice &device)
{
    SNode node;
    node.type = PrcTreeNodeType::Processor;
    node.uuid = device.node.uuid;
    node.members = {device.node.uuid};
    node.online = device.node.online;
    node.backup = !device.settings.primary.isNull();
    node.fiber = device.node.fiberTransceiver;
    node.modified = device.isModified();
    node.project = device.project;
    node.text = device.node.name;
    const QString state = device.project ? (device.file.isEmpty() ? tr("Not saved to a file") : device.file)
                          : node.online  ? tr("Online")
                                         : tr("Offline");
    node.toolTip = device.project ? QStringLiteral("%1\n%2\n%3").arg(node.text, device.node.model, state)
                                  : QStringLiteral("%1\n%2 %3\n%4")
                                        .arg(device.node.displayText(), device.node.model,
                                             device.node.serialNumber, state);
    if (!device.readOnly.isEmpty())
        node.toolTip += QLatin1Char('\n') + device.readOnly;
    if (node.fiber)
        node.toolTip += QLatin1Char('\n') + tr("Fiber Optic Transceiver Mode is on");
    return node;
}

/// A project's name; if others have the same name, with its file, and if that is equal, too, with its folder.
QString CDeviceTreeModel::nameAmong(const QList<SDevice> &devices, const SDevice &project)
{
    const QFileInfo file(project.file);
    bool sameName = false;
    bool sameFile = false;
    for (const SDevice &other : devices) {
        if (!other.project || other.node.uuid == project.node.uuid || other.node.name != project.node.name)
            continue;
        sameName = true;
        sameFile = sameFile || QFileInfo(other.file).fileName() == file.fileName();
    }
    if (!sameName || project.file.isEmpty())
        return project.node.name;
    const QString shown =
        sameFile ? file.dir().dirName() + QLatin1Char('/') + file.fileName() : file.fileName();
    return tr("%1 [%2]").arg(project.node.name, shown);
}

CDeviceTreeModel::Nodes CDeviceTreeModel::build() const
{
    Nodes nodes;
    SNode heading;
    heading.text = tr("Projects");
    const int projects = append(nodes, -1, heading);
    heading.text = tr("Devices");
    const int devices = append(nodes, -1, heading);
    const QList<SDevice> known = m_table.devices();
    for (const CDeviceTable::SGroup &group : m_table.groups()) {
        SNode node;
        node.type = PrcTreeNodeType::Group;
        node.uuid = group.uuid;
        node.text = group.name;
        const bool hasMembers = std::any_of(known.begin(), known.end(), [&group](const SDevice &device) {
            return device.group == group.uuid;
        });
        if (hasMembers)
            append(nodes, devices, node);
    }
    for (const SDevice &device : known) {
        const int parent = device.project ? projects : parentOf(nodes, device.group, devices);
        SNode &parentNode = nodes[static_cast<size_t>(parent)];
        if (parentNode.type == PrcTreeNodeType::Group) {
            parentNode.members << device.node.uuid;
            parentNode.online = parentNode.online || device.node.online;
            parentNode.fiber = parentNode.fiber || device.node.fiberTransceiver;
        }
        SNode node = nodeOf(device);
        if (device.project)
            node.text = nameAmong(known, device);
        if (!device.readOnly.isEmpty())
            node.text = tr("%1 (read only)").arg(node.text);
        append(nodes, parent, node);
    }
    return nodes;
}

int CDeviceTreeModel::parentOf(const Nodes &nodes, const QUuid &group, int fallback)
{
    const auto found = std::find_if(nodes.begin(), nodes.end(), [&group](const SNode &node) {
        return node.type == PrcTreeNodeType::Group && node.uuid == group;
    });
    return found == nodes.end() ? fallback : static_cast<int>(found - nodes.begin());
}

bool CDeviceTreeModel::sameShape(const Nodes &a, const Nodes &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const SNode &x, const SNode &y) {
        return x.type == y.type && x.uuid == y.uuid && x.parent == y.parent;
    });
}

bool CDeviceTreeModel::sameLook(const SNode &a, const SNode &b)
{
    return a.text == b.text && a.toolTip == b.toolTip && a.members == b.members && a.online == b.online &&
           a.backup == b.backup && a.fiber == b.fiber && a.modified == b.modified && a.project == b.project;
}

void CDeviceTreeModel::refresh()
{
    Nodes next = build();
    if (!sameShape(m_nodes, next)) {
        beginResetModel();
        m_nodes = std::move(next);
        endResetModel();
        return;
    }
    m_nodes.swap(next);
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        if (sameLook(m_nodes[i], next[i]))
            continue;
        const QModelIndex changed = createIndex(m_nodes[i].row, 0, static_cast<quintptr>(i));
        Q_EMIT dataChanged(changed, changed);
    }
}

QModelIndex CDeviceTreeModel::indexOf(const QUuid &uuid) const
{
    for (size_t i = 0; i < m_nodes.size(); ++i) {
        if (!uuid.isNull() && m_nodes[i].uuid == uuid)
            return createIndex(m_nodes[i].row, 0, static_cast<quintptr>(i));
    }
    return {};
}

const CDeviceTreeModel::SNode *CDeviceTreeModel::node(const QModelIndex &index) const
{
    return index.isValid() ? &m_nodes[static_cast<size_t>(index.internalId())] : nullptr;
}

QModelIndex CDeviceTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const SNode *above = node(parent);
    return createIndex(row, column, static_cast<quintptr>(above ? above->children.at(row) : row));
}

QModelIndex CDeviceTreeModel::parent(const QModelIndex &child) const
{
    const SNode *below = node(child);
    if (!below || below->parent < 0)
        return {};
    const auto place = static_cast<size_t>(below->parent);
    return createIndex(m_nodes[place].row, 0, static_cast<quintptr>(place));
}

int CDeviceTreeModel::rowCount(const QModelIndex &parent) const
{
    const SNode *above = node(parent);
    return above ? above->children.size() : HeadingCount;
}

int CDeviceTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant CDeviceTreeModel::decoration(const SNode &node)
{
    if (node.type != PrcTreeNodeType::Processor)
        return {};
    const QIcon drawn(QStringLiteral(":/Image/Target/Processor/%1%2_normal.svg")
                          .arg(node.backup ? QStringLiteral("backup-") : QString(),
                               node.online ? QStringLiteral("online") : QStringLiteral("offline")));
    QIcon icon; // the style would tint the picture of a selected row in the colour that is behind it
    QPixmap picture = drawn.pixmap(IconSide, IconSide);
    icon.addPixmap(picture, QIcon::Normal);
    if (!node.online) { // its grey could hardly be seen there
        QPainter painter(&picture);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(QRect(0, 0, IconSide, IconSide), Qt::white);
    }
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

QVariant CDeviceTreeModel::data(const QModelIndex &index, int role) const
{
    const SNode *shown = node(index);
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shown->modified ? shown->text + QStringLiteral(" *") : shown->text;
    case NameRole:
        return shown->text;
    case Qt::ToolTipRole:
        return shown->toolTip.isEmpty() ? QVariant() : shown->toolTip;
    case Qt::DecorationRole:
        return decoration(*shown);
    case UuidRole:
        return QVariant::fromValue(shown->uuid);
    case NodeTypeRole:
        return QVariant::fromValue(shown->type);
    case OnlineRole:
        return shown->online;
    case FiberRole:
        return shown->fiber;
    case ModifiedRole:
        return shown->modified;
    case ProjectRole:
        return shown->project;
    case MembersRole:
        return QVariant::fromValue(shown->members);
    default:
        return {};
    }
}

Qt::ItemFlags CDeviceTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const bool heading = node(index)->type == PrcTreeNodeType::Other; // cannot be selected
    return heading ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}
