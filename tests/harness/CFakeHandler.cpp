// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
// What was called; the answers are in CFakeHandlerAnswers.cpp and CFakeHandlerCommands.cpp.
#include "tests/harness/CFakeHandler.h"

#include <algorithm>

QStringList CFakeHandler::calls() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
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
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_threads.value(name);
}

void CFakeHandler::forgetCalls()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_calls.clear();
    m_threads.clear();
}

void CFakeHandler::note(const char *name, const QStringList &arguments) const
{
    QString call = QString::fromLatin1(name);
    const QString operation = call;
    if (!arguments.isEmpty())
        call += QLatin1Char('(') + arguments.join(QLatin1Char(',')) + QLatin1Char(')');
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls << call;
        m_threads[operation] = std::this_thread::get_id();
    }
    if (onCalled)
        onCalled(call);
}

bool CFakeHandler::answer(const char *name, const QStringList &arguments) const
{
    note(name, arguments);
    return !refused.contains(QString::fromLatin1(name));
}

void CFakeHandler::end(Done done)
{
    if (answerLater)
        waiting.push_back(std::move(done));
    else
        done(outcome);
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
