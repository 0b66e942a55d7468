// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/jobs/CJobRunner.h"

#include <QSet>
#include <QUuid>

class CDeviceServices;

/// Detects devices, reads and saves mappings, one job at a time in the background. Pending edits of modules
/// are flushed before a job begins. GUI thread.
class CDeviceJobs final : public QObject
{
    Q_OBJECT

public:
    using Confirm = CJobRunner::Confirm;
    using Done = CJobRunner::Done;

    /// @p services must outlive this object.
    explicit CDeviceJobs(CDeviceServices &services, QObject *parent = nullptr);
    ~CDeviceJobs() override; ///< stops first

    /// Sets the function that asks the user a yes-or-no question; without one, the answer is always No.
    void setConfirm(Confirm confirm);
    bool confirm(const QString &text) const { return m_runner.confirm(text); }

    /// Searches for processors and reads those that answer. A layout with unsaved edits is kept. Like all
    /// jobs, refused while another one runs; @p done then gets the reason.
    void detect(Done done = {});
    /// Reads mappings; see ILayoutInterfaceHandler::readMapping().
    void readMapping(const QList<QUuid> &processors, const SMappingOptions &options, Done done = {});
    /// Saves the working layouts. Asks before overwriting a mapping that was changed from elsewhere.
    void saveMapping(const QList<QUuid> &processors, Done done = {});
    /// The running job, or null.
    CDeviceJob *current() const { return m_runner.current(); }

    /// Call when a processor reports another mapping; it is read again if it was last read in realtime mode.
    void onMappingChanged(const QUuid &processor);

    /// Cancels the running job, waits for it and reports it as cancelled. Nothing can be started afterwards.
    /// A second call does nothing.
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
    QSet<QUuid> m_realtime; // to be read again when their mapping changes
    QSet<QUuid> m_due;      // those of them whose mapping has changed
};
