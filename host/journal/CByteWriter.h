// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QColor>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QUuid>

/// Appends values to a sequence of bytes: small numbers take few bytes. CByteReader reads them again.
class CByteWriter final
{
public:
    const QByteArray &bytes() const { return m_bytes; }
    int size() const { return m_bytes.size(); }

    void byte(int value) { m_bytes.append(char(value)); }
    void number(qint64 value); ///< the smaller its magnitude, the fewer bytes
    void count(int value) { unsignedNumber(quint64(value)); }
    void fixed(quint64 value); ///< always eight bytes
    void uuid(const QUuid &value);
    void text(const QString &value);
    void block(const QByteArray &value); ///< with its length
    void raw(const QByteArray &value) { m_bytes.append(value); }
    void color(const QColor &value);
    void point(const QPoint &value);
    void extent(const QSize &value);

private:
    void unsignedNumber(quint64 value);

    QByteArray m_bytes;
};
