// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CPortOverview.h"

#include "layout/drawing/CLayoutPainter.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/// Whether @p rect intersects one of @p areas.
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

/// The colours of a port's cabinets, computed once per look, because nearly all cabinets have the same width.
class CFarPalette final
{
public:
    CFarPalette(const QColor &fill, qreal scale)
        : m_fill(fill)
        , m_scale(scale)
    {
    }

    const SCabinetColors &colors(const CPortOverview::SPlace &place)
    {
        if (!qFuzzyCompare(m_width, place.rect.width())) {
            m_width = place.rect.width();
            for (unsigned look = 0; look < LookCount; ++look)
                m_colors[look] =
                    SCabinetColors::of(m_fill, look & Selected, look & Highlighted, m_width * m_scale);
        }
        return m_colors[(isSelected(place) ? Selected : 0) | (place.highlighted ? Highlighted : 0)];
    }

private:
    enum ELook { Selected = 1, Highlighted = 2, LookCount = 4 };

    QColor m_fill;
    qreal m_scale;
    qreal m_width = -1;
    std::array<SCabinetColors, LookCount> m_colors;
};

} // namespace

bool operator==(const CPortOverview::SPlace &a, const CPortOverview::SPlace &b)
{
    return a.rect == b.rect && a.cabinet == b.cabinet && a.group == b.group && a.custom == b.custom &&
           a.highlighted == b.highlighted;
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
    const QList<QGraphicsItem *> children = parent.childItems(); // in drawing order
    for (QGraphicsItem *child : children) {
        if (child->type() == ConnectionItemKind) {
            m_wires << static_cast<const CGraphicsConnectionItem *>(child)->line();
            continue;
        }
        SPlace place;
        place.rect = child->mapRectToScene(static_cast<const CGraphicsItemBase *>(child)->rect());
        place.group = group;
        if (child->type() == GroupItemKind) {
            place.group = static_cast<CGraphicsGroupItem *>(child);
            m_places << place;
            readChildren(*child, place.group);
        } else {
            place.cabinet = static_cast<CGraphicsCabinetItem *>(child);
            place.custom = place.cabinet->cabinet().isCustomDefined();
            place.highlighted = place.cabinet->isHighlighted();
            m_places << place;
            m_widest = std::max(m_widest, place.rect.width());
        }
    }
}

void CPortOverview::paint(QPainter &painter, const CGraphicsPortItem &port, const QVector<QRectF> &exposed,
                          qreal scale) const
{
    CFarPalette palette(port.fill(), scale);
    const bool marksCustom = port.marksCustomCabinets();
    for (const SPlace &place : m_places) {
        if (!isExposed(place.rect, exposed))
            continue;
        if (place.cabinet)
            CLayoutPainter::paintCabinetFromAfar(painter, place.rect, palette.colors(place),
                                                 place.custom && marksCustom, scale);
        else
            CLayoutPainter::paintGroup(painter, place.rect, place.group->isSelectedWithGroups(), scale);
    }
    QVector<QLineF> wires;
    wires.reserve(m_wires.size());
    std::copy_if(m_wires.begin(), m_wires.end(), std::back_inserter(wires), [&exposed](const QLineF &wire) {
        return isExposed(QRectF(wire.p1(), wire.p2()).normalized(), exposed);
    });
    CLayoutPainter::paintWires(painter, wires, scale);
}
