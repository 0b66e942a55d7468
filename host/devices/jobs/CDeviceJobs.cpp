// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CDeviceJobs.h"

#include "host/devices/jobs/CDetection.h"
#include "host/devices/jobs/CDeviceJob.h"
#include "host/devices/jobs/CMappingTransfer.h"
#include "host/devices/services/CDeviceServices.h"

#include <utility>

CDeviceJobs::CDeviceJobs(CDeviceServices &services, QObject *parent)
    : QObject(parent)
    , m_services(services)
    , m_runner(services.mailbox())
{
    connect(&m_runner, &CJobRunner::notifyStarted, this, &CDeviceJobs::onStarted);
    connect(&m_runner, &CJobRunner::notifyFinished, this, &CDeviceJobs::onFinished);
}

CDeviceJobs::~CDeviceJobs()
{
    stop();
}

void CDeviceJobs::setConfirm(Confirm confirm)
{
    m_runner.setConfirm(std::move(confirm));
}

bool CDeviceJobs::start(std::unique_ptr<CDeviceJob> job, CJobRunner::Work work, Done done)
{
    if (!current())
        m_services.flush();
    return m_runner.start(std::move(job), std::move(work), std::move(done));
}

void CDeviceJobs::detect(Done done)
{
    QList<QUuid> searched;
    for (const CSimulatedPark::Processor &processor : m_services.park().processors())
        searched << processor->identity().uuid;
    start(
        std::make_unique<CDeviceJob>(CDeviceJob::Detect, tr("Detect devices"), searched),
        [this](const SJobContext &context) { return CDetection(m_services, context).run(); },
        std::move(done));
}

void CDeviceJobs::readMapping(const QList<QUuid> &processors, const SMappingOptions &options, Done done)
{
    const bool started = start(
        std::make_unique<CDeviceJob>(CDeviceJob::ReadMapping, tr("Read mapping"), processors),
        [this, processors, options](const SJobContext &context) {
            return CMappingTransfer(m_services, context).read(processors, options);
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
            m_services.announcer().announceNumbersShown(processor, true);
    }
}

void CDeviceJobs::saveMapping(const QList<QUuid> &processors, Done done)
{
    start(
        std::make_unique<CDeviceJob>(CDeviceJob::SaveMapping, tr("Save mapping"), processors),
        [this, processors](const SJobContext &context) {
            return CMappingTransfer(m_services, context).save(processors);
        },
        std::move(done));
}

void CDeviceJobs::onStarted(CDeviceJob *job)
{
    m_services.table().setBusy(job->processors());
    Q_EMIT notifyStarted(job);
}

void CDeviceJobs::onFinished(CDeviceJob *job, const SDeviceOutcome &outcome)
{
    m_services.table().setBusy({});
    Q_EMIT notifyFinished(job, outcome);
    if (job->kind() == CDeviceJob::Detect)
        Q_EMIT notifyDetected(m_services.table().onlineDeviceCount());
    if (job->kind() == CDeviceJob::ReadMapping) {
        for (const QUuid &processor : job->processors())
            m_services.announcer().announceNumbersShown(processor, false);
    }
    m_services.mailbox().post([this] { readWhatIsDue(); }); // after the job's waiters have been notified
}

void CDeviceJobs::onMappingChanged(const QUuid &processor)
{
    m_due.insert(processor);
    readWhatIsDue();
}

void CDeviceJobs::readWhatIsDue()
{
    m_due &= m_realtime;
    if (m_due.isEmpty() || current())
        return;
    m_services.flush();
    // The others wait for the end of the job that saves or reads them, or of their pair.
    QList<QUuid> unedited;
    for (const QUuid &processor : qAsConst(m_due)) {
        const SDevice device = m_services.table().device(processor).value_or(SDevice());
        if (!device.isModified() && device.layoutRefusal().isEmpty())
            unedited << processor;
    }
    if (unedited.isEmpty())
        return;
    m_due.subtract(QSet<QUuid>(unedited.begin(), unedited.end()));
    SMappingOptions options;
    options.realtime = true;
    readMapping(unedited, options);
}
