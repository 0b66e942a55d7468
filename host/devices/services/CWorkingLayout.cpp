// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CWorkingLayout.h"

#include "host/devices/simulated/CPortCapacity.h"
#include "layout/api/records/LayoutData.h"

#include <algorithm>
#include <atomic>
#include <numeric>
#include <vector>

namespace {

using Port = CabinetLayout::CabinetPort;
using Cabinet = Port::Cabinet;
using Groups = QVector<Port::CabinetGroup>;

template <typename Function>
void forEachCabinet(Groups &groups, const Function &function)
{
    for (Port::CabinetGroup &group : groups) {
        for (Cabinet &cabinet : group.cabinets)
            function(cabinet);
        forEachCabinet(group.groups, function);
    }
}

bool shares(const Groups &a, const Groups &b)
{
    return a.constData() == b.constData() && a.size() == b.size();
}

bool sameLook(const Port &a, const Port &b)
{
    return a.index == b.index && a.color == b.color && a.locked == b.locked && a.redundancy == b.redundancy &&
           a.redundancyPort == b.redundancyPort && a.redundancyProcessor == b.redundancyProcessor &&
           a.mirrored == b.mirrored;
}

bool samePort(const Port &a, const Port &b)
{
    return sameLook(a, b) && LayoutData::comparePortData(a, b, true);
}

} // namespace

void CWorkingLayout::take(const CabinetLayout &layout, const SReceiverGeneration &generation)
{
    CabinetLayout next = layout;
    QHash<int, SFigures> figures;
    for (Port &port : next.ports) {
        const Port *before = m_taken.port(port.index);
        const Port *numberedBefore = m_layout.port(port.index);
        // The module's first layout shares ports with layout(), later ones with its previous layout.
        const bool untouched =
            before && numberedBefore &&
            (shares(before->groups, port.groups) || shares(numberedBefore->groups, port.groups));
        const bool sameRole = numberedBefore && numberedBefore->redundancy == port.redundancy;
        if (untouched)
            port.groups = numberedBefore->groups;
        else
            renumber(port);
        figures.insert(port.index,
                       untouched && sameRole ? m_figures.value(port.index) : figuresOf(port, generation));
    }
    SEdited edited;
    bool changed = next.ports.size() != m_layout.ports.size();
    for (const Port &port : std::as_const(next).ports) {
        const Port *before = m_layout.port(port.index);
        const bool untouched = before && shares(before->groups, port.groups) && sameLook(*before, port);
        if (!untouched) {
            compareWithSaved(port, edited);
        } else {
            if (m_edited.cabinets.contains(port.index))
                edited.cabinets.insert(port.index);
            if (m_edited.settings.contains(port.index))
                edited.settings.insert(port.index);
        }
        changed = changed || !before || !(untouched || samePort(*before, port));
    }
    m_taken = layout;
    m_layout = next;
    m_figures = figures;
    m_edited = edited;
    m_edition += changed ? 1 : 0;
}

/// The groups that take() was given stay, because the next layout shares them.
void CWorkingLayout::changeLook(int index, const std::function<void(Port &)> &change)
{
    bool changed = false;
    for (Port &port : m_layout.ports) {
        if (index != -1 && port.index != index)
            continue;
        const Port before = port;
        change(port);
        changed = changed || !sameLook(before, port);
        if (haveSettingsChanged(port))
            m_edited.settings.insert(port.index);
        else
            m_edited.settings.remove(port.index);
    }
    if (changed)
        ++m_edition;
}

CWorkingLayout::SFigures CWorkingLayout::figuresOf(const Port &port, const SReceiverGeneration &generation)
{
    SFigures figures;
    if (port.redundancy != Port::Redundant) // otherwise its primary is charged for its signal
        figures.charged = CPortCapacity::charged(generation, port);
    for (const Port::CabinetGroup &group : port.groups)
        figures.bounds |= group.boundingRect();
    return figures;
}

bool CWorkingLayout::haveSettingsChanged(const Port &port) const
{
    const Port *saved = m_saved.port(port.index);
    return !saved || !sameLook(*saved, port);
}

void CWorkingLayout::compareWithSaved(const Port &port, SEdited &edited) const
{
    const Port *saved = m_saved.port(port.index);
    if (haveSettingsChanged(port))
        edited.settings.insert(port.index);
    if (!LayoutData::comparePortData(saved ? *saved : Port(), port, true))
        edited.cabinets.insert(port.index);
}

void CWorkingLayout::setSaved(const CabinetLayout &mapping)
{
    m_saved = mapping;
    m_places.clear();
    for (const Port &port : mapping.ports) {
        for (const Cabinet &cabinet : port.getAllCabinets()) {
            if (cabinet.mappingIndex >= 0)
                m_places.insert(cabinet.uuid, cabinet.mappingIndex);
        }
    }
    static std::atomic<quint64> lastNumber{0};
    m_savedNumber = ++lastNumber;
    ++m_edition;
    m_edited = SEdited();
    for (Port &port : m_layout.ports) {
        renumber(port);
        compareWithSaved(port, m_edited);
    }
}

void CWorkingLayout::renumber(Port &port) const
{
    bool right = true;
    for (const Cabinet &cabinet : port.getAllCabinets())
        right = right && cabinet.mappingIndex == m_places.value(cabinet.uuid, -1);
    if (right)
        return; // so that it stays shared
    forEachCabinet(port.groups, [this](Cabinet &c) { c.mappingIndex = m_places.value(c.uuid, -1); });
}

qint64 CWorkingLayout::chargedPixels() const
{
    return std::accumulate(m_figures.begin(), m_figures.end(), qint64(0),
                           [](qint64 sum, const SFigures &port) { return sum + port.charged; });
}

QRect CWorkingLayout::bounds() const
{
    return std::accumulate(m_figures.begin(), m_figures.end(), QRect(),
                           [](const QRect &all, const SFigures &port) { return all | port.bounds; });
}

CabinetLayout CWorkingLayout::numbered(CabinetLayout layout)
{
    int next = 0;
    for (Port &port : layout.ports) {
        std::vector<Cabinet *> chain;
        forEachCabinet(port.groups, [&chain](Cabinet &cabinet) {
            cabinet.mappingIndex = -1;
            if (cabinet.rank >= 0)
                chain.push_back(&cabinet);
        });
        std::sort(chain.begin(), chain.end(), [](const Cabinet *a, const Cabinet *b) {
            return a->rank != b->rank ? a->rank < b->rank : a->uuid < b->uuid;
        });
        for (Cabinet *cabinet : chain)
            cabinet->mappingIndex = next++;
    }
    return layout;
}
