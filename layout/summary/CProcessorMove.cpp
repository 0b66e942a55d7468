// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/summary/CProcessorMove.h"

#include "layout/api/records/LayoutLimits.h"
#include "layout/geometry/CEdgeSnap.h"
#include "layout/summary/CGraphicsProcessorItem.h"
#include "platform/graphics/ArrowKeys.h"

#include <QKeyEvent>

namespace {

constexpr int KeyStep = 1; // pixels of the canvas
constexpr int LargeKeyStep = 10;

/// The @p edges at which [low, high] begins or ends.
QVector<int> shared(int low, int high, const QVector<int> &edges)
{
    QVector<int> lines;
    for (const int edge : edges) {
        if ((edge == low || edge == high) && !lines.contains(edge))
            lines << edge;
    }
    return lines;
}

/// @p step, reduced so that an offset that starts at @p from stays within its limits.
int boundedStep(int step, int from)
{
    return qBound(-LayoutLimits::LargestOffset - from, step, LayoutLimits::LargestOffset - from);
}

} // namespace

bool CProcessorMove::isArrow(int key)
{
    return !ArrowKeys::directionOf(key).isNull();
}

QPoint CProcessorMove::stepOf(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers & ~Qt::ShiftModifier)
        return {};
    return ArrowKeys::directionOf(event.key()) * (modifiers & Qt::ShiftModifier ? LargeKeyStep : KeyStep);
}

CProcessorMove::CProcessorMove(const Items &moved, const Items &others)
    : m_moved(moved)
{
    for (const CGraphicsProcessorItem *item : moved) {
        m_begin.insert(item->processor(), item->offset());
        m_outline |= item->place();
    }
    for (const CGraphicsProcessorItem *item : others)
        m_others << item->place();
}

void CProcessorMove::moveTo(const QPoint &distance, int reach)
{
    const QRect wanted = m_outline.translated(distance);
    const QRect taken = reach > 0 ? CEdgeSnap::snapped(wanted, m_others, reach) : wanted;
    m_distance = bounded(taken.topLeft() - m_outline.topLeft());
    for (CGraphicsProcessorItem *item : qAsConst(m_moved))
        item->setPos(m_begin.value(item->processor()) + m_distance);
}

QPoint CProcessorMove::bounded(const QPoint &distance) const
{
    QPoint bounded = distance;
    for (const QPoint &begin : m_begin) {
        bounded.setX(boundedStep(bounded.x(), begin.x()));
        bounded.setY(boundedStep(bounded.y(), begin.y()));
    }
    return bounded;
}

ProcessorOffsets CProcessorMove::offsets() const
{
    ProcessorOffsets offsets;
    for (const CGraphicsProcessorItem *item : m_moved)
        offsets.insert(item->processor(), item->offset());
    return offsets;
}

QVector<int> CProcessorMove::linesAcross() const
{
    const QRect now = m_outline.translated(m_distance);
    QVector<int> edges;
    for (const QRect &other : m_others)
        edges << other.left() << other.left() + other.width();
    return shared(now.left(), now.left() + now.width(), edges);
}

QVector<int> CProcessorMove::linesDown() const
{
    const QRect now = m_outline.translated(m_distance);
    QVector<int> edges;
    for (const QRect &other : m_others)
        edges << other.top() << other.top() + other.height();
    return shared(now.top(), now.top() + now.height(), edges);
}
