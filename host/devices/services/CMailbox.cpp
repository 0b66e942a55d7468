// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CMailbox.h"

#include "host/devices/simulated/CCancelToken.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <memory>

namespace {

constexpr std::chrono::milliseconds CancelPoll(20);

const int mailboxEvent = QEvent::registerEventType();

/// A call on its way to the mailbox's thread. It may outlive the caller, who gives it up by cancelling.
struct SCall
{
    enum EState { Waiting, Running, Done, GivenUp };
    std::mutex mutex; // guards the state
    std::condition_variable changed;
    EState state = Waiting;

    bool change(EState from, EState to)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (state != from)
            return false;
        state = to;
        changed.notify_all();
        return true;
    }
};

} // namespace

CMailbox::CMailbox(QObject *parent)
    : QObject(parent)
{
}

void CMailbox::post(std::function<void()> work)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_closed)
            return;
        m_waiting.push_back(std::move(work));
    }
    QCoreApplication::postEvent(this, new QEvent(static_cast<QEvent::Type>(mailboxEvent)));
}

bool CMailbox::call(const std::function<void()> &work, const CCancelToken &cancel)
{
    if (QThread::currentThread() == thread()) {
        work();
        return true;
    }
    const auto call = std::make_shared<SCall>();
    post([call, &work] {
        if (!call->change(SCall::Waiting, SCall::Running))
            return; // the caller, who owns the work, is gone
        work();
        call->change(SCall::Running, SCall::Done);
    });
    std::unique_lock<std::mutex> lock(call->mutex);
    while (call->state != SCall::Done) {
        call->changed.wait_for(lock, CancelPoll);
        if (call->state == SCall::Waiting && (cancel.isCancelled() || isClosed())) {
            call->state = SCall::GivenUp;
            return false;
        }
    }
    return true;
}

void CMailbox::deliver()
{
    // One by one, so that if work opens a dialog, the next can run in the dialog's event loop.
    std::function<void()> next;
    while (take(next))
        next();
}

bool CMailbox::take(std::function<void()> &next)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_waiting.empty())
        return false;
    next = std::move(m_waiting.front());
    m_waiting.pop_front();
    return true;
}

bool CMailbox::isClosed()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_closed;
}

void CMailbox::close()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_closed = true;
    m_waiting.clear();
}

bool CMailbox::event(QEvent *event)
{
    if (event->type() != mailboxEvent)
        return QObject::event(event);
    deliver();
    return true;
}
