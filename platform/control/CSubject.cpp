// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "platform/control/CSubject.h"

#include "platform/control/CObserver.h"

#include <algorithm>

void CSubject::attach(CObserver &observer)
{
    const std::lock_guard<std::recursive_mutex> lock(m_notifyMutex);
    if (std::find(m_observers.begin(), m_observers.end(), &observer) == m_observers.end())
        m_observers.push_back(&observer);
}

void CSubject::detach(CObserver &observer)
{
    const std::lock_guard<std::recursive_mutex> lock(m_notifyMutex);
    m_observers.erase(std::remove(m_observers.begin(), m_observers.end(), &observer), m_observers.end());
}

void CSubject::notify(int code, std::any argument)
{
    const std::lock_guard<std::recursive_mutex> lock(m_notifyMutex);

    // Restores the outer notification when an observer notifies in turn, and ends this one when an observer
    // throws.
    struct CRunning final
    {
        CSubject &subject;
        std::thread::id thread = subject.m_updateThread.load();
        int code = subject.m_code;
        std::any argument = std::move(subject.m_argument);
        ~CRunning()
        {
            subject.m_updateThread.store(thread);
            subject.m_code = code;
            subject.m_argument = std::move(argument);
        }
    } outer{*this};

    m_updateThread.store(std::this_thread::get_id());
    m_code = code;
    m_argument = std::move(argument);
    const std::vector<CObserver *> observers = m_observers; // an observer may detach itself
    for (CObserver *observer : observers) {
        if (std::find(m_observers.begin(), m_observers.end(), observer) != m_observers.end())
            observer->Update(*this);
    }
}
