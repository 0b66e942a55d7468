// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QObject>
#include <QVariant>
#include <QVector>

#include <type_traits>

/// Records a signal's emissions on the thread that created the log; those of other threads when its events
/// are processed. Unlike QSignalSpy it can watch an object used by several threads.
class CSignalLog final : public QObject
{
public:
    template <typename Sender, typename... Arguments>
    CSignalLog(const Sender *sender, void (Sender::*signal)(Arguments...))
    {
        connect(sender, signal, this, [this](Arguments... arguments) {
            m_emissions << QVariantList{QVariant::fromValue(std::decay_t<Arguments>(arguments))...};
        });
    }

    int count() const { return m_emissions.size(); }
    const QVariantList &operator[](int index) const { return m_emissions[index]; }
    void clear() { m_emissions.clear(); }

private:
    QVector<QVariantList> m_emissions;
};
