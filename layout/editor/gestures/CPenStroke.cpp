// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/gestures/CPenStroke.h"

#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditing.h"
#include "layout/editor/items/IItemIndex.h"
#include "layout/editor/recording/CUndoRecorder.h"
#include "layout/editor/recording/CWiringRecorder.h"

#include <QLineF>
#include <QSet>

#include <algorithm>
#include <tuple>

namespace {

/// Restricts a segment of the line, on one axis, to the range from @p low (inclusive) to @p high (exclusive).
void clipWay(qreal from, qreal distance, qreal low, qreal high, qreal &enters, qreal &leaves)
{
    if (qFuzzyIsNull(distance)) {
        if (from < low || from >= high)
            leaves = enters;
        return;
    }
    const auto cuts = std::minmax({(low - from) / distance, (high - from) / distance});
    enters = std::max(enters, cuts.first);
    leaves = std::min(leaves, cuts.second);
}

/// The fraction of the line after which it enters @p rect; above 1 if it does not.
qreal entryInto(const QRectF &rect, const QLineF &way)
{
    qreal enters = 0;
    qreal leaves = 1;
    clipWay(way.x1(), way.dx(), rect.left(), rect.right(), enters, leaves);
    clipWay(way.y1(), way.dy(), rect.top(), rect.bottom(), enters, leaves);
    if (enters < leaves)
        return enters;
    const bool endsOnEdge = way.x2() >= rect.left() && way.x2() < rect.right() && way.y2() >= rect.top() &&
                            way.y2() < rect.bottom();
    return endsOnEdge ? 1 : 2;
}

} // namespace

CPenStroke::CPenStroke(IEditing &editing, const IItemIndex &index, CGraphicsPortItem &port,
                       const CGraphicsCabinetItem &first, const QPointF &scenePos)
    : m_editing(editing)
    , m_index(index)
    , m_port(port.port())
    , m_place(scenePos)
    , m_stroke({first.uuid()})
{
}

void CPenStroke::moveTo(const QPointF &scenePos)
{
    const QLineF way(m_place, scenePos);
    m_place = scenePos;
    const CGraphicsPortItem *owner = m_index.portItem(m_port);
    if (!owner || way.p1() == way.p2()) // a mere click adds no cabinets
        return;
    QVector<std::tuple<qreal, qreal, qreal, QUuid>> entered;
    for (const CGraphicsCabinetItem *cabinet : owner->cabinets(nullptr)) {
        const QRectF rect = cabinet->mapRectToScene(cabinet->rect());
        const qreal entry = entryInto(rect, way);
        if (entry <= 1)
            entered << std::make_tuple(entry, rect.top(), rect.left(), cabinet->uuid());
    }
    m_passedOthers = m_passedOthers || entersOther(way);
    std::sort(entered.begin(), entered.end());
    for (const auto &entry : qAsConst(entered)) {
        const QUuid &uuid = std::get<3>(entry);
        if (!m_stroke.contains(uuid))
            m_stroke << uuid;
    }
}

/// Walks over a port's cabinets only where the line crosses its wall.
bool CPenStroke::entersOther(const QLineF &way) const
{
    for (const CGraphicsPortItem *port : m_index.portItems()) {
        if (port->port() == m_port || entryInto(port->wall(), way) > 1)
            continue;
        const QVector<CGraphicsCabinetItem *> cabinets = port->cabinets(nullptr);
        if (std::any_of(cabinets.begin(), cabinets.end(), [&way](const CGraphicsCabinetItem *cabinet) {
                return entryInto(cabinet->placement(), way) <= 1;
            }))
            return true;
    }
    return false;
}

QVector<CGraphicsCabinetItem *> CPenStroke::drawnCabinets() const
{
    QVector<CGraphicsCabinetItem *> cabinets;
    for (const QUuid &uuid : m_stroke) {
        CGraphicsItemBase *item = m_index.editedItem(uuid);
        if (item && item->type() == CabinetItemKind)
            cabinets << static_cast<CGraphicsCabinetItem *>(item);
    }
    return cabinets;
}

QPolygonF CPenStroke::path() const
{
    QPolygonF path;
    for (const CGraphicsCabinetItem *cabinet : drawnCabinets())
        path << cabinet->mapRectToScene(cabinet->rect()).center();
    return path;
}

QVector<CGraphicsCabinetItem *> CPenStroke::chain() const
{
    const CGraphicsPortItem *owner = m_index.portItem(m_port);
    if (!owner)
        return {};
    const QVector<CGraphicsCabinetItem *> stroke = drawnCabinets();
    const QSet<CGraphicsCabinetItem *> drawn(stroke.begin(), stroke.end());
    QVector<CGraphicsCabinetItem *> result;
    bool placed = stroke.isEmpty();
    for (CGraphicsCabinetItem *cabinet : owner->chain().order()) {
        if (!placed && cabinet == stroke.first()) {
            result += stroke;
            placed = true;
        } else if (!drawn.contains(cabinet)) {
            result << cabinet;
        }
    }
    return placed ? result : result + stroke;
}

void CPenStroke::finish(CUndoRecorder &recorder) const
{
    CGraphicsPortItem *owner = m_index.portItem(m_port);
    if (!owner)
        return;
    const CEditBatch batch(m_editing);
    const CUndoMacro macro(recorder, QStringLiteral("createTopologyWiring"));
    const QVector<CGraphicsCabinetItem *> drawn = chain();
    const bool same = drawn == owner->chain().order();
    CWiringRecorder::rechain(recorder, *owner, drawn);
    if (m_passedOthers)
        m_editing.tell(tr("Cabinets of other ports were left out."));
    else if (same)
        m_editing.tell(tr("It is wired like this already."));
}
