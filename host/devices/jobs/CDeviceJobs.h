// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/jobs/CJobRunner.h"

#include <QSet>
#include <QUuid>

class CDeviceServices;

/// Detects devices, reads and saves mappings, one job at a time in the background. What a module still holds
/// is flushed before a job begins. GUI thread.
class CDeviceJobs final : public QObject
{
    Q_OBJECT

public:
    using Confirm = CJobRunner::Confirm;
    using Done = CJobRunner::Done;

    /// @p services outlives this object.
    explicit CDeviceJobs(CDeviceServices &services, QObject *parent = nullptr);
    ~CDeviceJobs() override; ///< stops first

    /// Sets what asks the user a yes-or-no question; without it, questions count as answered with No.
    void setConfirm(Confirm confirm);

    /// Searches for processors; those that answer are read. A layout with unsaved edits is kept. While
    /// another job runs, nothing happens except that @p done is told so; this holds for all jobs.
    void detect(Done done = {});
    /// Reads mappings; see ILayoutInterfaceHandler::readMapping().
    void readMapping(const QList<QUuid> &processors, const SMappingOptions &options, Done done = {});
    /// Saves the working layouts. Asks before it overwrites a mapping that somebody else has changed.
    void saveMapping(const QList<QUuid> &processors, Done done = {});
    /// The running job, or null.
    CDeviceJob *current() const { return m_runner.current(); }

    /// A processor has another mapping: it is read again if it was last read in realtime mode.
    void onMappingChanged(const QUuid &processor);

    /// Cancels what runs, waits for it and tells that it was cancelled. Nothing can be started afterwards. A
    /// second call does nothing.
    void stop() { m_runner.stop(); }

Q_SIGNALS:
    void notifyStarted(CDeviceJob *job);
    void notifyFinished(CDeviceJob *job, const SDeviceOutcome &outcome); ///< the job is deleted afterwards
    void notifyDetected(int online); ///< a detection has ended; @p online devices answer

private:
    bool start(std::unique_ptr<CDeviceJob> job, CJobRunner::Work work, Done done);
    void onStarted(CDeviceJob *job);
    void onFinished(CDeviceJob *job, const SDeviceOutcome &outcome);
    void readWhatIsDue();

    CDeviceServices &m_services;
    CJobRunner m_runner;
    QSet<QUuid> m_realtime; // read again when their mapping changes
    QSet<QUuid> m_due;      // of these, those whose mapping has changed
};
