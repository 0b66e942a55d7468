// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/CDeviceManager.h"

#include "host/devices/CDetection.h"
#include "host/devices/CDeviceJob.h"
#include "host/devices/CDeviceTreeModel.h"
#include "host/devices/CJobRunner.h"
#include "host/devices/CMailbox.h"
#include "host/devices/CMappingTransfer.h"
#include "host/devices/CProjectShelf.h"
#include "host/devices/CSimulatedPark.h"
#include "host/devices/CUpdateThread.h"
#include "layout/api/records/RecordMetaTypes.h"
#include "platform/common/CBackgroundCall.h"

#include <utility>

CDeviceManager::CDeviceManager(const SDeviceSettings &settings, QObject *parent)
    : QObject(parent)
    , m_mailbox(std::make_unique<CMailbox>())
    , m_updates(std::make_unique<CUpdateThread>())
    , m_table(std::make_unique<CDeviceTable>())
    , m_park(std::make_unique<CSimulatedPark>(settings.stateFolder, settings.delayScale))
    , m_projects(std::make_unique<CProjectShelf>(*m_table))
    , m_tree(new CDeviceTreeModel(*m_table, this))
    , m_jobs(new CJobRunner(*m_mailbox, this))
{
    registerRecordMetaTypes();
    connectSignals();
}

CDeviceManager::~CDeviceManager()
{
    stop();
    delete m_jobs; // before the mailbox that it uses
}

void CDeviceManager::connectSignals()
{
    connect(m_jobs, &CJobRunner::started, this, &CDeviceManager::onJobStarted);
    connect(m_jobs, &CJobRunner::finished, this, &CDeviceManager::onJobFinished);
    connect(this, &CDeviceManager::processorsChanged, m_tree, &CDeviceTreeModel::refresh);
    connect(this, &CDeviceManager::layoutCommitted, m_tree, &CDeviceTreeModel::refresh);
}

CSubject &CDeviceManager::subject()
{
    return m_updates->subject();
}

void CDeviceManager::notify(LayoutNotification code, std::any argument)
{
    m_updates->post(code, std::move(argument));
}

void CDeviceManager::post(std::function<void()> work)
{
    m_mailbox->post(std::move(work));
}

void CDeviceManager::setConfirm(Confirm confirm)
{
    m_jobs->setConfirm(std::move(confirm));
}

CDeviceJob *CDeviceManager::currentJob() const
{
    return m_jobs->current();
}

void CDeviceManager::detect(Done done)
{
    QList<QUuid> searched;
    for (const CSimulatedPark::Processor &processor : m_park->processors())
        searched << processor->identity().uuid;
    m_jobs->start(
        std::make_unique<CDeviceJob>(CDeviceJob::Detect, tr("Detect devices"), searched),
        [this](const SJobContext &context) { return CDetection(*this, context).run(); }, std::move(done));
}

void CDeviceManager::readMapping(const QList<QUuid> &processors, const SMappingOptions &options, Done done)
{
    const bool started = m_jobs->start(
        std::make_unique<CDeviceJob>(CDeviceJob::ReadMapping, tr("Read mapping"), processors),
        [this, processors, options](const SJobContext &context) {
            return CMappingTransfer(*this, context).read(processors, options);
        },
        std::move(done));
    if (!started)
        return;
    for (const QUuid &processor : processors) {
        if (options.realtime)
            m_realtime.insert(processor);
        else
            m_realtime.remove(processor);
        if (options.numberMapping)
            Q_EMIT numbersShownChanged(processor, true);
    }
}

void CDeviceManager::saveMapping(const QList<QUuid> &processors, Done done)
{
    m_jobs->start(
        std::make_unique<CDeviceJob>(CDeviceJob::SaveMapping, tr("Save mapping"), processors),
        [this, processors](const SJobContext &context) {
            return CMappingTransfer(*this, context).save(processors);
        },
        std::move(done));
}

void CDeviceManager::onJobStarted(CDeviceJob *job)
{
    m_table->setBusy(job->processors());
    Q_EMIT jobStarted(job);
}

void CDeviceManager::onJobFinished(CDeviceJob *job, const SDeviceOutcome &outcome)
{
    m_table->setBusy({});
    Q_EMIT jobFinished(job, outcome);
    if (job->kind() == CDeviceJob::Detect)
        Q_EMIT detectionFinished(m_table->onlineDeviceCount());
    if (job->kind() == CDeviceJob::ReadMapping) {
        for (const QUuid &processor : job->processors())
            Q_EMIT numbersShownChanged(processor, false);
    }
    post([this] { readWhatIsDue(); }); // once whoever waits for the job has been told
}

void CDeviceManager::select(const QList<QUuid> &processors, PrcTreeNodeType type)
{
    QList<QUuid> known;
    for (const QUuid &processor : processors) {
        if (m_table->contains(processor))
            known << processor;
    }
    const QUuid before = m_table->current();
    const bool single = type == PrcTreeNodeType::Processor && known.size() == 1;
    const QUuid current = single ? known.first() : QUuid();
    m_table->setSelection(current, known);
    if (current != before) {
        notify(LayoutNotification::CurrentProcessorChanged, current);
        Q_EMIT currentProcessorChanged(current);
    }
    notify(LayoutNotification::SelectedNodeChanged, SSelectedNodeChange{m_table->areas(known), type});
}

CResult<QUuid> CDeviceManager::openProject(const QString &file)
{
    CResult<QUuid> opened = CBackgroundCall::result([&] { return m_projects->open(file); });
    if (opened)
        Q_EMIT processorsChanged();
    return opened;
}

CResult<QUuid> CDeviceManager::openDemo()
{
    CResult<QUuid> opened = CBackgroundCall::result([&] { return m_projects->openDemo(); });
    if (opened)
        Q_EMIT processorsChanged();
    return opened;
}

CResult<QUuid> CDeviceManager::addProject(const SProcessorProject &project)
{
    CResult<QUuid> added = CBackgroundCall::result([&] { return m_projects->addUnsaved(project); });
    if (added)
        Q_EMIT processorsChanged();
    return added;
}

CStatus CDeviceManager::saveProject(const QUuid &processor, const QString &file)
{
    CStatus saved = CBackgroundCall::result([&] { return m_projects->save(processor, file); });
    if (saved)
        Q_EMIT processorsChanged();
    return saved;
}

void CDeviceManager::closeProject(const QUuid &project)
{
    if (!isProject(project))
        return;
    QList<QUuid> selection = m_table->selection();
    const bool wasSelected = selection.removeAll(project) > 0;
    if (wasSelected)
        select(selection, selection.isEmpty() ? PrcTreeNodeType::Other : PrcTreeNodeType::Processor);
    m_table->remove(project);
    notify(LayoutNotification::ProcessorRemoved, project);
    Q_EMIT processorsChanged();
}

QString CDeviceManager::projectFile(const QUuid &project) const
{
    const std::optional<SDevice> device = m_table->device(project);
    return device ? device->file : QString();
}

bool CDeviceManager::isProject(const QUuid &processor) const
{
    const std::optional<SDevice> device = m_table->device(processor);
    return device && device->project;
}

bool CDeviceManager::isModified(const QUuid &processor) const
{
    const std::optional<SDevice> device = m_table->device(processor);
    return device && device->isModified();
}

std::shared_ptr<CSimulatedProcessor> CDeviceManager::device(const QUuid &processor) const
{
    return m_park->find(processor);
}

void CDeviceManager::simulate(const QUuid &processor, SimulationFault fault, bool on)
{
    const auto simulated = device(processor);
    if (!simulated)
        return;
    simulated->setFault(fault, on);
    if (!on || fault != SimulationFault::Changed)
        return;
    m_due.insert(processor);
    readWhatIsDue();
}

void CDeviceManager::readWhatIsDue()
{
    m_due &= m_realtime;
    if (m_due.isEmpty() || currentJob())
        return;
    SMappingOptions options;
    options.realtime = true;
    readMapping(std::exchange(m_due, {}).values(), options);
}

bool CDeviceManager::isSimulated(const QUuid &processor, SimulationFault fault) const
{
    const auto simulated = device(processor);
    return simulated && simulated->hasFault(fault);
}

void CDeviceManager::setOnline(const QUuid &processor, bool online)
{
    bool changed = false;
    m_table->change(processor, [&](SDevice &device) {
        changed = device.node.online != online;
        device.node.online = online;
    });
    if (!changed)
        return;
    notify(LayoutNotification::ProcessorStateChanged, SProcessorStateChange{processor, online});
    announceState();
}

void CDeviceManager::announceLayout(const QUuid &processor)
{
    notify(LayoutNotification::LayoutReplaced, processor);
    announceCommit(processor);
}

void CDeviceManager::announceCommit(const QUuid &processor)
{
    post([this, processor] { Q_EMIT layoutCommitted(processor); });
}

void CDeviceManager::announceState()
{
    post([this] { Q_EMIT processorsChanged(); });
}

void CDeviceManager::stop()
{
    m_jobs->stop();
    m_updates->stop(CUpdateThread::Deliver);
    m_mailbox->close();
}
