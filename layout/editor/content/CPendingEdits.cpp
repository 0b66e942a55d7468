// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CPendingEdits.h"

#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IItemIndex.h"

#include <algorithm>

namespace {

int depthOf(const CGraphicsGroupItem &group)
{
    int depth = 0;
    for (const CGraphicsGroupItem *around = group.groupItem(); around; around = around->groupItem())
        ++depth;
    return depth;
}

} // namespace

void CPendingEdits::noteMembersChanged(const CGraphicsGroupItem &group)
{
    m_groups.insert(group.uuid());
}

void CPendingEdits::notePortChanged(const CGraphicsPortItem &port)
{
    m_ports << port.port();
}

bool CPendingEdits::isEmpty() const
{
    return m_groups.isEmpty() && m_ports.isEmpty() && !m_selectionChanged && !m_highlightChanged &&
           !m_repaint;
}

void CPendingEdits::finish(IItemIndex &items) const
{
    fitGroups(items);
    for (const int index : m_ports) {
        if (CGraphicsPortItem *port = items.portItem(index)) {
            port->chain().finishLines();
            port->updateBounds();
        }
    }
}

void CPendingEdits::fitGroups(IItemIndex &items) const
{
    // Each group once, the innermost first: a group's bounds depend on those of its sub-groups.
    QSet<CGraphicsGroupItem *> groups;
    for (const QUuid &uuid : m_groups) {
        auto *group = static_cast<CGraphicsGroupItem *>(items.editedItem(uuid));
        for (; group && !groups.contains(group); group = group->groupItem())
            groups.insert(group);
    }
    QVector<QPair<int, CGraphicsGroupItem *>> byDepth;
    for (CGraphicsGroupItem *group : qAsConst(groups))
        byDepth << qMakePair(depthOf(*group), group);
    std::sort(byDepth.begin(), byDepth.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    for (const auto &entry : qAsConst(byDepth))
        entry.second->fitToMembers();
}
