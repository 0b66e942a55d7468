// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class CGraphicsPortItem;
class CUndoRecorder;

/// Records how groups are formed and dissolved, and how items are removed. The caller checks locks.
class CGroupEditing final
{
public:
    explicit CGroupEditing(CUndoRecorder &recorder)
        : m_recorder(recorder)
    {
    }

    /// Forms a group of @p members, which are direct children of @p port.
    void group(CGraphicsPortItem &port, const QVector<CGraphicsItemBase *> &members, qint64 ordinal);
    /// Dissolves a group; its members become direct children of the port.
    void ungroup(CGraphicsGroupItem &group);
    /// Dissolves the group and all its sub-groups.
    void ungroupAll(CGraphicsGroupItem &group);
    /// Removes @p cabinets of a port; groups that lose their last member are removed, too.
    void remove(CGraphicsPortItem &port, const QVector<CGraphicsCabinetItem *> &cabinets);
    /// Removes everything from @p port: wiring, groups, cabinets.
    void empty(CGraphicsPortItem &port);

private:
    CUndoRecorder &m_recorder;
};
