// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/simulated/CCancelToken.h"
#include "layout/api/records/SHostRecords.h"

#include <QCoreApplication>
#include <QObject>

#include <functional>
#include <memory>
#include <thread>

class CDeviceJob;
class CMailbox;

/// What a job's work, on its thread, has to do with the outside.
struct SJobContext
{
    std::shared_ptr<CCancelToken> cancel;
    std::function<void(int percent, const QString &text)> report;
    /// Asks the user on the GUI thread and waits; false also when the job is cancelled meanwhile.
    std::function<bool(const QString &text)> ask;
};

/// Runs device work on a thread of its own, one job at a time, and tells its end on the GUI thread. GUI
/// thread.
class CJobRunner final : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<SDeviceOutcome(const SJobContext &context)>;
    using Done = std::function<void(const SDeviceOutcome &)>;
    using Confirm = std::function<bool(const QString &text)>;

    /// @p mailbox brings progress and outcome to the GUI thread and outlives the runner.
    explicit CJobRunner(CMailbox &mailbox, QObject *parent = nullptr);
    ~CJobRunner() override; ///< stops first

    void setConfirm(Confirm confirm) { m_confirm = std::move(confirm); }
    CDeviceJob *current() const { return m_job.get(); }
    /// Starts @p work as @p job. While another job runs, or after stop(), only tells @p done why not; false
    /// then.
    bool start(std::unique_ptr<CDeviceJob> job, Work work, Done done);
    /// Cancels the running job, waits for its end and tells that it was cancelled; starts nothing any more.
    void stop();

Q_SIGNALS:
    void notifyStarted(CDeviceJob *job);
    void notifyFinished(CDeviceJob *job, const SDeviceOutcome &outcome);

private:
    SJobContext context(CDeviceJob &job);
    bool ask(const QString &text, const std::shared_ptr<CCancelToken> &cancel);
    void finish(const SDeviceOutcome &ended);

    CMailbox &m_mailbox;
    Confirm m_confirm;
    std::unique_ptr<CDeviceJob> m_job;
    Done m_done;
    std::thread m_thread;
    bool m_stopped = false;
};
