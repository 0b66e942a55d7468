// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/data/CLayoutHandOver.h"

#include "layout/api/access/CHostAccess.h"

namespace {

using Host = ILayoutInterfaceHandler;

constexpr int SyncKey = 0;

} // namespace

CLayoutHandOver::CLayoutHandOver(std::function<bool()> followUpWanted, std::function<void()> handed)
    : m_followUpWanted(std::move(followUpWanted))
    , m_handed(std::move(handed))
{
    m_worker.AddTimeOutEventFilter(SyncKey, Delay);
}

void CLayoutHandOver::handOverNow(const LayoutData &data, bool edited)
{
    m_worker.RemoveEvent(SyncKey);
    const quint64 newest = number(data.processor, edited);
    commit(data, newest);
    if (!m_followUpWanted())
        return;
    if (CHostAccess::call<&Host::layoutFollowUpNeeded>())
        CHostAccess::call<&Host::applyLayoutFollowUp>(false);
    else
        post(data, newest, true);
}

void CLayoutHandOver::handOverLater(const LayoutData &data, bool edited)
{
    post(data, number(data.processor, edited), false);
}

bool CLayoutHandOver::isPending(const QUuid &processor) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_newest.value(processor) > m_handedOver.value(processor);
}

bool CLayoutHandOver::drop(const QUuid &processor)
{
    const std::lock_guard<std::mutex> commitLock(m_commitMutex);
    const std::lock_guard<std::mutex> lock(m_mutex);
    const quint64 known = m_handedOver.value(processor);
    // The queued event stays; when it runs, it finds that its layout is outdated.
    if (m_newest.contains(processor))
        m_handedOver[processor] = m_newest[processor];
    return m_edited.value(processor) > known;
}

void CLayoutHandOver::stop()
{
    m_worker.ThreadExit();
    m_worker.wait();
}

quint64 CLayoutHandOver::number(const QUuid &processor, bool edited)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_newest[processor] = ++m_lastNumber;
    if (edited)
        m_edited[processor] = m_lastNumber;
    return m_lastNumber;
}

void CLayoutHandOver::post(const LayoutData &data, quint64 number, bool committed)
{
    const auto closure = [this, data, number, committed] {
        if (!committed)
            commit(data, number);
        if (m_followUpWanted())
            CHostAccess::call<&Host::applyLayoutFollowUp>(false);
    };
    m_worker.AppendEvent({SyncKey, closure}, committed);
    m_worker.ActivateThread();
}

void CLayoutHandOver::commit(const LayoutData &data, quint64 number)
{
    {
        const std::lock_guard<std::mutex> commitLock(m_commitMutex);
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (number <= m_handedOver.value(data.processor))
                return;
        }
        CHostAccess::call<&Host::commitLayoutData>(data);
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_handedOver[data.processor] = number;
    }
    m_handed();
}
