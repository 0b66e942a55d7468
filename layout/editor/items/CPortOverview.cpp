// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CPortOverview.h"

#include "layout/drawing/CWirePainter.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <algorithm>
#include <array>

namespace {

constexpr int MostDashedWires = 500; // of a port in a picture from afar, where most are too short for dashes

/// Whether @p rect reaches into one of @p areas.
bool isExposed(const QRectF &rect, const QVector<QRectF> &areas)
{
    return std::any_of(areas.begin(), areas.end(), [&rect](const QRectF &area) {
        return rect.left() <= area.right() && area.left() <= rect.right() && rect.top() <= area.bottom() &&
               area.top() <= rect.bottom();
    });
}

bool isSelected(const CPortOverview::SPlace &place)
{
    return place.cabinet->isSelected() || (place.group && place.group->isSelectedWithGroups());
}

/// The colours of a port's cabinets, mixed once for each look: nearly all cabinets are of one width.
class CFarPalette final
{
public:
    CFarPalette(const CGraphicsPortItem &port, qreal scale)
        : m_scale(scale)
    {
        m_state.fill = port.fill();
        m_state.redundant = port.isShownRedundant();
    }

    const SCabinetColors &colors(const CPortOverview::SPlace &place)
    {
        if (!qFuzzyCompare(m_width, place.rect.width())) {
            m_width = place.rect.width();
            for (unsigned look = 0; look < LookCount; ++look) {
                m_state.selected = look & Selected;
                m_state.highlighted = look & Highlighted;
                m_state.wired = !(look & Unwired);
                m_colors[look] = SCabinetColors::of(m_state, m_width * m_scale);
            }
        }
        return m_colors[(isSelected(place) ? Selected : 0) | (place.highlighted ? Highlighted : 0) |
                        (place.wired ? 0 : Unwired)];
    }

private:
    enum ELook { Selected = 1, Highlighted = 2, Unwired = 4, LookCount = 8 };

    SCabinetState m_state;
    qreal m_scale;
    qreal m_width = -1;
    std::array<SCabinetColors, LookCount> m_colors;
};

} // namespace

bool operator==(const CPortOverview::SPlace &a, const CPortOverview::SPlace &b)
{
    return a.rect == b.rect && a.cabinet == b.cabinet && a.group == b.group && a.custom == b.custom &&
           a.highlighted == b.highlighted && a.wired == b.wired && a.fault == b.fault;
}

bool CPortOverview::isSameAs(const CPortOverview &other) const
{
    return m_places == other.m_places && m_wires == other.m_wires &&
           qFuzzyCompare(m_widest + 1, other.m_widest + 1);
}

void CPortOverview::forget()
{
    if (!m_read)
        return;
    m_read = false;
    m_places.clear();
    m_wires.clear();
}

void CPortOverview::read(const CGraphicsPortItem &port)
{
    m_places.clear();
    m_wires.clear();
    m_widest = 0;
    readChildren(port, nullptr);
    m_read = true;
}

void CPortOverview::readChildren(const QGraphicsItem &parent, CGraphicsGroupItem *group)
{
    const QList<QGraphicsItem *> children = parent.childItems(); // in the order of drawing
    for (QGraphicsItem *child : children) {
        if (child->type() == ConnectionItemKind) {
            const auto *wire = static_cast<const CGraphicsConnectionItem *>(child);
            if (wire->from())
                m_wires << wire->line();
            continue;
        }
        SPlace place;
        place.rect = static_cast<const CGraphicsItemBase *>(child)->placement();
        place.group = group;
        if (child->type() == GroupItemKind) {
            place.group = static_cast<CGraphicsGroupItem *>(child);
            m_places << place;
            readChildren(*child, place.group);
        } else {
            place.cabinet = static_cast<CGraphicsCabinetItem *>(child);
            place.custom = place.cabinet->cabinet().isCustomDefined();
            place.highlighted = place.cabinet->isHighlighted();
            place.wired = place.cabinet->isInChain();
            place.fault = place.cabinet->fault();
            m_places << place;
            m_widest = std::max(m_widest, place.rect.width());
        }
    }
}

int CPortOverview::countExposed(const QVector<QRectF> &exposed) const
{
    const auto isShown = [&exposed](const SPlace &place) { return isExposed(place.rect, exposed); };
    const auto isWireShown = [&exposed](const QLineF &wire) {
        return isExposed(QRectF(wire.p1(), wire.p2()).normalized(), exposed);
    };
    return int(std::count_if(m_places.begin(), m_places.end(), isShown) +
               std::count_if(m_wires.begin(), m_wires.end(), isWireShown));
}

int CPortOverview::firstWithin(qreal &area, const QVector<QRectF> &exposed) const
{
    int first = m_places.size();
    while (first > 0 && area > 0) {
        const QRectF &rect = m_places.at(--first).rect;
        for (const QRectF &part : exposed) {
            const QRectF shown = rect & part;
            area -= shown.width() * shown.height();
        }
    }
    return first;
}

void CPortOverview::paint(QPainter &painter, const CGraphicsPortItem &port, const QVector<QRectF> &exposed,
                          qreal scale, int first) const
{
    CFarPalette palette(port, scale);
    const bool marksCustom = port.marksCustomCabinets();
    for (int i = first; i < m_places.size(); ++i) {
        const SPlace &place = m_places.at(i);
        if (!isExposed(place.rect, exposed))
            continue;
        if (place.cabinet)
            CLayoutPainter::paintCabinetFromAfar(painter, place.rect, palette.colors(place),
                                                 place.custom && marksCustom, place.fault, scale);
        else
            CLayoutPainter::paintGroup(painter, place.rect, place.group->isSelectedWithGroups(), scale);
    }
    QVector<QLineF> wires;
    int dashed = 0;
    for (const QLineF &wire : m_wires) {
        if (isExposed(QRectF(wire.p1(), wire.p2()).normalized(), exposed) &&
            (CWirePainter::isPlain(wire.length(), scale) || ++dashed <= MostDashedWires))
            wires << wire;
    }
    CWirePainter::paint(painter, wires, scale);
}
