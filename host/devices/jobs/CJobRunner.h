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

/// How a job's work, on its thread, communicates.
struct SJobContext
{
    std::shared_ptr<CCancelToken> cancel;
    std::function<void(int percent, const QString &text)> report;
    /// Asks the user on the GUI thread and waits; also false if the job is cancelled meanwhile.
    std::function<bool(const QString &text)> ask;
};

/// Runs device work on its own thread, one job at a time, and reports the end on the GUI thread. GUI thread.
class CJobRunner final : public QObject
{
    Q_OBJECT

public:
    using Work = std::function<SDeviceOutcome(const SJobContext &context)>;
    using Done = std::function<void(const SDeviceOutcome &)>;
    using Confirm = std::function<bool(const QString &text)>;

    /// @p mailbox delivers progress and outcome on the GUI thread; it must outlive the runner.
    explicit CJobRunner(CMailbox &mailbox, QObject *parent = nullptr);
    ~CJobRunner() override; ///< stops first

    void setConfirm(Confirm confirm) { m_confirm = std::move(confirm); }
    bool confirm(const QString &text) const { return m_confirm && m_confirm(text); }
    CDeviceJob *current() const { return m_job.get(); }
    /// Starts @p work as @p job. Returns false while another job runs and after stop(); @p done then gets the
    /// reason.
    bool start(std::unique_ptr<CDeviceJob> job, Work work, Done done);
    /// Cancels the running job, waits for its end and reports it as cancelled. Nothing can be started
    /// afterwards.
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
