// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CRubberBand.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IItemIndex.h"
#include "platform/graphics/CGraphicsScene.h"

#include <QRegion>
#include <QSignalBlocker>

#include <algorithm>

namespace {

constexpr int ManyChanges = 1000; // that request their repaints one by one cost more than painting them

/// QRectF::intersects() of normalized rectangles, inline: it is asked of each cabinet of a wall.
bool touches(const QRectF &band, const QRectF &rect)
{
    return !band.isEmpty() && rect.left() < band.right() && band.left() < rect.right() &&
           rect.top() < band.bottom() && band.top() < rect.bottom();
}

/// Also selects a single member of a group, for which the band would select the group.
void selectAlone(CGraphicsItemBase &item)
{
    const CItemChangeBlocker blocker(item);
    item.setSelected(true);
}

} // namespace

CRubberBand::CRubberBand(IEditing &editing, const IItemIndex &index, CGraphicsScene &scene,
                         const QPointF &scenePos, const QSet<QUuid> &before, bool keepSelection)
    : m_batch(editing)
    , m_index(index)
    , m_scene(scene)
    , m_press(scenePos)
    , m_rect(scenePos, QSizeF())
    , m_before(before)
{
    if (keepSelection)
        m_kept = before;
}

void CRubberBand::moveTo(const QPointF &scenePos)
{
    const QRectF before = m_rect;
    const QRectF after = rectTo(scenePos);
    m_rect = after;
    Places entered;
    Places left;
    for (CGraphicsPortItem *port : m_index.portItems()) {
        if (!port->bounds().intersects(before) && !port->bounds().intersects(after))
            continue;
        for (const CPortOverview::SPlace &place : port->overview().places()) {
            const bool touched = touches(after, place.rect);
            if (place.cabinet && touched != touches(before, place.rect))
                (touched ? entered : left) << &place;
        }
    }
    const auto changeAll = [&] {
        for (const CPortOverview::SPlace *place : qAsConst(left))
            change(*place, false);
        for (const CPortOverview::SPlace *place : qAsConst(entered))
            change(*place, true);
    };
    if (entered.size() + left.size() > ManyChanges) {
        m_scene.changeWithin(areasOf(before, after, left + entered), [&] {
            const QSignalBlocker silent(&m_scene); // Qt would announce every single item
            changeAll();
        });
        Q_EMIT m_scene.selectionChanged();
        return;
    }
    changeAll();
}

/// Where the look of @p places may change when the band does: the strips by which it grows and shrinks, as
/// far as the cabinets there and their groups reach out of them.
QVector<QRectF> CRubberBand::areasOf(const QRectF &before, const QRectF &after, const Places &places)
{
    const QRegion strips = QRegion(before.toAlignedRect()) ^ QRegion(after.toAlignedRect());
    QVector<QRectF> areas;
    for (const QRect &strip : strips)
        areas << QRectF(strip).adjusted(-1, -1, 1, 1); // fractions of pixels
    if (areas.isEmpty())
        areas << after;
    for (const CPortOverview::SPlace *place : places) {
        const auto strip = std::find_if(areas.begin(), areas.end(),
                                        [place](const QRectF &area) { return touches(area, place->rect); });
        QRectF &area = strip == areas.end() ? areas.first() : *strip;
        area |= place->group ? place->group->outermost().placement() : place->rect;
    }
    return areas;
}

void CRubberBand::cancel()
{
    moveTo(m_press);
    for (const QUuid &uuid : qAsConst(m_before)) {
        if (CGraphicsItemBase *item = m_index.editedItem(uuid))
            selectAlone(*item);
    }
}

void CRubberBand::change(const CPortOverview::SPlace &place, bool touched)
{
    if (place.group) {
        int &count = m_counts[place.group->outermost().uuid()];
        count += touched ? 1 : -1;
        if (count != (touched ? 1 : 0))
            return; // the band touches other members of the group, too
    }
    CGraphicsItemBase &outermost = place.cabinet->outermost();
    if (touched)
        outermost.setSelected(true);
    else
        restore(outermost);
}

void CRubberBand::restore(CGraphicsItemBase &outermost)
{
    outermost.setSelected(m_kept.contains(outermost.uuid()));
    if (m_kept.isEmpty() || outermost.isSelected())
        return;
    // A member that was selected by itself was replaced by its group.
    for (CGraphicsCabinetItem *member : outermost.concernedCabinets()) {
        if (m_kept.contains(member->uuid()))
            selectAlone(*member);
    }
}
