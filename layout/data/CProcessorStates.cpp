// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CProcessorStates.h"

#include "layout/data/PortLoads.h"

#include <algorithm>

namespace {

using Port = CabinetLayout::CabinetPort;

QVector<int> indicesOf(const QVector<Port> &ports)
{
    QVector<int> indices;
    for (const Port &port : ports)
        indices << port.index;
    return indices;
}

QRect unitedBounds(const CProcessorState &state)
{
    QRect bounds;
    for (const SPortFacts &facts : state.facts)
        bounds |= facts.area;
    return bounds;
}

LayoutData dataOf(const CProcessorState &state)
{
    return {state.layout.processor, state.layout, state.canvas, unitedBounds(state)};
}

} // namespace

QUuid CProcessorStates::current() const
{
    const CReadLocker locker(m_lock);
    return m_current;
}

QVector<Port> CProcessorStates::ports() const
{
    const CReadLocker locker(m_lock);
    return currentLayout().ports;
}

Port CProcessorStates::port(int index) const
{
    const CReadLocker locker(m_lock);
    const Port *port = currentLayout().port(index);
    return port ? *port : Port();
}

int CProcessorStates::processorLoad() const
{
    const CReadLocker locker(m_lock);
    return PortLoads::processorLoad(currentLayout().ports);
}

std::optional<int> CProcessorStates::takeProcessorLoad()
{
    const CWriteLocker locker(m_lock);
    const std::pair<QUuid, int> load{m_current, PortLoads::processorLoad(currentLayout().ports)};
    if (m_takenLoad == load)
        return std::nullopt;
    m_takenLoad = load;
    return load.second;
}

QSize CProcessorStates::canvas() const
{
    const CReadLocker locker(m_lock);
    const CProcessorState *state = find(m_current);
    return state ? state->canvas : QSize();
}

SBackgroundInfo CProcessorStates::background() const
{
    const CReadLocker locker(m_lock);
    const CProcessorState *state = find(m_current);
    return state ? state->background : SBackgroundInfo();
}

QVector<Port> CProcessorStates::portsOf(const QUuid &processor) const
{
    const CReadLocker locker(m_lock);
    const CProcessorState *state = find(processor);
    return state ? state->layout.ports : QVector<Port>();
}

LayoutData CProcessorStates::data(const QUuid &processor) const
{
    const CReadLocker locker(m_lock);
    const CProcessorState *state = find(processor);
    return state ? dataOf(*state) : LayoutData();
}

int CProcessorStates::currentPort() const
{
    const CReadLocker locker(m_lock);
    return m_currentPort.port;
}

void CProcessorStates::choosePort(int port)
{
    const CWriteLocker locker(m_lock);
    m_currentPort = CurrentPortRule::after(m_currentPort, PortEvent::Chosen, wallPorts(), port);
}

void CProcessorStates::suspendCurrentPort()
{
    const CWriteLocker locker(m_lock);
    m_currentPort = CurrentPortRule::after(m_currentPort, PortEvent::Suspended, {});
}

void CProcessorStates::showWall(bool another)
{
    const CWriteLocker locker(m_lock);
    m_currentPort = CurrentPortRule::after(m_currentPort, another ? PortEvent::NewWall : PortEvent::WallShown,
                                           wallPorts());
}

void CProcessorStates::setCurrent(const QUuid &processor)
{
    const CWriteLocker locker(m_lock);
    if (m_current != processor)
        m_currentPort = CurrentPortRule::after(m_currentPort, PortEvent::Suspended, {});
    m_current = processor;
}

void CProcessorStates::takeFromHost(const QUuid &processor, const QVector<Port> &ports, bool keepEdits)
{
    if (processor.isNull())
        return;
    CabinetLayout known;
    QHash<int, SPortFacts> knownFacts;
    {
        const CReadLocker locker(m_lock);
        if (const CProcessorState *state = find(processor)) {
            known = state->layout;
            knownFacts = state->facts;
        }
    }
    // Cabinets are walked before the lock is taken. What is found remains true, whatever is edited meanwhile.
    QHash<int, SPortFacts> facts = SPortFacts::ofAll(ports, known, knownFacts);
    CabinetLayout before; // outlives the lock, so that nothing is freed under it
    const CWriteLocker locker(m_lock);
    CProcessorState &state = stateOf(processor);
    before = state.layout;
    state.layout.ports = ports;
    for (Port &port : state.layout.ports) {
        const Port *old = before.port(port.index);
        if (!old)
            continue;
        port.load = old->load;
        if (keepEdits) {
            port.groups = old->groups;
            port.locked = old->locked;
            port.color = old->color;
            facts[port.index] = state.facts.value(port.index);
        }
    }
    state.facts.swap(facts);
    if (processor == m_current)
        m_currentPort = CurrentPortRule::after(m_currentPort, PortEvent::PortsChanged, indicesOf(ports));
}

void CProcessorStates::setCanvas(const QUuid &processor, const QSize &canvas)
{
    if (processor.isNull())
        return;
    const CWriteLocker locker(m_lock);
    stateOf(processor).canvas = canvas;
}

SBackgroundInfo CProcessorStates::setBackground(const QUuid &processor, const SBackgroundInfo &background)
{
    if (processor.isNull())
        return {};
    const CWriteLocker locker(m_lock);
    CProcessorState &state = stateOf(processor);
    const SBackgroundInfo before = state.background;
    state.background = background;
    return before;
}

void CProcessorStates::remove(const QUuid &processor)
{
    const CWriteLocker locker(m_lock);
    m_states.erase(processor);
    m_lostEdits.remove(processor);
    if (processor == m_edited)
        m_edited = QUuid();
    if (processor != m_current)
        return;
    m_current = QUuid();
    m_currentPort = {};
}

void CProcessorStates::clear()
{
    const CWriteLocker locker(m_lock);
    m_states.clear();
    m_lostEdits.clear();
    m_current = m_edited = QUuid();
    m_currentPort = {};
}

QUuid CProcessorStates::edited() const
{
    const CReadLocker locker(m_lock);
    return m_edited;
}

void CProcessorStates::setEdited(const QUuid &processor)
{
    const CWriteLocker locker(m_lock);
    m_edited = processor;
    m_editsOutdated = false;
}

void CProcessorStates::outdateEdits(const QUuid &processor)
{
    const CWriteLocker locker(m_lock);
    m_editsOutdated = m_editsOutdated || (processor == m_edited && !processor.isNull());
}

void CProcessorStates::loseEdit(const QUuid &processor)
{
    const CWriteLocker locker(m_lock);
    m_lostEdits.insert(processor);
}

bool CProcessorStates::takeLostEdit(const QUuid &processor)
{
    const CWriteLocker locker(m_lock);
    return m_lostEdits.remove(processor);
}

QUuid CProcessorStates::editable() const
{
    const CReadLocker locker(m_lock);
    return m_editsOutdated ? QUuid() : m_edited;
}

std::optional<CProcessorStates::SEdit> CProcessorStates::takeEdit(const CabinetLayout &edited)
{
    struct SChange
    {
        bool differs;
        SPortFacts facts;
    };
    const CabinetLayout known = data(edited.processor).layout;
    QHash<int, SChange> changes; // walked before the lock is taken
    for (const Port &port : known.ports) {
        const Port *changed = edited.port(port.index);
        if (changed && !SPortFacts::areShared(*changed, port))
            changes.insert(port.index,
                           {!LayoutData::comparePortData(*changed, port, true), SPortFacts::of(*changed)});
    }
    const CWriteLocker locker(m_lock);
    if (m_editsOutdated || m_edited.isNull() || m_edited != edited.processor)
        return std::nullopt;
    SEdit edit;
    CProcessorState &state = stateOf(m_edited);
    for (Port &port : state.layout.ports) {
        const Port *changed = edited.port(port.index);
        if (!changed || SPortFacts::areShared(*changed, port))
            continue;
        const Port *before = known.port(port.index);
        const bool walked = before && changes.contains(port.index);
        if (!walked || !SPortFacts::areShared(*before, port) || changes.value(port.index).differs)
            edit.changedPorts << port.index; // also if the host replaced it in between
        port.groups = changed->groups;       // also equal ones: shared data is compared in O(1) the next time
        state.facts[port.index] = walked ? changes.value(port.index).facts : SPortFacts::of(port);
    }
    edit.data = dataOf(state);
    edit.known = known;
    return edit;
}

QVector<int> CProcessorStates::setLocked(int port, bool locked)
{
    const CWriteLocker locker(m_lock);
    QVector<int> changed;
    if (m_current.isNull())
        return changed;
    for (Port &record : stateOf(m_current).layout.ports) {
        if ((port == -1 || record.index == port) && record.locked != locked) {
            record.locked = locked;
            changed << record.index;
        }
    }
    return changed;
}

bool CProcessorStates::setColor(int port, const QColor &color)
{
    const CWriteLocker locker(m_lock);
    Port *record = currentPortRecord(port);
    if (!record || record->color == color)
        return false;
    record->color = color;
    return true;
}

bool CProcessorStates::resetCalibration(int port)
{
    const CWriteLocker locker(m_lock);
    if (!find(m_current))
        return false;
    CProcessorState &state = stateOf(m_current);
    bool matched = false;
    for (Port &record : state.layout.ports) {
        if (port != -1 && record.index != port)
            continue;
        matched = true;
        state.facts[record.index].endHighlight(record);
    }
    return matched;
}

std::optional<CProcessorStates::SLoadQuestion> CProcessorStates::loadQuestion(int port) const
{
    const CReadLocker locker(m_lock);
    const Port *bearer = PortLoads::loadBearer(currentLayout(), port);
    if (!bearer)
        return std::nullopt;
    return SLoadQuestion{m_current, *bearer};
}

bool CProcessorStates::setLoad(const QUuid &processor, int port, qint64 load)
{
    const CWriteLocker locker(m_lock);
    Port *record = processor == m_current ? currentPortRecord(port) : nullptr;
    if (!record || record->load == load)
        return false;
    record->load = load;
    return true;
}

SPortRedundancyNote CProcessorStates::note(int port) const
{
    const CReadLocker locker(m_lock);
    const CProcessorState *state = find(m_current);
    return state ? state->notes.value(port) : SPortRedundancyNote();
}

bool CProcessorStates::setNote(const QUuid &processor, int port, const SPortRedundancyNote &note)
{
    const CWriteLocker locker(m_lock);
    if (processor.isNull() || processor != m_current)
        return false;
    QHash<int, SPortRedundancyNote> &notes = stateOf(processor).notes;
    if (notes.value(port) == note)
        return false;
    notes.insert(port, note);
    return true;
}

int CProcessorStates::loadFollower(int port) const
{
    const CReadLocker locker(m_lock);
    return PortLoads::loadFollower(currentLayout(), port);
}

CProcessorState &CProcessorStates::stateOf(const QUuid &processor)
{
    std::unique_ptr<CProcessorState> &state = m_states[processor];
    if (!state) {
        state = std::make_unique<CProcessorState>();
        state->layout.processor = processor;
    }
    return *state;
}

const CProcessorState *CProcessorStates::find(const QUuid &processor) const
{
    const auto found = m_states.find(processor);
    return found == m_states.end() ? nullptr : found->second.get();
}

const CabinetLayout &CProcessorStates::currentLayout() const
{
    static const CabinetLayout none;
    const CProcessorState *state = find(m_current);
    return state ? state->layout : none;
}

Port *CProcessorStates::currentPortRecord(int index)
{
    const CProcessorState *known = find(m_current);
    if (!known || !known->layout.port(index))
        return nullptr;
    QVector<Port> &ports = stateOf(m_current).layout.ports;
    return std::find_if(ports.begin(), ports.end(), [index](const Port &p) { return p.index == index; });
}

QVector<int> CProcessorStates::wallPorts() const
{
    const CProcessorState *state = find(m_edited);
    return state ? indicesOf(state->layout.ports) : QVector<int>();
}
