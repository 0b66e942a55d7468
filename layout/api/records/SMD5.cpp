// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/SMD5.h"

#include <QCryptographicHash>

#include <algorithm>

SMD5 SMD5::ofContent(const QByteArray &content)
{
    return fromText(QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex());
}

SMD5 SMD5::fromText(const QByteArray &digits)
{
    SMD5 key;
    const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
    if (digits.size() == int(key.bytes.size()) && std::all_of(digits.begin(), digits.end(), isDigit))
        std::copy(digits.begin(), digits.end(), key.bytes.begin());
    return key;
}

QByteArray SMD5::toText() const
{
    return isNull() ? QByteArray() : QByteArray(bytes.data(), int(bytes.size()));
}
