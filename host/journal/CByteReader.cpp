// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/journal/CByteReader.h"

#include "layout/api/records/CRecordJson.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr int UuidBytes = 16;
constexpr int NumberBits = 64;

} // namespace

CByteReader::CByteReader(const QByteArray &bytes)
    : m_at(bytes.constData())
    , m_end(m_at + bytes.size())
{
}

bool CByteReader::fail()
{
    m_valid = false;
    m_at = m_end;
    return false;
}

bool CByteReader::holds(qint64 size)
{
    return (m_valid && size >= 0 && m_end - m_at >= size) || fail();
}

int CByteReader::byte()
{
    return holds(1) ? uchar(*m_at++) : 0;
}

quint64 CByteReader::unsignedNumber()
{
    quint64 value = 0;
    for (int shift = 0; shift < NumberBits; shift += 7) {
        const int next = byte();
        value |= quint64(next & 0x7f) << shift;
        if (next < 0x80)
            return m_valid ? value : 0;
    }
    fail();
    return 0;
}

qint64 CByteReader::number()
{
    const quint64 value = unsignedNumber();
    return qint64(value >> 1) ^ -qint64(value & 1);
}

int CByteReader::number(qint64 minimum, qint64 maximum)
{
    const qint64 value = number();
    if (m_valid && (value < minimum || value > maximum))
        fail();
    return m_valid ? int(value) : 0;
}

int CByteReader::count(int smallest)
{
    const quint64 value = unsignedNumber();
    if (value > quint64(m_end - m_at) / quint64(smallest))
        fail();
    return m_valid ? int(value) : 0;
}

int CByteReader::upTo(int maximum)
{
    const quint64 value = unsignedNumber();
    if (value > quint64(maximum))
        fail();
    return m_valid ? int(value) : 0;
}

quint64 CByteReader::fixed()
{
    if (!holds(sizeof(quint64)))
        return 0;
    const quint64 value = qFromLittleEndian<quint64>(m_at);
    m_at += sizeof value;
    return value;
}

QUuid CByteReader::uuid()
{
    if (!holds(UuidBytes))
        return {};
    const QUuid value = QUuid::fromRfc4122(QByteArray::fromRawData(m_at, UuidBytes));
    m_at += UuidBytes;
    return value;
}

QByteArray CByteReader::block()
{
    const int size = count(1);
    const QByteArray value(m_at, size);
    m_at += size;
    return value;
}

QString CByteReader::text()
{
    return QString::fromUtf8(block());
}

QString CByteReader::name()
{
    QString name = text().left(CRecordJson::MaximumTextLength);
    const auto end = std::remove_if(name.begin(), name.end(),
                                    [](QChar c) { return c.unicode() < 0x20 || c.unicode() == 0x7F; });
    name.truncate(int(end - name.begin()));
    if (!name.isEmpty() && name.at(name.size() - 1).isHighSurrogate())
        name.chop(1); // the other half was beyond the limit
    return name;
}

QColor CByteReader::color()
{
    return byte() ? QColor::fromRgba(QRgb(number())) : QColor();
}

QPoint CByteReader::point(int largest)
{
    const int x = number(-largest, largest);
    return {x, number(-largest, largest)};
}

QSize CByteReader::extent(int largest)
{
    const int width = number(-1, largest);
    return {width, number(-1, largest)};
}
