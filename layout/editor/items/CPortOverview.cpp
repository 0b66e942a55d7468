// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/items/CPortOverview.h"

#include "layout/drawing/CPortEdge.h"
#include "layout/drawing/CPortLabel.h"
#include "layout/drawing/CRowStamps.h"
#include "layout/drawing/CWirePainter.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsConnectionItem.h"
#include "layout/editor/items/CGraphicsGroupItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/editor/items/IEditorScene.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

constexpr int MostFrames = 1000;     // of groups of a port: more could not be told apart
constexpr int MostDashedWires = 500; // of a port in a picture from afar, where most are too short for dashes

/// QRectF's own calls, inline: they are made for each cabinet of a wall.
bool reachesInto(const QRectF &rect, const QRectF &area)
{
    return rect.left() <= area.right() && area.left() <= rect.right() && rect.top() <= area.bottom() &&
           area.top() <= rect.bottom();
}

qreal sharedArea(const QRectF &a, const QRectF &b)
{
    const qreal width = std::min(a.right(), b.right()) - std::max(a.left(), b.left());
    const qreal height = std::min(a.bottom(), b.bottom()) - std::max(a.top(), b.top());
    return width > 0 && height > 0 ? width * height : 0;
}

QRectF boundsOf(const QLineF &line)
{
    return QRectF(QPointF(std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2())),
                  QPointF(std::max(line.x1(), line.x2()), std::max(line.y1(), line.y2())));
}

/// What of some areas concerns a port.
class CExposure final
{
public:
    CExposure(const QVector<QRectF> &areas, const QRectF &extent)
    {
        for (const QRectF &area : areas) {
            if (reachesInto(extent, area))
                m_areas << area;
        }
        m_whole = m_areas.size() == 1 && m_areas.first().contains(extent);
    }

    /// Whether the whole port lies in one area.
    bool isWhole() const { return m_whole; }
    const QVector<QRectF> &areas() const { return m_areas; }

    bool shows(const QRectF &rect) const
    {
        return m_whole || std::any_of(m_areas.begin(), m_areas.end(),
                                      [&rect](const QRectF &area) { return reachesInto(rect, area); });
    }

private:
    QVector<QRectF> m_areas;
    bool m_whole = false;
};

bool isSelected(const CPortOverview::SPlace &place)
{
    return place.cabinet->isSelected() || (place.group && place.group->isSelectedWithGroups());
}

enum class Selection { None, Some, All };

/// The colours of a port's cabinets, mixed once for each look: nearly all cabinets are of one width.
class CFarPalette final
{
public:
    CFarPalette(const CGraphicsPortItem &port, Selection selection, qreal scale)
        : m_selection(selection)
        , m_scale(scale)
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
        // The items are read only if they differ: they are scattered in memory.
        const bool selected =
            m_selection == Selection::Some ? isSelected(place) : m_selection == Selection::All;
        return m_colors[(selected ? Selected : 0) | (place.highlighted ? Highlighted : 0) |
                        (place.wired ? 0 : Unwired)];
    }

private:
    enum ELook { Selected = 1, Highlighted = 2, Unwired = 4, LookCount = 8 };

    const Selection m_selection;
    SCabinetState m_state;
    qreal m_scale;
    qreal m_width = -1;
    std::array<SCabinetColors, LookCount> m_colors;
};

/// Cabinets that are drawn together because they stand side by side and look the same.
class CFarRow final
{
public:
    CFarRow(QPainter &painter, qreal scale)
        : m_stamps(painter, scale)
    {
    }

    void add(const QRectF &rect, const SCabinetColors &colors)
    {
        if (m_rects.isEmpty() || !continues(rect, colors)) {
            paint();
            m_colors = colors;
        }
        m_rects << rect;
    }

    void paint()
    {
        if (!m_rects.isEmpty())
            m_stamps.paint(m_rects, m_colors);
        m_rects.resize(0);
    }

private:
    bool continues(const QRectF &rect, const SCabinetColors &colors) const
    {
        const QRectF &last = m_rects.last();
        const QRectF &first = m_rects.first();
        const bool after = rect.left() == last.right() && first.left() <= last.left();
        const bool before = rect.right() == last.left() && last.left() <= first.left();
        return (after || before) && rect.top() == last.top() && rect.height() == last.height() &&
               colors == m_colors;
    }

    CRowStamps m_stamps;
    SCabinetColors m_colors;
    QVector<QRectF> m_rects;
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
    m_frames.clear();
    m_edge.reset();
    m_unselectedEdge.reset();
    m_wires.clear();
}

void CPortOverview::read(const CGraphicsPortItem &port)
{
    m_places.clear();
    m_frames.clear();
    m_edge.reset();
    m_unselectedEdge.reset();
    m_wires.clear();
    m_widest = 0;
    m_area = 0;
    m_extent = QRectF();
    readChildren(port, nullptr);
    m_places.squeeze();
    m_wires.squeeze();
    for (const SPlace &place : qAsConst(m_places)) {
        m_area += place.rect.width() * place.rect.height();
        m_extent |= place.rect;
    }
    for (const QLineF &wire : qAsConst(m_wires))
        m_extent |= boundsOf(wire);
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
            m_frames << m_places.size();
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
    const CExposure exposure(exposed, m_extent);
    const auto isShown = [&exposure](const SPlace &place) { return exposure.shows(place.rect); };
    const auto isWireShown = [&exposure](const QLineF &wire) { return exposure.shows(boundsOf(wire)); };
    return int(std::count_if(m_places.begin(), m_places.end(), isShown) +
               std::count_if(m_wires.begin(), m_wires.end(), isWireShown));
}

int CPortOverview::firstWithin(qreal &area, const QVector<QRectF> &exposed) const
{
    const CExposure exposure(exposed, m_extent);
    if (exposure.isWhole() && m_area < area) {
        area -= m_area;
        return 0;
    }
    int first = m_places.size();
    while (first > 0 && area > 0) {
        const QRectF &rect = m_places.at(--first).rect;
        for (const QRectF &part : exposure.areas())
            area -= sharedArea(rect, part);
    }
    return first;
}

void CPortOverview::paint(QPainter &painter, const CGraphicsPortItem &port, const QVector<QRectF> &exposed,
                          qreal scale, int first) const
{
    const CExposure exposure(exposed, m_extent);
    const int selected = port.editor().selectedCount(port.port());
    CFarPalette palette(port,
                        selected == 0                 ? Selection::None
                        : selected == m_places.size() ? Selection::All
                                                      : Selection::Some,
                        scale);
    CFarRow row(painter, scale);
    const bool marksCustom = port.marksCustomCabinets();
    for (int i = first; i < m_places.size(); ++i) {
        const SPlace &place = m_places.at(i);
        if (!place.cabinet || !exposure.shows(place.rect))
            continue;
        const bool custom = place.custom && marksCustom;
        if (!custom && place.fault == CabinetFault::None) {
            row.add(place.rect, palette.colors(place));
            continue;
        }
        row.paint();
        CLayoutPainter::paintCabinetFromAfar(painter, place.rect, palette.colors(place), custom, place.fault,
                                             scale);
    }
    row.paint();
    QVector<QLineF> wires;
    int dashed = 0;
    for (const QLineF &wire : m_wires) {
        if (exposure.shows(boundsOf(wire)) &&
            (CWirePainter::isPlain(wire.length(), scale) || ++dashed <= MostDashedWires))
            wires << wire;
    }
    CWirePainter::paint(painter, wires, scale);
}

const QVector<COutline::SPiece> &CPortOverview::edge() const
{
    if (m_edge)
        return *m_edge;
    QVector<QRectF> rects;
    QVector<int> places;
    for (int i = 0; i < m_places.size(); ++i) {
        if (m_places.at(i).cabinet) {
            rects << m_places.at(i).rect;
            places << i;
        }
    }
    m_edge = CPortEdge::of(rects);
    for (COutline::SPiece &piece : *m_edge)
        piece.rect = places.at(piece.rect);
    return *m_edge;
}

const QVector<COutline::SPiece> &CPortOverview::unselectedEdge() const
{
    if (!m_unselectedEdge) {
        const auto isShown = [this](const COutline::SPiece &piece) {
            return !isSelected(m_places.at(piece.rect));
        };
        m_unselectedEdge.emplace();
        std::copy_if(edge().begin(), edge().end(), std::back_inserter(*m_unselectedEdge), isShown);
    }
    return *m_unselectedEdge;
}

void CPortOverview::paintEdge(QPainter &painter, const SPortLook &look, const QRectF &exposed,
                              bool anySelected, qreal scale) const
{
    CPortEdge::paint(painter, anySelected ? unselectedEdge() : edge(), look, m_widest, scale, exposed);
}

void CPortOverview::paintFrames(QPainter &painter, const QRectF &exposed, qreal scale) const
{
    const int first = std::max(0, m_frames.size() - MostFrames);
    for (int i = first; i < m_frames.size(); ++i) {
        const SPlace &place = m_places.at(m_frames.at(i));
        if (reachesInto(place.rect, exposed))
            CLayoutPainter::paintGroup(painter, place.rect, place.group->isSelectedWithGroups(), scale);
    }
}
