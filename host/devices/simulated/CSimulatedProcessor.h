// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/CProcessorStateFiles.h"
#include "host/devices/simulated/CStateFolder.h"
#include "host/devices/simulated/DeviceError.h"
#include "host/devices/simulated/SSimulationFault.h"

#include <functional>
#include <mutex>
#include <optional>
#include <set>

class CCancelToken;

/// What a cabinet that is connected to a processor reports about itself.
struct SConnectedCabinet
{
    CabinetLayout::CabinetPort::Cabinet record;
    std::optional<double> gamma; ///< sent for its type before; nothing if none was
};

/// A simulated processor: answers requests as a device on the network does, late and sometimes not at all,
/// and keeps its state on disk. Any thread. Exchanges block and should run on a worker, except apply(),
/// probe() and readCabinet(), which take at most 80 milliseconds.
class CSimulatedProcessor final
{
public:
    /// What is fixed at the factory.
    struct SIdentity
    {
        QUuid uuid;
        QUuid group; ///< null: in no group
        QString name;
        QString kind; ///< id of its kind
        QString serialNumber;
        quint32 address = 0; ///< IPv4, most significant byte first
    };
    using Factory = CProcessorStateFiles::Factory;
    using Progress = std::function<void(int percent)>;

    /// @p delayScale is a factor for all delays and time-outs.
    CSimulatedProcessor(SIdentity identity, Factory factory, const QString &stateFolder, double delayScale);

    const SIdentity &identity() const { return m_identity; }

    /// The answer to a search: the encoded settings.
    DeviceError identify(CCancelToken &cancel, QByteArray &settings);
    /// Whether it is there. Answers to this are never lost, so that the loss of others can be tried.
    DeviceError ping(CCancelToken &cancel) { return waitForAnswer(cancel, {20, 1200}); }
    DeviceError revision(CCancelToken &cancel, quint64 &revision);
    /// The saved mapping, encoded.
    DeviceError readMapping(CCancelToken &cancel, const Progress &progress, QByteArray &mapping);
    /// The mapping that the cabinets report, encoded: those in a chain, without groups, with the numbers of
    /// their receiver cards.
    DeviceError readCabinets(CCancelToken &cancel, const Progress &progress, QByteArray &mapping);
    /// Replaces the whole mapping at the end of the transfer; sets @p revision to the new one.
    DeviceError saveMapping(CCancelToken &cancel, const Progress &progress, const QByteArray &mapping,
                            quint64 &revision);
    /// A short command that replaces the settings, also if the answer is lost or damaged.
    DeviceError apply(const SProcessorSettings &settings);
    /// A short command that changes nothing.
    DeviceError probe();
    /// A short command that reads a cabinet of the saved mapping; empty if the mapping has no such cabinet.
    DeviceError readCabinet(const QUuid &key, std::optional<SConnectedCabinet> &answer);

    /// Switches a state as if at the processor itself, see ProcessorStates. It stays as it is if it cannot be
    /// stored.
    DeviceError setState(SimulationFault state, bool on);
    SProcessorSettings settings();

    /// Fails only for a change from elsewhere that cannot be stored.
    DeviceError setFault(SimulationFault fault, bool on);
    bool hasFault(SimulationFault fault) const;
    /// Lets a fault show in one exchange only, the @p number-th from now on, or with @p onward also in all
    /// later ones. Replaces what was set before; 0: nothing.
    void setFaultAt(int number, SimulationFault fault, bool onward = false);
    /// Whether that exchange has begun.
    bool hasShownFault() const;

private:
    /// A fault that waits for its exchange.
    struct SLaterFault
    {
        SimulationFault fault;
        int number; ///< exchanges until then, this one included; 0 and below: it has come
        bool onward;

        bool isNow() const { return number == 0 || (number < 0 && onward); }
    };
    struct SPatience
    {
        int answer;  ///< milliseconds until the answer
        int timeOut; ///< milliseconds after which the caller gives up
    };
    DeviceError waitForAnswer(CCancelToken &cancel, const SPatience &patience);
    /// What the caller hears of a request that was carried out.
    DeviceError heard(DeviceError error) const;
    DeviceError transfer(CCancelToken &cancel, const Progress &progress, int stepTime) const;
    DeviceError send(CCancelToken &cancel, const Progress &progress, const SProcessorMapping &mapping,
                     QByteArray &bytes);
    QByteArray damagedWhereTold(QByteArray bytes) const;
    DeviceError command();
    DeviceError keep(const SProcessorSettings &settings); ///< with the mutex held
    SProcessorState &state(); ///< as on the disk, loaded when needed; with the mutex held
    DeviceError mayStore();   ///< the same
    SProcessorMapping keptMapping();
    DeviceError
    keep(SProcessorMapping &mapping); ///< stores it as the next revision; with the mapping mutex held
    DeviceError stored(CProcessorStateFiles::Part part, const CStatus &status) const;
    DeviceError changeFromElsewhere();
    int scaled(int milliseconds) const;

    const SIdentity m_identity;
    const Factory m_factory;
    const std::shared_ptr<CStateFolder> m_folder;
    CProcessorStateFiles m_files;
    CStateFolder::Access m_access = CStateFolder::Free; // when the state was loaded
    const double m_delayScale;
    std::mutex m_mappingMutex;  // held while the mapping is replaced and written to disk
    mutable std::mutex m_mutex; // guards the members below
    std::optional<SProcessorState> m_state;
    std::set<SimulationFault> m_faults;
    std::optional<SLaterFault> m_later;
};
