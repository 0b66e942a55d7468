// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/content/CNumberQueue.h"
#include "layout/geometry/COverlapGrid.h"

#include <QSet>
#include <QTimer>
#include <QUuid>

#include <functional>

class CGraphicsPortItem;
class CSceneContent;

/// Finds the cabinets of a scene that overlap, lie outside the canvas or are not wired, and marks them. What
/// has changed is looked at in short turns of the event loop, so that no edit waits for it. Redundancy ports
/// are left out, as they repeat others. GUI thread.
class CLayoutFaults final
{
public:
    /// @p changed is called when other cabinets are faulty than before.
    CLayoutFaults(const CSceneContent &content, std::function<void()> changed);

    /// What these ports hold has changed.
    void notePorts(const QVector<int> &ports);
    /// Everything that is shown, and the canvas, may have changed.
    void noteAll();
    /// Nothing is shown any more.
    void clear();
    /// Looks at all that is noted before it returns.
    void finish();

    int count(CabinetFault fault) const;
    /// The cabinets with that fault.
    QVector<QUuid> cabinets(CabinetFault fault) const;

private:
    struct SKnown
    {
        int number; // in the grid
        int turn;   // the last one that has seen it
    };
    struct SPort
    {
        QHash<QUuid, SKnown> cabinets;
        int unwired = 0;
    };

    bool isDone() const;
    void work(int milliseconds);
    void workOnce();
    void move(int number, const QRect &rect);
    void look(int port);
    void keep(SPort &known, const CGraphicsPortItem &port);
    void dropUnseen(SPort &known);
    void judge(int number);

    const CSceneContent &m_content;
    std::function<void()> m_changed;
    QTimer m_timer;
    QSet<int> m_ports;          // to look at
    CNumberQueue m_moved;       // cabinets to move in the grid, or to remove from it
    QHash<int, QRect> m_places; // where to
    CNumberQueue m_touched;     // cabinets to judge
    int m_next = 0;             // of all cabinets, which are judged in turn up to the last one
    QHash<int, SPort> m_known;
    COverlapGrid m_grid;
    QVector<QUuid> m_uuids; // by number
    QSet<int> m_overlapping;
    QSet<int> m_outside;
    int m_turn = 0;
    QVector<int> m_told; // counts
};
