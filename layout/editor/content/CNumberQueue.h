// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QVector>

/// Small numbers that wait for their turn, each at most once. All operations are O(1).
class CNumberQueue final
{
public:
    bool isEmpty() const { return m_waiting.isEmpty(); }
    void clear() { *this = CNumberQueue(); }
    void add(int number)
    {
        if (number >= m_isWaiting.size())
            m_isWaiting.resize(number + 1);
        if (m_isWaiting.at(number))
            return;
        m_isWaiting[number] = true;
        m_waiting << number;
    }
    int take()
    {
        const int number = m_waiting.takeLast();
        m_isWaiting[number] = false;
        return number;
    }

private:
    QVector<int> m_waiting;
    QVector<bool> m_isWaiting; // by number
};
