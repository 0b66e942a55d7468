// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QtGlobal>

/// A digest of 64 bits against damage and mix-ups, not against intent. A change of a single value always
/// changes it.
class CDigest final
{
public:
    explicit CDigest(quint64 seed = 0)
        : m_value(seed ^ 0x9e3779b97f4a7c15ULL)
    {
    }
    void add(quint64 value)
    {
        m_value = (m_value ^ value) * 0xff51afd7ed558ccdULL;
        m_value ^= m_value >> 32;
    }
    void add(const QByteArray &bytes) { add(bytes.constData(), bytes.size()); }
    void add(const char *bytes, int size);
    quint64 value() const { return m_value; }

private:
    quint64 m_value;
};
