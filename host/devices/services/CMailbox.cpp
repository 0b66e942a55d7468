// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CMailbox.h"

#include <QCoreApplication>
#include <QEvent>

namespace {

const int mailboxEvent = QEvent::registerEventType();

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
