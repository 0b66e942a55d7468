// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CByteWriter.h"

#include <QtEndian>

void CByteWriter::unsignedNumber(quint64 value)
{
    for (; value >= 0x80; value >>= 7)
        byte(int(value & 0x7f) | 0x80);
    byte(int(value));
}

void CByteWriter::number(qint64 value)
{
    unsignedNumber((quint64(value) << 1) ^ (value < 0 ? ~quint64(0) : 0));
}

void CByteWriter::fixed(quint64 value)
{
    char bytes[sizeof value];
    qToLittleEndian(value, bytes);
    m_bytes.append(bytes, int(sizeof bytes));
}

void CByteWriter::uuid(const QUuid &value)
{
    m_bytes.append(value.toRfc4122());
}

void CByteWriter::block(const QByteArray &value)
{
    count(value.size());
    m_bytes.append(value);
}

void CByteWriter::text(const QString &value)
{
    block(value.toUtf8());
}

void CByteWriter::color(const QColor &value)
{
    byte(value.isValid() ? 1 : 0);
    if (value.isValid())
        number(qint64(value.rgba()));
}

void CByteWriter::point(const QPoint &value)
{
    number(value.x());
    number(value.y());
}

void CByteWriter::extent(const QSize &value)
{
    number(value.width());
    number(value.height());
}
