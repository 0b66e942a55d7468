// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// What was called; the answers are in CFakeHandlerAnswers.cpp and CFakeHandlerCommands.cpp.
#include "tests/harness/CFakeHandler.h"

#include <algorithm>

QStringList CFakeHandler::calls() const
{
    const Lock lock(m_mutex);
    return m_calls;
}

int CFakeHandler::count(const QString &name) const
{
    const QStringList all = calls();
    return static_cast<int>(std::count_if(all.begin(), all.end(), [&name](const QString &call) {
        return call == name || call.startsWith(name + QLatin1Char('('));
    }));
}

std::thread::id CFakeHandler::threadOf(const QString &name) const
{
    const Lock lock(m_mutex);
    return m_threads.value(name);
}

void CFakeHandler::forgetCalls()
{
    const Lock lock(m_mutex);
    m_calls.clear();
    m_threads.clear();
}

CFakeHandler::Lock CFakeHandler::note(const char *name, const QStringList &arguments) const
{
    const QString operation = QString::fromLatin1(name);
    QString call = operation;
    if (!arguments.isEmpty())
        call += QLatin1Char('(') + arguments.join(QLatin1Char(',')) + QLatin1Char(')');
    Lock lock(m_mutex);
    m_calls << call;
    m_threads[operation] = std::this_thread::get_id();
    if (const auto told = onCalled) {
        lock.unlock();
        told(call);
        lock.lock();
    }
    return lock;
}

bool CFakeHandler::answer(const char *name, const QStringList &arguments) const
{
    const auto lock = note(name, arguments);
    return !refused.contains(QString::fromLatin1(name));
}

void CFakeHandler::end(Lock lock, Done done)
{
    if (answerLater) {
        m_waiting.push_back(std::move(done));
        return;
    }
    const SDeviceOutcome ended = outcome;
    lock.unlock();
    done(ended);
}

void CFakeHandler::endWaiting(const SDeviceOutcome &ended)
{
    Lock lock(m_mutex);
    const Done done = m_waiting.front();
    m_waiting.erase(m_waiting.begin());
    lock.unlock();
    done(ended);
}

QString CFakeHandler::text(const QUuid &uuid)
{
    return uuid.toString(QUuid::WithoutBraces);
}

QString CFakeHandler::text(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString CFakeHandler::text(int value)
{
    return QString::number(value);
}
