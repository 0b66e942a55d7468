// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// The operations that change something; those that only return values are in CLayoutHandler.cpp.
#include "host/devices/CDeviceCommands.h"
#include "host/devices/CJournalKeeper.h"
#include "host/devices/CLayoutHandler.h"
#include "host/devices/CMappingFiles.h"
#include "host/devices/CPortPairs.h"
#include "host/devices/CRedundancyPairs.h"
#include "host/devices/jobs/CDeviceJobs.h"
#include "host/devices/services/CDeviceServices.h"
#include "host/projects/CSafeFile.h"
#include "platform/common/CBackgroundCall.h"

#include <QDir>

#include <algorithm>

void CLayoutHandler::showScreen(bool shown)
{
    m_services.announcer().requestScreen(shown);
}

void CLayoutHandler::applyLayoutFollowUp(bool full)
{
    m_followUpNeeded = false;
    const QUuid processor = m_services.table().current();
    if (full && !processor.isNull())
        m_services.announcer().notify(LayoutNotification::PortLoadsChanged, SPortLoadChange{processor, -1});
    m_services.announcer().announceCommit(processor);
}

void CLayoutHandler::commitLayoutData(const LayoutData &data)
{
    if (data.layout.ports.isEmpty())
        return; // nothing was shown that could have been edited
    bool overloaded = false;
    const QVector<Ports> shown = m_services.table().editLayout(data.processor, [&](SDevice &device) {
        if (!device.isLoaded())
            return;
        overloaded = device.isOverloaded();
        device.takeLayout(PortPairs::withPairsOf(data.layout, device.working.layout()));
        overloaded = overloaded || device.isOverloaded();
    });
    if (!shown.isEmpty())
        return tellRefused(data, shown); // the module may have given one of them back unedited
    m_followUpNeeded = true;
    if (overloaded) // then the load of each port depends on all the others
        m_services.announcer().notify(LayoutNotification::PortLoadsChanged,
                                      SPortLoadChange{data.processor, -1});
    m_services.announcer().announceState();
}

/// Edits of what is not there any more. Locks and colours are not among them: they are set on their own.
void CLayoutHandler::tellRefused(const LayoutData &data, const QVector<Ports> &shown)
{
    using Port = CabinetLayout::CabinetPort;
    const auto same = [](const Port &a, const Port &b) {
        return a.index == b.index && LayoutData::comparePortData(a, b, true);
    };
    const bool edited = std::none_of(shown.begin(), shown.end(), [&](const Ports &ports) {
        return std::equal(ports.begin(), ports.end(), data.layout.ports.begin(), data.layout.ports.end(),
                          same);
    });
    if (edited)
        m_services.announcer().announceWords(
            known(data.processor)
                .failureText(
                    tr("The last edit came while the layout was being replaced, and is not in it.")));
}

void CLayoutHandler::changePorts(const QUuid &processor, int port,
                                 const std::function<void(CabinetLayout::CabinetPort &)> &change)
{
    m_services.table().changeLayout(
        processor, [&](SDevice &device) { device.working.changeLook(port, change); },
        CDeviceTable::Cause::Editor);
    m_services.announcer().announceState();
}

void CLayoutHandler::setPortLocked(const QUuid &processor, int port, bool locked)
{
    changePorts(processor, port, [locked](auto &known) { known.locked = locked; });
}

void CLayoutHandler::setPortColor(const QUuid &processor, int port, const QColor &color)
{
    changePorts(processor, port, [&color](auto &known) { known.color = color; });
}

bool CLayoutHandler::exportProcessorMapping(const QUuid &processor, const QString &file)
{
    std::optional<SLockHolder> heldBy;
    const auto write = [&](bool overHeld) {
        return CBackgroundCall::result(
            [&] { return m_files->exportProcessor(processor, file, overHeld, heldBy); });
    };
    const CStatus written = write(false);
    if (heldBy && m_jobs.confirm(tr("Somebody else has the file open.\n%1\n%2. Replace what they have saved?")
                                     .arg(QDir::toNativeSeparators(file), heldBy->text())))
        return told(write(true));
    return told(written);
}

bool CLayoutHandler::importProcessorMapping(const QUuid &processor, const QString &file, bool overwriteLocked)
{
    return told(
        CBackgroundCall::result([&] { return m_files->importProcessor(processor, file, overwriteLocked); }));
}

bool CLayoutHandler::copyProcessorMapping(const QUuid &from, const QUuid &to, bool overwriteLocked)
{
    return told(CBackgroundCall::result([&] { return m_files->copyProcessor(from, to, overwriteLocked); }));
}

void CLayoutHandler::recordEdit(const SEditRecord &record)
{
    if (m_keeper)
        m_keeper->note(record);
}

SEditHistory CLayoutHandler::editHistory(const QUuid &processor) const
{
    return m_keeper ? m_keeper->history(processor) : SEditHistory();
}

PrintConfig CLayoutHandler::printSettings(const QUuid &processor) const
{
    return known(processor).print;
}

bool CLayoutHandler::setPrintSettings(const QUuid &processor, const PrintConfig &settings)
{
    bool project = false;
    m_services.table().change(processor, [&](SDevice &device) {
        project = device.project;
        if (project)
            device.print = settings.kept();
    });
    m_services.announcer().announceState();
    return project;
}

QString CLayoutHandler::writeFile(const QString &file, const QByteArray &content)
{
    return CSafeFile::write(file, content, CSafeFile::DropPrevious).error();
}

bool CLayoutHandler::exportPortMapping(const QUuid &processor, int port, const QString &file)
{
    return told(CBackgroundCall::result([&] { return m_files->exportPort(processor, port, file); }));
}

bool CLayoutHandler::importPortMapping(const QUuid &processor, int port, const QString &file,
                                       bool overwriteLocked)
{
    return told(
        CBackgroundCall::result([&] { return m_files->importPort(processor, port, file, overwriteLocked); }));
}

bool CLayoutHandler::exportCabinetConfig(const CabinetLayout::CabinetPort::Cabinet &cabinet,
                                         const QString &file)
{
    return told(CBackgroundCall::result([&] { return m_files->exportCabinet(cabinet, file); }));
}

bool CLayoutHandler::readbackCabinetConfig(int port, const CabinetLayout::CabinetPort::Cabinet &cabinet,
                                           const QString &file, const QString &typeName)
{
    const SDevice device = current();
    if (cabinet.port != port || !device.working.isMapped(cabinet.uuid))
        return told(CStatus::failure(tr("The cabinet is not in the processor's saved mapping.")));
    return told(CBackgroundCall::result([&] {
        const CResult<SConnectedCabinet> connected = m_commands.readCabinet(device, cabinet.uuid);
        if (!connected)
            return CStatus::failure(connected.error());
        const bool sameType = connected.value().record.type == cabinet.type;
        return m_files->writeConnected(connected.value(), file, sameType ? typeName : QString());
    }));
}

bool CLayoutHandler::setCabinetStatusLed(bool on)
{
    return told(m_commands.setStatusLed(on));
}

void CLayoutHandler::performPreparatoryStep(const QUuid &processor)
{
    if (preparatoryStep(processor) == 0)
        return;
    m_services.replaceLayout(processor, [](SDevice &device) {
        device.takeLayout({});
        device.takeSaved({});
    });
}

bool CLayoutHandler::setOutputPortCount(const QUuid &processor, int count)
{
    return told(m_commands.setPortCount(processor, count));
}

bool CLayoutHandler::setProcessorRedundancy(const QUuid &primary, const QUuid &redundancy)
{
    return told(m_redundancy->pairProcessors(primary, redundancy));
}

bool CLayoutHandler::cancelProcessorRedundancy(const QUuid &processor)
{
    return told(m_redundancy->separateProcessor(processor));
}

bool CLayoutHandler::applyProcessorRedundancy(const QList<QUuid> &processors,
                                              const QList<QPair<QUuid, QUuid>> &pairs)
{
    return told(CBackgroundCall::result([&] { return m_redundancy->replaceProcessors(processors, pairs); }));
}

bool CLayoutHandler::setWorkMode(const QUuid &processor, ProcessorWorkMode mode)
{
    return told(m_commands.setWorkMode(processor, mode));
}

bool CLayoutHandler::setCabinetHighlight(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                                         CabinetHighlight highlight)
{
    return told(m_commands.highlight(cabinets, highlight));
}

bool CLayoutHandler::setPortRedundancy(int primary, int backup)
{
    return told(m_portPairs->pair(primary, backup));
}

bool CLayoutHandler::cancelPortRedundancy(int port)
{
    return told(m_portPairs->separate(port));
}

bool CLayoutHandler::applyPortRedundancy(const QList<QUuid> &processors, const QList<SPortPair> &pairs)
{
    return told(m_portPairs->replace(processors, pairs));
}

QList<QUuid> CLayoutHandler::concerned(ReadSaveMappingRole role) const
{
    QList<QUuid> processors;
    const QUuid current = m_services.table().current();
    if (role == ReadSaveMappingRole::Current && !current.isNull())
        processors << current;
    for (const SDevice &device : m_services.table().devices()) {
        if (role == ReadSaveMappingRole::All && !device.project && device.node.online &&
            !device.node.fiberTransceiver)
            processors << device.node.uuid;
    }
    return processors;
}

void CLayoutHandler::tellNobody(const Done &done)
{
    if (done)
        done({SDeviceOutcome::Failed, tr("No processor is detected.")});
}

void CLayoutHandler::readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Done done)
{
    const QList<QUuid> processors = concerned(role);
    if (processors.isEmpty())
        tellNobody(done);
    else
        m_jobs.readMapping(processors, options, std::move(done));
}

void CLayoutHandler::saveMapping(ReadSaveMappingRole role, const LayoutData &data, Done done)
{
    commitLayoutData(data);
    const QList<QUuid> processors = concerned(role);
    if (processors.isEmpty())
        tellNobody(done);
    else
        m_jobs.saveMapping(processors, std::move(done));
}

bool CLayoutHandler::setPortAreas(const QList<SPortArea> &areas)
{
    return told(m_commands.setPortAreas(areas));
}

void CLayoutHandler::showTypeLibrary(QWidget *parent)
{
    m_services.announcer().requestTypeLibrary(parent);
}

bool CLayoutHandler::sendCabinetParameters(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                                           const SMD5 &type, double gamma)
{
    return told(CBackgroundCall::result([&] { return m_commands.sendParameters(cabinets, type, gamma); }));
}

bool CLayoutHandler::importCurrentGain(const QString &file)
{
    return told(CBackgroundCall::result([&] { return m_commands.importGains(file); }));
}

bool CLayoutHandler::clearCurrentGains()
{
    return told(m_commands.clearGains());
}

bool CLayoutHandler::sendCurrentGains(const QList<SCurrentGain> &gains)
{
    return told(m_commands.sendGains(gains));
}

bool CLayoutHandler::setCanvasSize(const QSize &size)
{
    return told(m_commands.setCanvasSize(size));
}

bool CLayoutHandler::setFrameRateAndColorDepth(int hertz, int bits)
{
    return told(m_commands.setSignal(hertz, bits));
}

bool CLayoutHandler::setBackground(const SBackgroundInfo &info)
{
    return told(m_commands.setBackground(info));
}

bool CLayoutHandler::setProcessorOffsets(const ProcessorOffsets &offsets)
{
    return told(CBackgroundCall::result([&] { return m_commands.setOffsets(offsets); }));
}
