// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/api/records/CabinetLayout.h"
#include "layout/editor/items/CPortChain.h"
#include "layout/editor/items/CPortOverview.h"
#include "layout/editor/items/ItemKinds.h"
#include "platform/graphics/CItemChangeBlocker.h"

#include <QBrush>
#include <QGraphicsObject>

class CGraphicsCabinetItem;
class CGraphicsGroupItem;
class CGraphicsItemBase;
class IEditorScene;
class IPortStates;

/// An output port on the canvas: parent of its cabinets, groups and wiring lines, and owner of its chain. It
/// lies at the scene's origin and has no area of its own.
class CGraphicsPortItem final : public QGraphicsObject, public CChangeBlockable
{
    Q_OBJECT

public:
    using Port = CabinetLayout::CabinetPort;

    /// Shows the port of @p record, whose groups are not built here; colours, locks and redundancy come from
    /// @p states.
    /// @p editor is the scene that the port is edited in.
    CGraphicsPortItem(const Port &record, const IPortStates &states, IEditorScene &editor);

    int type() const override { return PortItemKind; }
    QRectF boundingRect() const override;
    /// Where its children lie, also while the port is passed over.
    const QRectF &bounds() const { return m_bounds; }
    void paint(QPainter *, const QStyleOptionGraphicsItem *, QWidget *) override {}

    int port() const { return m_state.index; }
    CPortChain &chain() { return m_chain; }
    const CPortChain &chain() const { return m_chain; }

    IEditorScene &editor() const { return m_editor; }

    /// The cabinets inside @p group; with null all of the port, through all groups.
    QVector<CGraphicsCabinetItem *> cabinets(const CGraphicsGroupItem *group) const;

    /// The port's group items; with @p outermostOnly those that lie in no other group.
    QVector<CGraphicsGroupItem *> groups(bool outermostOnly) const;
    QVector<CGraphicsGroupItem *> selectedGroups(bool outermostOnly) const;
    /// The cabinets and groups that lie in the port directly.
    QVector<CGraphicsItemBase *> topItems() const;

    /// Whether the store marks the port as locked.
    bool isLocked() const;
    bool isRedundant() const;
    /// Whether the port refuses edits: it is locked, or follows its primary as a redundancy port.
    bool isClosed() const { return isLocked() || isRedundant(); }
    bool resetsHighlightOnEdit() const;

    /// What the cabinets show of the port; follows the store when told to.
    bool isShownLocked() const { return m_state.locked; }
    bool isShownRedundant() const { return m_state.redundancy == Port::Redundant; }
    bool marksCustomCabinets() const { return m_marksCustom; }
    void setShownLocked(bool locked);
    QColor fill() const { return m_fill.color(); } ///< of its cabinets
    void setColor(const QColor &color);
    /// Reads colour, lock, redundancy and options from the store anew.
    void refreshState();

    /// Tells the scene, once until it has taken note, that children, chain or state differ from what was read
    /// last.
    void noteChanged();
    void noteWiringChanged();
    void takeNote();

    /// The port as a compact list, brought up to date with its items. Valid until the next edit.
    const CPortOverview &overview() const;
    /// While it is passed over, a view that draws its frame leaves out the port with all that it holds.
    void setPassedOver(bool passedOver) { m_passedOver = passedOver; }

    /// Takes the children's rectangle as its own; done once an operation.
    void updateBounds();

    /// Has redrawn what pens leave just outside the bounds, where Qt redraws nothing for the children.
    void updateEdges();

    /// Takes over what @p record says of the port itself; its groups are left alone.
    void setState(const Port &record);
    /// The port's record without its groups.
    const Port &state() const { return m_state; }

    bool sceneEventFilter(QGraphicsItem *watched, QEvent *event) override;

Q_SIGNALS:
    /// Children lie elsewhere, so that they cover another area; at most once an operation.
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
    QBrush m_fill; // of all its cabinets, which share it
    bool m_marksCustom = false;
    QRectF m_bounds;
    bool m_changeNoted = false;
    bool m_wiringNoted = false;
    CPortChain m_chain;
    mutable CPortOverview m_overview;
    bool m_passedOver = false;
};
