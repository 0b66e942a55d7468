// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/jobs/CJobRunner.h"

#include "host/devices/jobs/CDeviceJob.h"
#include "host/devices/services/CMailbox.h"
#include "platform/common/CBackgroundCall.h"

#include <atomic>
#include <new>

namespace {

constexpr int AnswerPoll = 20; // milliseconds

/// A question's answer on its way from the GUI thread to the worker.
struct SAnswer
{
    std::atomic<bool> given{false};
    std::atomic<bool> yes{false};
};

SDeviceOutcome outcomeOf(const CJobRunner::Work &work, const SJobContext &context)
{
    try {
        return work(context);
    } catch (const std::bad_alloc &) {
        return {SDeviceOutcome::Failed, CBackgroundCall::memoryText()};
    }
}

} // namespace

CJobRunner::CJobRunner(CMailbox &mailbox, QObject *parent)
    : QObject(parent)
    , m_mailbox(mailbox)
{
}

CJobRunner::~CJobRunner()
{
    stop();
}

bool CJobRunner::start(std::unique_ptr<CDeviceJob> job, Work work, Done done)
{
    if (m_stopped || m_job) {
        const QString reason =
            m_stopped ? tr("The program is being closed.")
                      : tr("\"%1\" is running. Wait until it has ended, or cancel it.").arg(m_job->title());
        if (done)
            done({SDeviceOutcome::Failed, reason});
        return false;
    }
    m_job = std::move(job);
    m_done = std::move(done);
    Q_EMIT notifyStarted(m_job.get());
    m_thread = std::thread([this, work = std::move(work), context = context(*m_job)] {
        const SDeviceOutcome outcome = outcomeOf(work, context);
        m_mailbox.post([this, outcome] { finish(outcome); });
    });
    return true;
}

SJobContext CJobRunner::context(CDeviceJob &job)
{
    const std::shared_ptr<CCancelToken> cancel = job.token();
    SJobContext context;
    context.cancel = cancel;
    context.report = [this](int percent, const QString &text) {
        m_mailbox.post([this, percent, text] {
            if (m_job)
                m_job->setProgress(percent, text);
        });
    };
    context.ask = [this, cancel](const QString &text) { return ask(text, cancel); };
    return context;
}

bool CJobRunner::ask(const QString &text, const std::shared_ptr<CCancelToken> &cancel)
{
    const auto answer = std::make_shared<SAnswer>();
    m_mailbox.post([this, text, cancel, answer] {
        answer->yes = !cancel->isCancelled() && confirm(text);
        answer->given = true;
    });
    while (!answer->given) {
        if (!cancel->wait(AnswerPoll))
            return false;
    }
    return answer->yes;
}

void CJobRunner::finish(const SDeviceOutcome &ended)
{
    // Receivers must not show messages while the program closes.
    const SDeviceOutcome outcome = m_stopped ? SDeviceOutcome{SDeviceOutcome::Cancelled, {}} : ended;
    if (m_thread.joinable())
        m_thread.join();
    const std::unique_ptr<CDeviceJob> job = std::move(m_job);
    const Done done = std::move(m_done);
    m_done = nullptr;
    job->setProgress(100, job->progressText());
    job->finish(outcome);
    Q_EMIT notifyFinished(job.get(), outcome);
    if (done)
        done(outcome);
}

void CJobRunner::stop()
{
    m_stopped = true;
    if (!m_job)
        return;
    m_job->cancel();
    m_thread.join();
    m_mailbox.deliver(); // the outcome is the last thing that the thread posted
}
