// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/data/ILayoutSource.h"
#include "layout/data/records/LayoutData.h"
#include "layout/data/records/PasteCache.h"
#include "layout/data/records/ProcessorTree.h"
#include "platform/widgets/CGraphicsScene.h"

#include <QHash>

class CGraphicsItemBase;
class CGraphicsPortItem;
class IPortStates;

/// The scene of the layout editor: a port item for each output port of the processor in view, with its
/// cabinets, groups and wiring lines. Turns records into items and items back into records. GUI thread.
class CCabinetGraphicsScene final : public CGraphicsScene, public ILayoutSource
{
    Q_OBJECT

public:
    /// @p ports must outlive the scene.
    explicit CCabinetGraphicsScene(const IPortStates &ports, QObject *parent = nullptr);
    ~CCabinetGraphicsScene() override;

    /// Rebuilds all items from @p data, the layout of @p processor, and selects those whose keys are in @p
    /// selected. A layout of another processor changes nothing.
    void setLayoutData(const ProcessorTree::ProcessorNode &processor, const LayoutData &data,
                       const QList<QUuid> &selected = {});
    /// Removes all items, for when no processor is in view.
    void clearLayout();

    void getLayoutData(CabinetLayout &layout, const QUuid &processor) const override;

    /// In ascending port index.
    const QVector<CGraphicsPortItem *> &portItems() const { return m_ports; }
    CGraphicsPortItem *portItem(int port) const; ///< null for an unknown index
    /// The cabinet or group with that identity, or null. O(1).
    CGraphicsItemBase *itemOf(const QUuid &uuid) const { return m_index.value(uuid, nullptr); }

public Q_SLOTS:
    void setCabinetLocked(int port, bool locked);
    void setCanvasSize(const QSize &size);
    void onNotifyProcessorStateChanged();
    void onNotifyCabinetColorChanged(int port, const QColor &color);

protected:
    void drawBackground(QPainter *painter, const QRectF &rect) override;

private:
    void updateContentRect();

    const IPortStates &m_portStates;
    QSize m_canvas;
    QUuid m_processor;
    QVector<CGraphicsPortItem *> m_ports;
    QHash<QUuid, CGraphicsItemBase *> m_index;
    mutable QHash<int, CabinetLayout::CabinetPort>
        m_records; // read from the items and unchanged since, by port index
};
