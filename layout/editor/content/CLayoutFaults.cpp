// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/editor/content/CLayoutFaults.h"

#include "layout/editor/content/CSceneContent.h"
#include "layout/editor/items/CGraphicsCabinetItem.h"
#include "layout/editor/items/CGraphicsPortItem.h"
#include "layout/geometry/COutside.h"

#include <QElapsedTimer>

#include <algorithm>
#include <limits>
#include <numeric>

namespace {

constexpr int TurnMilliseconds = 2;

} // namespace

CLayoutFaults::CLayoutFaults(const CSceneContent &content, std::function<void()> changed)
    : m_content(content)
    , m_changed(std::move(changed))
    , m_told(int(CabinetFault::None), 0)
{
    m_timer.setInterval(0);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { work(TurnMilliseconds); });
}

void CLayoutFaults::notePorts(const QVector<int> &ports)
{
    for (const int port : ports)
        m_ports.insert(port);
    if (!isDone())
        m_timer.start();
}

void CLayoutFaults::noteAll()
{
    m_next = 0;
    QVector<int> ports;
    for (const CGraphicsPortItem *port : m_content.portItems())
        ports << port->port();
    notePorts(ports);
}

void CLayoutFaults::clear()
{
    m_known.clear();
    m_grid.clear();
    m_ports.clear();
    m_moved.clear();
    m_places.clear();
    m_touched.clear();
    m_uuids.clear();
    m_next = 0;
    m_overlapping.clear();
    m_outside.clear();
    m_timer.start(); // to tell of it
}

bool CLayoutFaults::isDone() const
{
    return m_ports.isEmpty() && m_moved.isEmpty() && !m_grid.hasTouched() && m_next >= m_uuids.size() &&
           m_touched.isEmpty();
}

void CLayoutFaults::finish()
{
    work(std::numeric_limits<int>::max());
}

void CLayoutFaults::work(int milliseconds)
{
    QElapsedTimer time;
    time.start();
    while (!isDone() && time.elapsed() < milliseconds)
        workOnce();
    if (!isDone())
        return;
    m_timer.stop();
    QVector<int> counts;
    for (int fault = 0; fault < int(CabinetFault::None); ++fault)
        counts << count(CabinetFault(fault));
    if (counts != m_told) {
        m_told = counts;
        m_changed();
    }
}

/// The least that a turn does: one port, cabinet or part of the plane, however many lie above each other.
void CLayoutFaults::workOnce()
{
    if (!m_ports.isEmpty()) {
        const int port = *m_ports.begin();
        m_ports.erase(m_ports.begin());
        look(port);
    } else if (!m_moved.isEmpty()) {
        const int number = m_moved.take();
        const QRect rect = m_places.take(number);
        if (m_uuids.at(number).isNull())
            m_grid.remove(number);
        else
            m_grid.move(number, rect);
    } else if (m_grid.hasTouched()) {
        const QSet<int> near = m_grid.takeTouched();
        for (const int number : near)
            m_touched.add(number);
    } else if (m_next < m_uuids.size()) {
        judge(m_next++);
    } else {
        judge(m_touched.take());
    }
}

void CLayoutFaults::look(int port)
{
    SPort &known = m_known[port];
    ++m_turn;
    known.unwired = 0;
    const CGraphicsPortItem *item = m_content.portItem(port);
    if (item && !item->isShownRedundant())
        keep(known, *item);
    dropUnseen(known);
}

void CLayoutFaults::keep(SPort &known, const CGraphicsPortItem &port)
{
    for (const CGraphicsCabinetItem *cabinet : port.cabinets(nullptr)) {
        const QRect &rect = cabinet->cabinet().rect;
        known.unwired += cabinet->isInChain() ? 0 : 1;
        const auto found = known.cabinets.find(cabinet->uuid());
        if (found == known.cabinets.end()) {
            const int number = m_grid.add({}); // moved there in its turn
            move(number, rect);
            const bool allJudged = m_next >= m_uuids.size();
            m_uuids.resize(qMax(m_uuids.size(), number + 1));
            m_next = allJudged ? m_uuids.size() : m_next; // this one once it is moved
            m_uuids[number] = cabinet->uuid();
            known.cabinets.insert(cabinet->uuid(), {number, m_turn});
            continue;
        }
        found->turn = m_turn;
        if (m_places.value(found->number, m_grid.rect(found->number)) != rect)
            move(found->number, rect);
        else if (m_overlapping.contains(found->number) || m_outside.contains(found->number))
            m_touched.add(found->number); // an item that was made anew has no marks
    }
}

void CLayoutFaults::move(int number, const QRect &rect)
{
    m_moved.add(number);
    m_places.insert(number, rect);
}

void CLayoutFaults::dropUnseen(SPort &known)
{
    for (auto cabinet = known.cabinets.begin(); cabinet != known.cabinets.end();) {
        if (cabinet->turn == m_turn) {
            ++cabinet;
            continue;
        }
        move(cabinet->number, {}); // removed in its turn
        m_uuids[cabinet->number] = QUuid();
        m_overlapping.remove(cabinet->number);
        m_outside.remove(cabinet->number);
        if (CGraphicsItemBase *item = m_content.editedItem(cabinet.key())) // of a port that is redundant now
            static_cast<CGraphicsCabinetItem *>(item)->setFaults({}, {});
        cabinet = known.cabinets.erase(cabinet);
    }
}

void CLayoutFaults::judge(int number)
{
    CGraphicsItemBase *item = m_content.editedItem(m_uuids.value(number));
    if (!item)
        return;
    const QRect rect = m_grid.rect(number);
    QVector<QRectF> overlaps;
    for (const QRect &shared : m_grid.overlaps(number, COverlapGrid::MostMarked))
        overlaps << QRectF(shared.translated(-rect.topLeft()));
    const QVector<QRectF> outside = COutside::parts(rect, m_content.canvas());
    const auto note = [number](QSet<int> &faulty, bool is) {
        if (is)
            faulty.insert(number);
        else
            faulty.remove(number);
    };
    note(m_overlapping, !overlaps.isEmpty());
    note(m_outside, !outside.isEmpty());
    static_cast<CGraphicsCabinetItem *>(item)->setFaults(overlaps, outside);
}

int CLayoutFaults::count(CabinetFault fault) const
{
    if (fault == CabinetFault::Overlapping)
        return m_overlapping.size();
    if (fault == CabinetFault::Outside)
        return m_outside.size();
    return std::accumulate(m_known.begin(), m_known.end(), 0,
                           [](int sum, const SPort &port) { return sum + port.unwired; });
}

QVector<QUuid> CLayoutFaults::cabinets(CabinetFault fault) const
{
    QVector<QUuid> uuids;
    if (fault == CabinetFault::Unwired) {
        for (auto known = m_known.begin(); known != m_known.end(); ++known) {
            const CGraphicsPortItem *port = known->unwired > 0 ? m_content.portItem(known.key()) : nullptr;
            for (const CGraphicsCabinetItem *cabinet :
                 port ? port->cabinets(nullptr) : QVector<CGraphicsCabinetItem *>()) {
                if (!cabinet->isInChain())
                    uuids << cabinet->uuid();
            }
        }
        return uuids;
    }
    for (const int number : fault == CabinetFault::Overlapping ? m_overlapping : m_outside)
        uuids << m_uuids.at(number);
    return uuids;
}
