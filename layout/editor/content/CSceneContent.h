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

/// Holds what the scene shows: the port items of one processor, and the records read from them. GUI thread.
class CSceneContent final : public IItemIndex
{
public:
    CSceneContent(CGraphicsScene &scene, IEditorScene &editor, const IPortStates &states)
        : m_scene(scene)
        , m_editor(editor)
        , m_states(states)
    {
    }

    /// Builds all items from @p data. The content must be empty before.
    void build(const LayoutData &data);
    /// Whether @p data has the same processor and ports as what is shown, so that rebuild() is possible.
    bool canRebuild(const LayoutData &data) const;
    /// Replaces the content of the ports by commands of the running operation. Ports with equal content stay
    /// untouched.
    void rebuild(const LayoutData &data, CUndoRecorder &recorder);
    /// Adds the content of @p record to @p port by commands that can be undone; see CLayoutBuilder::fill().
    QVector<CGraphicsItemBase *> add(CGraphicsPortItem &port, const CabinetLayout::CabinetPort &record,
                                     CUndoRecorder &recorder);
    /// Replaces the groups and cabinets of the ports of @p records, without commands. Cabinets that stay keep
    /// their highlights. Only within a batch.
    void replace(const QVector<CabinetLayout::CabinetPort> &records);
    /// The ordinals of all items of @p ports; and gives them back to a port that has the same items again.
    CRecordOrder::Ordinals ordinals(const QVector<int> &ports) const;
    void setOrdinals(const QVector<int> &ports, const CRecordOrder::Ordinals &ordinals);
    /// Removes all items.
    void clear();

    /// Reads the layout of @p processor from the items into @p layout; unchanged ports share data with the
    /// previous result. Empty if @p processor is not shown.
    void read(CabinetLayout &layout, const QUuid &processor) const;
    /// Until releaseCabinets(), read() returns the cabinets of @p ports as they are now: a drag is not an
    /// edit before it ends.
    void holdCabinets(const QList<int> &ports);
    void releaseCabinets() { m_held.clear(); }
    bool isHeld(int port) const { return m_held.contains(port); }
    QVector<QRectF> heldAreas() const; ///< of their ports, as they are now
    /// The items of one port, or of all ports, have changed since they were read.
    void forgetRecord(int port) { m_records.remove(port); }
    void forgetRecords() { m_records.clear(); }

    const QUuid &processor() const { return m_processor; }

    QSize canvas() const { return m_canvas; }
    void setCanvas(const QSize &canvas) { m_canvas = canvas; }
    /// Marks all cabinets of a port, until another one or NoPort is named.
    void pointOut(int port);
    const CGraphicsPortItem *pointedOut() const { return portItem(m_pointedOut); } ///< null: none
    static constexpr int NoPort = -1;

    /// The union of the canvas and all ports.
    QRectF bounds() const;
    /// The rectangle around all cabinets, and their number. O(ports).
    QRect wall() const;
    int cabinetCount() const { return m_cabinetCount; }

    /// Returns an ordinal greater than all others.
    qint64 takeOrdinal() { return m_nextOrdinal++; }

    // IItemIndex
    const QVector<CGraphicsPortItem *> &portItems() const override { return m_ports; }
    CGraphicsPortItem *portItem(int index) const override;
    CGraphicsItemBase *editedItem(const QUuid &uuid) const override;
    void enterEdited(CGraphicsItemBase &item) override;
    void enterNew(CGraphicsItemBase &item) override;
    void leaveEdited(CGraphicsItemBase &item) override;

private:
    using Port = CabinetLayout::CabinetPort;

    const Port &record(const CGraphicsPortItem &port) const;
    QVector<CGraphicsPortItem *> itemsOf(const QVector<int> &ports) const;
    void empty(CGraphicsPortItem &port);

    CGraphicsScene &m_scene;
    IEditorScene &m_editor;
    const IPortStates &m_states;
    QSize m_canvas;
    QUuid m_processor;
    QVector<CGraphicsPortItem *> m_ports;
    int m_pointedOut = NoPort;
    int m_cabinetCount = 0;
    qint64 m_nextOrdinal = 0;
    CRecordOrder m_order;
    mutable QHash<int, Port> m_records; // by port index
    QHash<int, QVector<Port::CabinetGroup>> m_held;
};
