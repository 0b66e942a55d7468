// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/LayoutData.h"
#include "layout/editor/content/CRecordOrder.h"
#include "layout/editor/items/IItemIndex.h"

#include <QHash>

class CGraphicsScene;
class CUndoRecorder;
class IEditorScene;
class IPortStates;

/// What the scene shows: the port items of one processor and the records that were read from them. GUI
/// thread.
class CSceneContent final : public IItemIndex
{
public:
    CSceneContent(CGraphicsScene &scene, IEditorScene &editor, const IPortStates &states)
        : m_scene(scene)
        , m_editor(editor)
        , m_states(states)
    {
    }

    /// Builds all items from @p data; nothing may be shown before.
    void build(const LayoutData &data);
    /// Whether @p data is of the processor and the ports that are shown, so that it can be rebuilt in place.
    bool canRebuild(const LayoutData &data) const;
    /// Replaces what the ports hold by commands of the running operation; a port that holds the same is left
    /// alone.
    void rebuild(const LayoutData &data, CUndoRecorder &recorder);
    /// Adds what @p record holds to @p port, as commands that can be undone; see CLayoutBuilder::fill().
    QVector<CGraphicsItemBase *> add(CGraphicsPortItem &port, const CabinetLayout::CabinetPort &record,
                                     CUndoRecorder &recorder);
    /// Removes all items.
    void clear();

    /// The layout of @p processor as the items show it; ports that have not changed are shared with what was
    /// read before. Empty for a processor that is not shown.
    void read(CabinetLayout &layout, const QUuid &processor) const;
    /// From now on the cabinets of @p ports are read as they lie now, until they are released: a drag is no
    /// edit before it ends.
    void holdCabinets(const QList<int> &ports);
    void releaseCabinets() { m_held.clear(); }
    /// The port's items, or all, have changed since they were read.
    void forgetRecord(int port) { m_records.remove(port); }
    void forgetRecords() { m_records.clear(); }

    const QUuid &processor() const { return m_processor; }

    QSize canvas() const { return m_canvas; }
    void setCanvas(const QSize &canvas) { m_canvas = canvas; }
    /// The canvas and all ports.
    QRectF bounds() const;

    /// A place behind all others in the order of records.
    qint64 takeOrdinal() { return m_nextOrdinal++; }

    // IItemIndex
    const QVector<CGraphicsPortItem *> &portItems() const override { return m_ports; }
    CGraphicsPortItem *portItem(int index) const override;
    CGraphicsItemBase *editedItem(const QUuid &uuid) const override;
    void enterEdited(CGraphicsItemBase &item) override;
    void leaveEdited(CGraphicsItemBase &item) override;

private:
    using Port = CabinetLayout::CabinetPort;

    const Port &record(const CGraphicsPortItem &port) const;

    CGraphicsScene &m_scene;
    IEditorScene &m_editor;
    const IPortStates &m_states;
    QSize m_canvas;
    QUuid m_processor;
    QVector<CGraphicsPortItem *> m_ports;
    qint64 m_nextOrdinal = 0;
    CRecordOrder m_order;
    mutable QHash<int, Port> m_records; // by port index
    QHash<int, QVector<Port::CabinetGroup>> m_held;
};
