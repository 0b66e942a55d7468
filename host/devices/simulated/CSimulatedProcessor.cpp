// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/simulated/CSimulatedProcessor.h"

#include "host/devices/simulated/CCancelToken.h"
#include "host/devices/simulated/DevicesLog.h"
#include "host/devices/simulated/ProcessorStates.h"
#include "host/projects/CSafeFile.h"

#include <cmath>

namespace {

using Port = CabinetLayout::CabinetPort;

constexpr int SlowFactor = 10;
constexpr int TransferSteps = 20;
constexpr int ReadStep = 4;        // milliseconds
constexpr int SaveStep = 60;       // milliseconds: devices store slowly
constexpr int ShortestAnswer = 5;  // milliseconds, of a command
constexpr int CommandTimeOut = 80; // milliseconds: commands run on the GUI thread

/// The cabinets of a port that a chain reaches, in its order, as they would report themselves.
Port reported(const Port &port)
{
    Port answer;
    answer.index = port.index;
    Port::CabinetGroup loose;
    for (Port::Cabinet cabinet : port.getAllCabinets()) {
        if (cabinet.rank < 0)
            continue;
        cabinet.group = QUuid();
        cabinet.receivers.clear();
        for (int i = 0; i < std::max(1, cabinet.rects.size()); ++i)
            cabinet.receivers << i;
        loose.cabinets << cabinet;
    }
    if (!loose.cabinets.isEmpty())
        answer.groups << loose;
    return answer;
}

/// Simulates that somebody else removes the last cabinet of a chain.
void unwireOneTail(CabinetLayout &layout)
{
    for (Port &port : layout.ports) {
        Port::Cabinet *tail = nullptr;
        for (Port::CabinetGroup &group : port.groups) {
            for (Port::Cabinet &cabinet : group.cabinets) {
                if (cabinet.rank > (tail ? tail->rank : -1))
                    tail = &cabinet;
            }
        }
        if (tail) {
            tail->rank = -1;
            return;
        }
    }
}

} // namespace

CSimulatedProcessor::CSimulatedProcessor(SIdentity identity, Factory factory, const QString &stateFolder,
                                         double delayScale)
    : m_identity(std::move(identity))
    , m_factory(std::move(factory))
    , m_folder(CStateFolder::at(stateFolder))
    , m_files(stateFolder, m_identity.uuid)
    , m_delayScale(delayScale)
{
}

int CSimulatedProcessor::scaled(int milliseconds) const
{
    return static_cast<int>(std::lround(milliseconds * m_delayScale));
}

SProcessorState &CSimulatedProcessor::state()
{
    // An owner loads only once, and a part that is closed stays so; before, others may store at any time.
    const bool owned = m_state && m_access == CStateFolder::Owned;
    const CStateFolder::Access access = owned ? m_access : m_folder->access();
    const bool others = access == CStateFolder::Others;
    const bool other = others != (m_access == CStateFolder::Others);
    if (!m_state || other || (!owned && !m_files.areAsLoaded())) {
        m_state = m_files.load(m_factory, others ? CProcessorStateFiles::Guest : CProcessorStateFiles::Owner);
        m_state->settings.frozen = false;
    }
    m_access = access;
    return *m_state;
}

DeviceError CSimulatedProcessor::mayStore()
{
    Q_UNUSED(CSafeFile::makeFolder(m_folder->path())) // for the lock; storing tells why it cannot be made
    state();
    return m_access == CStateFolder::Others ? DeviceError::InUse : DeviceError::None;
}

DeviceError CSimulatedProcessor::setFault(SimulationFault fault, bool on)
{
    if (fault == SimulationFault::Changed)
        return on ? changeFromElsewhere() : DeviceError::None;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (on)
        m_faults.insert(fault);
    else
        m_faults.erase(fault);
    return DeviceError::None;
}

bool CSimulatedProcessor::hasFault(SimulationFault fault) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_faults.count(fault) > 0 || (m_later && m_later->fault == fault && m_later->isNow());
}

void CSimulatedProcessor::setFaultAt(int number, SimulationFault fault, bool onward)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_later.reset();
    if (number > 0)
        m_later = SLaterFault{fault, number, onward};
}

bool CSimulatedProcessor::hasShownFault() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_later && m_later->number <= 0;
}

DeviceError CSimulatedProcessor::changeFromElsewhere()
{
    const std::lock_guard<std::mutex> writing(m_mappingMutex);
    SProcessorMapping mapping = keptMapping();
    unwireOneTail(mapping.layout);
    return keep(mapping);
}

DeviceError CSimulatedProcessor::waitForAnswer(CCancelToken &cancel, const SPatience &patience)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_later)
            --m_later->number;
    }
    if (cancel.isCancelled())
        return DeviceError::Cancelled;
    if (hasFault(SimulationFault::Offline))
        return DeviceError::Offline;
    const bool silent = hasFault(SimulationFault::Silent);
    const int late = patience.answer * (hasFault(SimulationFault::Slow) ? SlowFactor : 1);
    if (!cancel.wait(scaled(silent ? patience.timeOut : std::min(late, patience.timeOut))))
        return DeviceError::Cancelled;
    if (silent)
        return DeviceError::NoAnswer;
    return hasFault(SimulationFault::Refuse) ? DeviceError::Refused : DeviceError::None;
}

DeviceError CSimulatedProcessor::heard(DeviceError error) const
{
    return error == DeviceError::None && hasFault(SimulationFault::LostAnswer) ? DeviceError::NoAnswer
                                                                               : error;
}

DeviceError CSimulatedProcessor::transfer(CCancelToken &cancel, const Progress &progress, int stepTime) const
{
    for (int step = 0; step < TransferSteps; ++step) {
        progress(100 * step / TransferSteps);
        const bool slow = hasFault(SimulationFault::Slow);
        if (!cancel.wait(scaled(slow ? stepTime * SlowFactor : stepTime)))
            return DeviceError::Cancelled;
        if (hasFault(SimulationFault::Offline))
            return DeviceError::ConnectionLost;
        if (step == TransferSteps / 2 && hasFault(SimulationFault::Drop))
            return DeviceError::ConnectionLost;
    }
    progress(100);
    return DeviceError::None;
}

QByteArray CSimulatedProcessor::damagedWhereTold(QByteArray bytes) const
{
    if (hasFault(SimulationFault::Damaged) && !bytes.isEmpty()) {
        const int place = bytes.size() * 2 / 3;
        bytes[place] = static_cast<char>(bytes.at(place) ^ 0x04);
    }
    return bytes;
}

DeviceError CSimulatedProcessor::identify(CCancelToken &cancel, QByteArray &settings)
{
    const DeviceError error = waitForAnswer(cancel, {60, 1200});
    if (error != DeviceError::None)
        return error;
    QByteArray bytes;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        bytes = CProcessorCodec::encode(state().settings);
    }
    settings = damagedWhereTold(bytes);
    return heard(DeviceError::None);
}

DeviceError CSimulatedProcessor::revision(CCancelToken &cancel, quint64 &revision)
{
    const DeviceError error = waitForAnswer(cancel, {20, 3000});
    if (error != DeviceError::None)
        return error;
    revision = keptMapping().revision;
    return heard(DeviceError::None);
}

DeviceError CSimulatedProcessor::send(CCancelToken &cancel, const Progress &progress,
                                      const SProcessorMapping &mapping, QByteArray &bytes)
{
    DeviceError error = waitForAnswer(cancel, {20, 3000});
    if (error == DeviceError::None)
        error = transfer(cancel, progress, ReadStep);
    if (error == DeviceError::None)
        bytes = damagedWhereTold(CProcessorCodec::encode(mapping));
    return heard(error);
}

DeviceError CSimulatedProcessor::readMapping(CCancelToken &cancel, const Progress &progress,
                                             QByteArray &mapping)
{
    return send(cancel, progress, keptMapping(), mapping);
}

DeviceError CSimulatedProcessor::readCabinets(CCancelToken &cancel, const Progress &progress,
                                              QByteArray &mapping)
{
    SProcessorMapping answer = keptMapping();
    for (Port &port : answer.layout.ports)
        port = reported(port);
    return send(cancel, progress, answer, mapping);
}

DeviceError CSimulatedProcessor::saveMapping(CCancelToken &cancel, const Progress &progress,
                                             const QByteArray &mapping, quint64 &revision)
{
    DeviceError error = waitForAnswer(cancel, {20, 3000});
    if (error == DeviceError::None)
        error = transfer(cancel, progress, SaveStep);
    if (error != DeviceError::None)
        return error;
    CResult<SProcessorMapping> received =
        CProcessorCodec::mapping(damagedWhereTold(mapping), m_identity.name);
    if (!received)
        return DeviceError::Damaged;
    const std::lock_guard<std::mutex> writing(m_mappingMutex);
    error = keep(received.value());
    if (error == DeviceError::None && hasFault(SimulationFault::Twice))
        error = keep(received.value());
    if (error == DeviceError::None)
        revision = received.value().revision;
    return heard(error);
}

DeviceError CSimulatedProcessor::keep(SProcessorMapping &mapping)
{
    DeviceError error = DeviceError::None;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        error = mayStore();
        mapping.revision = m_state->mapping.revision + 1;
    }
    if (error == DeviceError::None)
        error = stored(CProcessorStateFiles::Mapping, m_files.save(mapping));
    if (error != DeviceError::None)
        return error;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_files.noteStored(CProcessorStateFiles::Mapping);
    m_state->mapping = mapping;
    return DeviceError::None;
}

DeviceError CSimulatedProcessor::stored(CProcessorStateFiles::Part part, const CStatus &status) const
{
    if (status)
        return DeviceError::None;
    qCWarning(devicesLog, "%s", qPrintable(status.error()));
    return m_files.isClosed(part) ? DeviceError::Unread : DeviceError::NotStored;
}

SProcessorMapping CSimulatedProcessor::keptMapping()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return state().mapping;
}

DeviceError CSimulatedProcessor::command()
{
    CCancelToken never;
    const DeviceError error = waitForAnswer(never, {ShortestAnswer, CommandTimeOut});
    return error == DeviceError::None && hasFault(SimulationFault::Damaged) ? DeviceError::Damaged : error;
}

DeviceError CSimulatedProcessor::apply(const SProcessorSettings &settings)
{
    const DeviceError error = command();
    const bool isAnswerLost = error == DeviceError::NoAnswer || error == DeviceError::Damaged;
    if (error != DeviceError::None && !isAnswerLost)
        return error;
    DeviceError kept = DeviceError::None;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        kept = keep(settings);
    }
    return isAnswerLost ? error : heard(kept);
}

DeviceError CSimulatedProcessor::keep(const SProcessorSettings &settings)
{
    // Loaded first, so that unreadable files are known before anything is written.
    const DeviceError refused = mayStore();
    if (refused != DeviceError::None)
        return refused;
    const DeviceError error = stored(CProcessorStateFiles::Settings, m_files.save(settings));
    if (error == DeviceError::None) {
        m_files.noteStored(CProcessorStateFiles::Settings);
        m_state->settings = settings;
    }
    return error;
}

DeviceError CSimulatedProcessor::setState(SimulationFault state, bool on)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    SProcessorSettings settings = this->state().settings;
    ProcessorStates::set(settings, state, on);
    return keep(settings);
}

SProcessorSettings CSimulatedProcessor::settings()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return state().settings;
}

DeviceError CSimulatedProcessor::probe()
{
    return heard(command());
}

DeviceError CSimulatedProcessor::readCabinet(const QUuid &key, std::optional<SConnectedCabinet> &answer)
{
    const DeviceError error = command();
    if (error != DeviceError::None)
        return error;
    const std::lock_guard<std::mutex> lock(m_mutex);
    const SProcessorState &kept = state();
    for (const Port &port : kept.mapping.layout.ports) {
        for (const Port::Cabinet &cabinet : port.getAllCabinets()) {
            if (cabinet.uuid != key || cabinet.rank < 0)
                continue;
            answer = SConnectedCabinet{cabinet, {}};
            const auto gamma = kept.settings.gammas.constFind(cabinet.type);
            if (gamma != kept.settings.gammas.constEnd())
                answer->gamma = *gamma;
        }
    }
    return DeviceError::None;
}
