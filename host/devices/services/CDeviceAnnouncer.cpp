// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/devices/services/CDeviceAnnouncer.h"

#include "host/devices/services/CMailbox.h"

#include <utility>

CDeviceAnnouncer::CDeviceAnnouncer(CMailbox &mailbox, QObject *parent)
    : QObject(parent)
    , m_mailbox(mailbox)
{
}

void CDeviceAnnouncer::notify(LayoutNotification code, std::any argument)
{
    m_updates.post(code, std::move(argument));
}

void CDeviceAnnouncer::announceState()
{
    if (m_stateWaits.exchange(true))
        return;
    m_mailbox.post([this] {
        m_stateWaits = false; // first: what changes from now on is announced again
        Q_EMIT notifyProcessorsChanged();
    });
}

void CDeviceAnnouncer::announceCommit(const QUuid &processor)
{
    m_mailbox.post([this, processor] { Q_EMIT notifyLayoutCommitted(processor); });
    announceState();
}

void CDeviceAnnouncer::announceLayout(const QUuid &processor, std::function<void()> sent)
{
    m_updates.post(LayoutNotification::LayoutReplaced, processor, std::move(sent));
    announceCommit(processor);
}

void CDeviceAnnouncer::announceWords(const QString &words)
{
    m_mailbox.post([this, words] { Q_EMIT notifyTold(words); });
}

void CDeviceAnnouncer::announceStatusLed(const QUuid &processor, bool on)
{
    m_mailbox.post([this, processor, on] { Q_EMIT notifyStatusLedChanged(processor, on); });
}

void CDeviceAnnouncer::announceHighlight(const QUuid &processor, const Cabinets &cabinets,
                                         CabinetHighlight highlight)
{
    m_mailbox.post([this, processor, cabinets, highlight] {
        Q_EMIT notifyHighlightChanged(processor, cabinets, highlight);
    });
}

void CDeviceAnnouncer::announceProcessors()
{
    Q_EMIT notifyProcessorsChanged();
}

void CDeviceAnnouncer::announceCurrentProcessor(const QUuid &processor)
{
    notify(LayoutNotification::CurrentProcessorChanged, processor);
    Q_EMIT notifyCurrentProcessorChanged(processor);
}

void CDeviceAnnouncer::announceNumbersShown(const QUuid &processor, bool shown)
{
    Q_EMIT notifyNumbersShownChanged(processor, shown);
}

void CDeviceAnnouncer::requestScreen(bool shown)
{
    Q_EMIT notifyScreenRequested(shown);
}

void CDeviceAnnouncer::requestTypeLibrary(QWidget *parent)
{
    Q_EMIT notifyTypeLibraryRequested(parent);
}

void CDeviceAnnouncer::stop()
{
    m_updates.stop(CUpdateThread::Deliver);
}
