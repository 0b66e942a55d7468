// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QSet>
#include <QUuid>
#include <QVector>

class CGraphicsGroupItem;
class CGraphicsPortItem;
class IItemIndex;

/// Holds what items have reported since the last batch ended, and does the resulting work once: bounds of
/// groups, routes of wires, bounds of ports. Keeps identities, not pointers. GUI thread.
class CPendingEdits final
{
public:
    void noteMembersChanged(const CGraphicsGroupItem &group);
    void notePortChanged(const CGraphicsPortItem &port);
    void noteSelection() { m_selectionChanged = true; }
    void noteSelectedMoved() { m_selectedMoved = true; }
    void noteHighlight() { m_highlightChanged = true; }
    void noteRepaint() { m_repaint = true; }

    bool isEmpty() const;
    bool isSelectionChanged() const { return m_selectionChanged; }
    bool isSelectedMoved() const { return m_selectedMoved; }
    bool isHighlightChanged() const { return m_highlightChanged; }
    bool isRepaint() const { return m_repaint; } ///< of everything
    const QVector<int> &ports() const { return m_ports; }

    /// Does the pending work. Skips ports that @p items no longer knows.
    void finish(IItemIndex &items) const;

private:
    void fitGroups(IItemIndex &items) const;

    QSet<QUuid> m_groups;
    QVector<int> m_ports;
    bool m_selectionChanged = false;
    bool m_selectedMoved = false;
    bool m_highlightChanged = false;
    bool m_repaint = false;
};
