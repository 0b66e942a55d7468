// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CGraphicsPortItem.h"

#include "layout/api/access/IPortStates.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/IEditorScene.h"
#include "layout/editor/items/IMouseMode.h"

#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>

#include <algorithm>
#include <tuple>

namespace {

/// childrenBoundingRect(), without the transforms that no child has.
QRectF boundsOfChildren(const QGraphicsItem &parent)
{
    QRectF bounds;
    const QList<QGraphicsItem *> children = parent.childItems();
    for (const QGraphicsItem *child : children) {
        QRectF area = child->boundingRect();
        if (child->type() == GroupItemKind)
            area |= boundsOfChildren(*child);
        bounds |= area.translated(child->pos());
    }
    return bounds;
}

void collectPortCabinets(const QGraphicsItem &parent, QVector<CGraphicsCabinetItem *> &cabinets)
{
    const QList<QGraphicsItem *> children = parent.childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() == CabinetItemKind)
            cabinets << static_cast<CGraphicsCabinetItem *>(child);
        else if (child->type() == GroupItemKind)
            cabinets << static_cast<CGraphicsGroupItem *>(child)->cabinets();
    }
}

void collectGroups(const QGraphicsItem &parent, bool outermostOnly, QVector<CGraphicsGroupItem *> &groups)
{
    const QList<QGraphicsItem *> children = parent.childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() != GroupItemKind)
            continue;
        groups << static_cast<CGraphicsGroupItem *>(child);
        if (!outermostOnly)
            collectGroups(*child, false, groups);
    }
}

} // namespace

CGraphicsPortItem::CGraphicsPortItem(const Port &record, const IPortStates &states, IEditorScene &editor)
    : m_states(states)
    , m_editor(editor)
    , m_state(record)
    , m_chain(*this)
{
    m_state.groups.clear();
    m_load = record.load;
    m_fill = record.color.isValid() ? record.color : m_states.portColor(record.index);
    m_marksCustom = m_states.marksCustomCabinets();
    // Lookups and frames skip ports that they do not touch, so bounds are kept tight. A frame asks only items
    // with contents for their bounds.
    setFlags(ItemContainsChildrenInShape);
    setData(IdentityRole, record.index);
}

QRectF CGraphicsPortItem::boundingRect() const
{
    static const QRectF nowhere(-1e9, -1e9, 1, 1);
    return m_passedOver ? nowhere : m_bounds;
}

const CPortOverview &CGraphicsPortItem::overview() const
{
    if (!m_overview.isRead())
        m_overview.read(*this);
    return m_overview;
}

void CGraphicsPortItem::setState(const Port &record)
{
    m_state = record;
    m_state.groups.clear();
    const QColor color = record.color.isValid() ? record.color : m_states.portColor(record.index);
    if (color != m_fill.color()) {
        m_fill = color;
        colorChildren(*this);
    }
    noteChanged();
}

QVector<CGraphicsCabinetItem *> CGraphicsPortItem::cabinets(const CGraphicsGroupItem *group) const
{
    QVector<CGraphicsCabinetItem *> cabinets;
    collectPortCabinets(group ? static_cast<const QGraphicsItem &>(*group) : *this, cabinets);
    return cabinets;
}

QVector<CGraphicsGroupItem *> CGraphicsPortItem::groups(bool outermostOnly) const
{
    QVector<CGraphicsGroupItem *> groups;
    collectGroups(*this, outermostOnly, groups);
    return groups;
}

QVector<CGraphicsGroupItem *> CGraphicsPortItem::selectedGroups(bool outermostOnly) const
{
    QVector<CGraphicsGroupItem *> selected = groups(outermostOnly);
    selected.erase(std::remove_if(selected.begin(), selected.end(),
                                  [](const CGraphicsGroupItem *group) { return !group->isSelected(); }),
                   selected.end());
    return selected;
}

QVector<CGraphicsItemBase *> CGraphicsPortItem::topItems() const
{
    QVector<CGraphicsItemBase *> items;
    const QList<QGraphicsItem *> children = childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() == CabinetItemKind || child->type() == GroupItemKind)
            items << static_cast<CGraphicsItemBase *>(child);
    }
    return items;
}

bool CGraphicsPortItem::isLocked() const
{
    return m_states.isPortLocked(port());
}

bool CGraphicsPortItem::isRedundant() const
{
    return m_states.portRedundancy(port()) == Port::Redundant;
}

bool CGraphicsPortItem::resetsHighlightOnEdit() const
{
    return m_states.resetsHighlightOnEdit();
}

void CGraphicsPortItem::setShownLocked(bool locked)
{
    m_state.locked = locked;
    update();
}

void CGraphicsPortItem::setShownLoad(qint64 load)
{
    m_load = load;
    updateLabel();
}

void CGraphicsPortItem::setColor(const QColor &color)
{
    m_fill = color;
    m_state.color = color;
    colorChildren(*this);
}

void CGraphicsPortItem::refreshState()
{
    const Port::Redundancy redundancy = m_states.portRedundancy(port());
    if (redundancy != m_state.redundancy)
        m_overview.forget(); // the faults of its cabinets are others
    m_state.redundancy = redundancy;
    m_state.locked = m_states.isPortLocked(port());
    std::tie(m_state.redundancyProcessor, m_state.redundancyPort) = m_states.portPartner(port());
    m_marksCustom = m_states.marksCustomCabinets();
    const QColor color = m_states.portColor(port());
    if (color != m_fill.color()) {
        m_fill = color;
        colorChildren(*this);
    }
}

void CGraphicsPortItem::colorChildren(const QGraphicsItem &parent)
{
    const QList<QGraphicsItem *> children = parent.childItems();
    for (QGraphicsItem *child : children) {
        if (child->type() != CabinetItemKind && child->type() != GroupItemKind)
            continue;
        static_cast<CGraphicsItemBase *>(child)->setBrush(m_fill);
        colorChildren(*child);
    }
}

SPortLook CGraphicsPortItem::look() const
{
    SPortLook look;
    look.port = port();
    look.fill = fill();
    look.locked = isShownLocked();
    look.redundant = isShownRedundant();
    look.load = m_load;
    const CGraphicsCabinetItem *first = m_chain.head();
    look.wired = first != nullptr;
    for (const CPortOverview::SPlace &place :
         first ? QVector<CPortOverview::SPlace>() : overview().places()) {
        if (place.cabinet) {
            first = place.cabinet;
            break;
        }
    }
    if (!first)
        return look;
    look.bounds = m_bounds;
    look.head = first->placement();
    if (!look.wired)
        return look;
    const CGraphicsCabinetItem *last = m_chain.tail();
    look.single = !last;
    look.tail = last ? last->placement() : look.head;
    look.backup = CPortLabel::backupText(m_state);
    look.entry = first->entryPoint();
    look.exit = (last ? last : first)->exitPoint();
    return look;
}

void CGraphicsPortItem::updateLabel()
{
    const SPortLook now = look();
    const QList<QGraphicsView *> views = scene() ? scene()->views() : QList<QGraphicsView *>();
    if (now == m_shownLook || views.isEmpty())
        return;
    const qreal scale = views.first()->transform().m11();
    for (const SPortLook &look : {m_shownLook, now}) {
        for (const QRectF &area : CPortLabel::areas(look, scale))
            scene()->update(area);
    }
    if (CPortLabel::isOverloaded(now) != CPortLabel::isOverloaded(m_shownLook))
        scene()->update(m_bounds); // the edge is another one
    m_shownLook = now;
}

void CGraphicsPortItem::takeNote()
{
    m_overview.forget();
    m_changeNoted = m_wiringNoted = false;
}

void CGraphicsPortItem::noteChanged()
{
    m_overview.forget();
    if (m_changeNoted)
        return;
    m_changeNoted = true;
    m_editor.notes().notePortChanged(*this);
}

void CGraphicsPortItem::noteWiringChanged()
{
    if (m_wiringNoted)
        return;
    m_wiringNoted = true;
    m_editor.notes().noteWiringChanged(*this);
    noteChanged();
}

const QRectF &CGraphicsPortItem::wall() const
{
    if (!m_wall) {
        QRectF wall;
        for (const CGraphicsCabinetItem *cabinet : cabinets(nullptr))
            wall |= cabinet->mapRectToScene(cabinet->rect());
        m_wall = wall;
    }
    return *m_wall;
}

void CGraphicsPortItem::updateBounds()
{
    m_wall.reset();
    const QRectF bounds = boundsOfChildren(*this);
    if (bounds == m_bounds)
        return;
    prepareGeometryChange();
    m_bounds = bounds;
    Q_EMIT childItemPosChanged();
}

bool CGraphicsPortItem::sceneEventFilter(QGraphicsItem *watched, QEvent *event)
{
    // A pen stroke begins on a cabinet and continues over the whole canvas, so the port grabs the mouse.
    if (event->type() != QEvent::GraphicsSceneMousePress || watched->type() != CabinetItemKind)
        return false;
    const auto &press = static_cast<const QGraphicsSceneMouseEvent &>(*event);
    IItemMouse *mouse = m_editor.mouse();
    if (press.button() != Qt::LeftButton || !mouse ||
        !mouse->mouseMode().beginStroke(static_cast<CGraphicsCabinetItem &>(*watched), press.scenePos()))
        return false;
    grabMouse();
    return true;
}

void CGraphicsPortItem::mouseMoveEvent(QGraphicsSceneMouseEvent *event)
{
    if (IItemMouse *mouse = m_editor.mouse())
        mouse->mouseMode().continueStroke(event->scenePos());
}

void CGraphicsPortItem::mouseReleaseEvent(QGraphicsSceneMouseEvent *event)
{
    ungrabMouse();
    if (IItemMouse *mouse = m_editor.mouse())
        mouse->mouseMode().endStroke(event->scenePos());
}

QVariant CGraphicsPortItem::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemChildAddedChange && !isChangeBlocked())
        adopt(*value.value<QGraphicsItem *>());
    return QGraphicsObject::itemChange(change, value);
}

void CGraphicsPortItem::adopt(QGraphicsItem &child)
{
    if (child.type() == ConnectionItemKind) {
        child.setZValue(ConnectionHeight); // they have it already
    } else if (child.type() == CabinetItemKind || child.type() == GroupItemKind) {
        auto &item = static_cast<CGraphicsItemBase &>(child);
        item.setPort(port());
        item.setBrush(m_fill);
    }
}
