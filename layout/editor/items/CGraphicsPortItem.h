// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/drawing/CPortLabel.h"
#include "layout/editor/items/CPortChain.h"
#include "layout/editor/items/CPortOverview.h"
#include "layout/editor/items/ItemKinds.h"
#include "platform/graphics/CItemChangeBlocker.h"

#include <QBrush>
#include <QGraphicsObject>

#include <optional>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class IEditorScene;
class IPortStates;

/// An output port on the canvas: parent of its cabinets, groups and wiring lines, and owner of its chain. It
/// is positioned at the scene's origin and draws nothing itself.
class CGraphicsPortItem final : public QGraphicsObject, public CChangeBlockable
{
    Q_OBJECT

public:
    using Port = CabinetLayout::CabinetPort;

    /// Shows the port of @p record; its groups are not built here. Colours, locks and redundancy come from
    /// @p states. @p editor is the scene in which the port is edited.
    CGraphicsPortItem(const Port &record, const IPortStates &states, IEditorScene &editor);

    int type() const override { return PortItemKind; }
    QRectF boundingRect() const override;
    /// The area of its children, also while the port is skipped in drawing.
    const QRectF &bounds() const { return m_bounds; }
    /// The area of its cabinets alone; wires may stick out of it.
    const QRectF &wall() const;
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}

    int port() const { return m_state.index; }
    CPortChain &chain() { return m_chain; }
    const CPortChain &chain() const { return m_chain; }

    IEditorScene &editor() const { return m_editor; }

    /// All cabinets inside @p group, or of the whole port if null, including sub-groups.
    QVector<CGraphicsCabinetItem *> cabinets(const CGraphicsGroupItem *group) const;

    /// The port's group items; with @p outermostOnly only those that are in no other group.
    QVector<CGraphicsGroupItem *> groups(bool outermostOnly) const;
    QVector<CGraphicsGroupItem *> selectedGroups(bool outermostOnly) const;
    /// The cabinets and groups that are direct children of the port.
    QVector<CGraphicsItemBase *> topItems() const;

    /// Whether the store marks the port as locked.
    bool isLocked() const;
    bool isRedundant() const;
    /// Whether the port refuses edits, because it is locked or is a redundancy port.
    bool isClosed() const { return isLocked() || isRedundant(); }
    bool resetsHighlightOnEdit() const;

    /// What the cabinets show of the port's state; updated from the store by refreshState().
    bool isShownLocked() const { return m_state.locked; }
    bool isShownRedundant() const { return m_state.redundancy == Port::Redundant; }
    bool marksCustomCabinets() const { return m_marksCustom; }
    void setShownLocked(bool locked);
    void setShownLoad(qint64 load);
    QColor fill() const { return m_fill.color(); } ///< of its cabinets
    void setColor(const QColor &color);
    /// Reads colour, lock, redundancy and options from the store again.
    void refreshState();

    /// Reports to the scene that children, chain or state have changed since they were last read. Reports
    /// once, until takeNote() is called.
    void noteChanged();
    void noteWiringChanged();
    void takeNote();

    /// The children are the same as before, but look different.
    void noteLookChanged() { m_overview.forget(); }
    void noteSelectionChanged() { m_overview.forgetSelection(); } ///< of its items

    /// What is shown of the port above its cabinets.
    SPortLook look() const;
    /// Repaints what look() covered and covers when it has changed since the last call.
    void updateLabel();

    /// The port as a compact list, updated from its items. Valid until the next edit.
    const CPortOverview &overview() const;
    /// While true, the frame being drawn skips the port and all its children.
    void setPassedOver(bool passedOver) { m_passedOver = passedOver; }

    /// Sets its bounds to the children's rectangle. Called once per operation.
    void updateBounds();

    /// Takes over the port's own state from @p record; groups are ignored.
    void setState(const Port &record);
    /// The port's record without its groups.
    const Port &state() const { return m_state; }

    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

Q_SIGNALS:
    /// The area covered by the children has changed; at most once per operation.
    void childItemPosChanged();

protected:
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    void adopt(QGraphicsItem &child);
    void colorChildren(const QGraphicsItem &parent);

    const IPortStates &m_states;
    IEditorScene &m_editor;
    Port m_state;
    QBrush m_fill; // shared by all its cabinets
    bool m_marksCustom = false;
    QRectF m_bounds;
    mutable std::optional<QRectF> m_wall; // not known after an edit, until somebody asks
    bool m_changeNoted = false;
    bool m_wiringNoted = false;
    CPortChain m_chain;
    mutable CPortOverview m_overview;
    SPortLook m_shownLook;
    qint64 m_load = 0;
    bool m_passedOver = false;
};
