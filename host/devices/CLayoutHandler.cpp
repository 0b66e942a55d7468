// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CLayoutHandler.h"

#include "host/devices/CDeviceCommands.h"
#include "host/devices/CMappingFiles.h"
#include "host/devices/CPortPairs.h"
#include "host/devices/CRedundancyPairs.h"
#include "host/devices/services/CDeviceServices.h"
#include "host/library/CTypeLibrary.h"

#include <algorithm>

CLayoutHandler::CLayoutHandler(CDeviceServices &services, CDeviceJobs &jobs, CDeviceCommands &commands,
                               const CTypeLibrary &library, CJournalKeeper *keeper)
    : m_services(services)
    , m_jobs(jobs)
    , m_commands(commands)
    , m_library(library)
    , m_keeper(keeper)
    , m_files(std::make_unique<CMappingFiles>(services, library))
    , m_redundancy(std::make_unique<CRedundancyPairs>(services, commands))
    , m_portPairs(std::make_unique<CPortPairs>(services))
{
}

CLayoutHandler::~CLayoutHandler() = default;

SDevice CLayoutHandler::current() const
{
    return m_services.table().currentDevice().value_or(SDevice());
}

SDevice CLayoutHandler::known(const QUuid &processor) const
{
    return m_services.table().device(processor).value_or(SDevice());
}

bool CLayoutHandler::told(const CStatus &status)
{
    if (!status) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_lastError = status.error();
    }
    return bool(status);
}

QString CLayoutHandler::lastError() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_lastError;
}

QSize CLayoutHandler::getCanvasSize() const
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    return device ? device->settings.canvas : QSize();
}

ProcessorTree::ProcessorNode CLayoutHandler::getProcessorNode(const QUuid &processor) const
{
    return known(processor).node;
}

bool CLayoutHandler::layoutFollowUpNeeded() const
{
    return m_followUpNeeded;
}

int CLayoutHandler::getDetectedProcessorCount() const
{
    return m_services.table().onlineDeviceCount();
}

bool CLayoutHandler::isFiberTransceiverMode(const QUuid &processor) const
{
    return known(processor).node.fiberTransceiver;
}

ProcessorTree::ProcessorNode CLayoutHandler::currentProcessorNode() const
{
    return current().node;
}

QVector<CabinetLayout::CabinetPort> CLayoutHandler::currentProcessorPorts() const
{
    return current().working.layout().ports;
}

LayoutData CLayoutHandler::layoutData(const QUuid &processor) const
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    return device ? device->data() : LayoutData();
}

int CLayoutHandler::preparatoryStep(const QUuid &processor) const
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    return device && !device->isLoaded() ? 1 : 0;
}

SUnsavedEdits CLayoutHandler::unsavedEdits(const QUuid &processor) const
{
    const SDevice device = known(processor);
    SUnsavedEdits edits = device.unsavedEdits();
    edits.unannounced = !device.replaced.isEmpty();
    return edits;
}

PortLocks CLayoutHandler::locksBeside(const QUuid &processor) const
{
    return m_services.table().locksBeside(processor);
}

QList<ProcessorTree::ProcessorNode> CLayoutHandler::selectedProcessors() const
{
    QList<ProcessorTree::ProcessorNode> nodes;
    for (const QUuid &processor : m_services.table().selection())
        nodes << known(processor).node;
    return nodes;
}

QList<ProcessorTree::ProcessorNode> CLayoutHandler::processors() const
{
    return m_services.table().nodes();
}

int CLayoutHandler::outputPortCount(const QUuid &processor) const
{
    return known(processor).settings.portCount;
}

int CLayoutHandler::maximumPortCount(const QUuid &processor) const
{
    return known(processor).kind.ports;
}

QList<QPair<QUuid, QUuid>> CLayoutHandler::processorRedundancies() const
{
    return m_redundancy->processors();
}

ProcessorTree::ProcessorNode CLayoutHandler::processorOfCabinet(const QUuid &cabinet) const
{
    return m_services.table().nodeOfCabinet(cabinet);
}

QVector<SSettings::TypeLibrary::STreeNode> CLayoutHandler::typeLibrary() const
{
    return m_library.nodes();
}

bool CLayoutHandler::isPortRedundancyBlocked() const
{
    return CPortPairs::isBlocked(current());
}

QString CLayoutHandler::portPairRefusal(const SPortKey &port) const
{
    return m_portPairs->refusal(port);
}

QList<SPortPair> CLayoutHandler::portRedundancies() const
{
    return m_portPairs->pairs();
}

bool CLayoutHandler::isPortRedundancySupported() const
{
    return current().kind.portRedundancy;
}

int CLayoutHandler::portLoad(const CabinetLayout::CabinetPort &port, int index) const
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    return device ? device->portLoad(port, index).percent : 0;
}

SPortLoad CLayoutHandler::portLoadDetails(const QUuid &processor, const CabinetLayout::CabinetPort &port,
                                          int index) const
{
    const std::optional<SDevice> device = m_services.table().device(processor);
    return device ? device->portLoad(port, index) : SPortLoad();
}

QList<SPortArea> CLayoutHandler::portAreas() const
{
    return current().settings.portAreas;
}

int CLayoutHandler::lowLatencyWidthLimit() const
{
    return current().kind.lowLatencyWidth;
}

bool CLayoutHandler::isThreeDEnabled() const
{
    return current().settings.threeD;
}

bool CLayoutHandler::areProcessorsOnline(const QList<QUuid> &processors) const
{
    return std::all_of(processors.begin(), processors.end(),
                       [this](const QUuid &processor) { return known(processor).node.online; });
}

bool CLayoutHandler::areProcessorsBusy(const QList<QUuid> &processors) const
{
    return std::any_of(processors.begin(), processors.end(),
                       [this](const QUuid &processor) { return m_services.table().isBusy(processor); });
}

bool CLayoutHandler::areOnPrimaryPorts(const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets) const
{
    const SDevice inView = current();
    const QList<SDevice> devices = m_services.table().devices();
    return std::all_of(cabinets.begin(), cabinets.end(), [&](const auto &cabinet) {
        const SDevice *holder = CDeviceCommands::holderOf(devices, cabinet);
        const CabinetLayout::CabinetPort *port =
            (holder ? *holder : inView).working.layout().port(cabinet.port);
        return port && port->redundancy != CabinetLayout::CabinetPort::Redundant;
    });
}

QList<SCurrentGain> CLayoutHandler::currentGains() const
{
    const std::optional<SDevice> device = m_services.table().currentDevice();
    return device ? CDeviceCommands::gains(*device) : QList<SCurrentGain>();
}

SCanvasLimits CLayoutHandler::canvasLimits() const
{
    return current().kind.canvas;
}

CanvasBlock CLayoutHandler::canvasBlock() const
{
    return CDeviceCommands::canvasBlock(current());
}

int CLayoutHandler::frameRate() const
{
    return current().settings.frameRate;
}

int CLayoutHandler::colorDepth() const
{
    return current().settings.colorDepth;
}

SSignalModes CLayoutHandler::signalModes() const
{
    return current().kind.signalModes();
}

SBackgroundInfo CLayoutHandler::background(const QUuid &processor) const
{
    SBackgroundInfo info = known(processor).settings.background;
    info.processor = processor;
    return info;
}

ProcessorBoundingRects CLayoutHandler::processorBoundingRects(const QList<QUuid> &processors) const
{
    return m_services.table().areas(processors);
}
