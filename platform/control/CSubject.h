// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <any>
#include <atomic>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <vector>

class CObserver;

/// Sends notifications, each a code with one typed argument, to the attached observers. The thread that is
/// inside notify() is the Update thread; only it may read the argument.
class CSubject
{
public:
    CSubject() = default;
    virtual ~CSubject() = default;
    CSubject(const CSubject &) = delete;
    CSubject &operator=(const CSubject &) = delete;

    /// Adds @p observer; adding it twice has no further effect. The caller keeps ownership. Any thread.
    void attach(CObserver &observer);

    /// Removes @p observer. On return no update of it is running, unless this is called from within one. Any
    /// thread.
    void detach(CObserver &observer);

    /// Calls every observer with @p code and @p argument, on the calling thread. Notifications from several
    /// threads wait for each other. Exceptions of observers are passed to the caller.
    void notify(int code, std::any argument = {});

    /// The code of the running notification; valid inside an update only.
    int code() const { return m_code; }

    /// The argument of the running notification. Throws std::runtime_error if called from another thread than
    /// the Update thread, otherwise if the argument is not a T.
    template <typename T>
    T GetArgument() const
    {
        if (std::this_thread::get_id() != m_updateThread.load()) {
            throw std::runtime_error(
                "CSubject::GetArgument:can not get argument from another thread,must call "
                "this function from Update thread!");
        }
        const T *argument = std::any_cast<T>(&m_argument);
        if (!argument)
            throw std::runtime_error("CSubject::GetArgument:bad type cast!");
        return *argument;
    }

private:
    std::recursive_mutex m_notifyMutex; // held while observers run, so that detach() can wait for them
    std::vector<CObserver *> m_observers;
    std::atomic<std::thread::id> m_updateThread{};
    int m_code = 0;
    std::any m_argument;
};
